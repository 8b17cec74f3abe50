// SPDX-License-Identifier: GPL-3.0-or-later
// Renders the pictures shown while the program starts.
#pragma once

#include <QString>

#include "set_parameters.h"

namespace art {

/// Writes "UI Graphics"/Splash16.bmp and Splash8.bmp below `output`, twice the window's 480 by 300
/// pixels; the latter has a palette of 256 colours. `set` lends pieces, lamp and shadow.
bool RenderSplash(const SetParameters& set, const QString& source, const QString& output,
                  QString* error);

}  // namespace art
