// SPDX-License-Identifier: GPL-3.0-or-later
// The pictures that belong to the program itself and to no skin or chess set.
#pragma once

#include <QPixmap>
#include <QString>

namespace ui {

/// A file of the program's own pictures, such as "tarvolenix.png".
QString ProgramPicturePath(const QString& name);

/// The picture of message icon 1 to 5, `size` pixels high; the desktop's own where it is missing.
QPixmap MessagePicture(int icon, int size);

}  // namespace ui
