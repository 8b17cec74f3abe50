// SPDX-License-Identifier: GPL-3.0-or-later
// Renders the pictures of the program's own windows: the message icons and the program icon.
#pragma once

#include <QString>

#include "set_parameters.h"

namespace art {

/// Writes messages/message-1.png to message-5.png and tarvolenix.png below `output`.
/// `set` lends the program icon its knight.
bool RenderProgramIcons(const SetParameters& set, const QString& source, const QString& output,
                        QString* error);

}  // namespace art
