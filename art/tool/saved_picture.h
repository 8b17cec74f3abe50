// SPDX-License-Identifier: GPL-3.0-or-later
// Writing a finished picture to disk.
#pragma once

#include <QImage>
#include <QString>

namespace art {

/// The path's suffix names the format; missing folders are made. False with `error` on failure.
bool SavePicture(const QImage& picture, const QString& path, QString* error, int quality = -1);

}  // namespace art
