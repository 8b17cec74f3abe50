// SPDX-License-Identifier: GPL-3.0-or-later
// Renders the pictures shown while the program starts.
#pragma once

#include <QString>

#include "set_parameters.h"

namespace art {

/// Writes "UI Graphics"/Splash16.bmp and Splash8.bmp below `output`, of the window's 480 by 300
/// pixels, the latter with a palette of 256 colours, and Splash16@2x.bmp, of twice as many. `set`
/// lends pieces, lamp and shadow.
bool RenderSplash(const SetParameters& set, const QString& source, const QString& output,
                  QString* error);

}  // namespace art
