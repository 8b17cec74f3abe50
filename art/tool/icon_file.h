// SPDX-License-Identifier: GPL-3.0-or-later
// An .ico file that holds one picture in several sizes, of which the desktop takes the fitting one.
//
//   0  reserved (2 bytes), type 1 (2), number of pictures (2)
//   6  an entry a picture: width, height (1 each, 0 for 256), colours and reserved (1 each),
//      planes 1 (2), bits 32 (2), bytes of the picture (4), its offset from the file's start (4)
//   then the pictures, each a whole PNG file; all numbers are little-endian
#pragma once

#include <QImage>
#include <QString>

#include <vector>

namespace art {

/// Pictures are square and up to 256 pixels wide; missing folders are made. False with `error` on
/// failure.
bool SaveIcon(const std::vector<QImage>& pictures, const QString& path, QString* error);

}  // namespace art
