// SPDX-License-Identifier: GPL-3.0-or-later
// The pictures that belong to the program itself and to no skin or chess set.
#pragma once

#include <QIcon>
#include <QImage>
#include <QPixmap>
#include <QString>

#include <optional>
#include <string>

namespace ui {

/// One of the program's own pictures, such as "tarvolenix.png", in all its sizes.
QIcon ProgramPicture(const QString& name);

inline constexpr const char* programIcon = "tarvolenix.png";

/// The start picture for a screen: in few colours where it has no more, or where nobody knows; the
/// large one where there is more than one pixel to a logical one.
QImage StartPicture(const std::string& programFolder, std::optional<int> bitsPerPixel,
                    double pixelRatio);

/// Begins to read the program's icon on another thread, for the first who wants it. The application
/// object must be there.
void ReadIconAhead(const std::string& programFolder);

/// The picture of message icon 1 to 5, `size` pixels high; the desktop's own where it is missing.
QPixmap MessagePicture(int icon, int size);

/// A picture of the tray's icon sets, counted from 1: three a set, for nothing new, a new move and
/// no connection. An unknown number gives the program's own picture.
QIcon TrayPicture(int picture);

/// How many of them there are, one after the other.
int TrayPictureCount();

}  // namespace ui
