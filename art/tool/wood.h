// SPDX-License-Identifier: GPL-3.0-or-later
// Squares of wood, from noise.
#pragma once

#include <QImage>

#include "set_parameters.h"

namespace art {

/// A square of `side` pixels with upright grain; the same parameters always give the same wood.
QImage PaintWood(const WoodParameters& wood, int side);

}  // namespace art
