// SPDX-License-Identifier: GPL-3.0-or-later
// A skin's folder with all its files.
#pragma once

#include <QString>

#include "skin_parameters.h"

namespace art {

/// Renders the skin into `outputFolder`/<the skin's folder>/, with the icons of its buttons from
/// `glyphFolder`. Works on all cores.
bool RenderSkin(const SkinParameters& skin, const QString& glyphFolder, const QString& outputFolder,
                QString* error);

}  // namespace art
