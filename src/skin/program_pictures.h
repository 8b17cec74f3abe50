// SPDX-License-Identifier: GPL-3.0-or-later
// The pictures that belong to the program itself and to no skin or chess set.
#pragma once

#include <QIcon>
#include <QPixmap>
#include <QString>

#include <string>

namespace ui {

/// One of the program's own pictures, such as "tarvolenix.png", in all its sizes.
QIcon ProgramPicture(const QString& name);

/// The start picture, in few colours for screens that have no more.
QPixmap StartPicture(bool inFewColours);

/// Reads the pictures of every start on another thread. The application object must be there. What
/// of it nobody has wanted until StartIsOver goes then.
void ReadPicturesOfStart(const std::string& programFolder);
void StartIsOver();

/// The picture of message icon 1 to 5, `size` pixels high; the desktop's own where it is missing.
QPixmap MessagePicture(int icon, int size);

/// A picture of the tray's icon sets, counted from 1: three a set, for nothing new, a new move and
/// no connection. An unknown number gives the program's own picture.
QIcon TrayPicture(int picture);

/// How many of them there are, one after the other.
int TrayPictureCount();

}  // namespace ui
