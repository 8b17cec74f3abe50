// SPDX-License-Identifier: GPL-3.0-or-later
// A piece in its side's colours under the lamp, and its shadow.
#pragma once

#include <QImage>

#include "piece_drawing.h"
#include "set_parameters.h"

namespace art {

/// The upright piece on a transparent ground, as large as the drawing's layers.
QImage PaintPiece(const PieceDrawing& drawing, const SidePalette& palette, const Lamp& lamp);

/// The piece fallen to the right and lying on the base line, lit by the same lamp.
QImage PaintFallenPiece(const PieceDrawing& drawing, const SidePalette& palette, const Lamp& lamp,
                        const FallenParameters& fallen);

/// `piece` with its soft shadow below and to the right; nothing of it touches the picture's edge.
QImage WithShadow(const QImage& piece, const ShadowParameters& shadow);

}  // namespace art
