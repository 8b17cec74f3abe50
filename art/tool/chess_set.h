// SPDX-License-Identifier: GPL-3.0-or-later
// Renders a chess set's folder: twelve piece pictures and a sheet for each board.
//
// A sheet has 4 rows of 8 square cells, numbered along the rows from 0:
//
//   cell   = column + 8 if the square is dark + 16 if the piece is black
//   column = 0 empty, 1 rook, 2 knight, 3 bishop, 4 queen, 5 king, 6 pawn, 7 the fallen king
//
// so an empty light square is at 0 and 16, an empty dark one at 8 and 24.
#pragma once

#include <QString>

#include "set_parameters.h"

namespace art {

/// Writes Graphics/<the set's folder> below `output` from the drawings and boards below `source`;
/// false with `error` when a drawing, a parameter or a file fails.
bool RenderChessSet(const SetParameters& set, const QString& source, const QString& output,
                    QString* error);

}  // namespace art
