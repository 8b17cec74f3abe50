// SPDX-License-Identifier: GPL-3.0-or-later
// Squares of a grained material (wood, felt, stone) from noise.
#pragma once

#include <QImage>

#include "set_parameters.h"

namespace art {

/// A square of `side` pixels with upright grain; the same parameters always give the same picture.
QImage PaintGrain(const GrainParameters& grain, int side);

}  // namespace art
