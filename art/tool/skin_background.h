// SPDX-License-Identifier: GPL-3.0-or-later
// The background picture of a window, drawn from the window's own layout.
#pragma once

#include <QImage>

#include "skin/layouts/layout.h"
#include "skin_parameters.h"

namespace art {

QImage PaintBackground(const SkinParameters& skin, const ui::layouts::Layout& layout);

}  // namespace art
