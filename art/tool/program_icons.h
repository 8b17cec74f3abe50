// SPDX-License-Identifier: GPL-3.0-or-later
// Renders the pictures of the program's own windows: the icon family and the program icon.
#pragma once

#include <QString>

#include "set_parameters.h"

namespace art {

/// Writes below `output`: an .ico for every drawing in a folder of icons/, message-1.png to
/// message-5.png in messages/, draw.png, and tarvolenix.png and .ico, and
/// its pictures by their sizes as icon themes have them. `set` lends the program icon
/// its knight and all of them their shadow.
bool RenderProgramIcons(const SetParameters& set, const QString& source, const QString& output,
                        QString* error);

}  // namespace art
