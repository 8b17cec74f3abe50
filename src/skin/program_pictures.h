// SPDX-License-Identifier: GPL-3.0-or-later
// The pictures that belong to the program itself and to no skin or chess set.
#pragma once

#include <QIcon>
#include <QPixmap>
#include <QString>

namespace ui {

/// A file of the program's own pictures, such as "tarvolenix.png".
QString ProgramPicturePath(const QString& name);

/// The picture of message icon 1 to 5, `size` pixels high; the desktop's own where it is missing.
QPixmap MessagePicture(int icon, int size);

/// A picture of the tray's icon sets, counted from 1: three a set, for nothing new, a new move and
/// no connection. An unknown number gives the program's own picture.
QIcon TrayPicture(int picture);

/// How many of them there are, one after the other.
int TrayPictureCount();

}  // namespace ui
