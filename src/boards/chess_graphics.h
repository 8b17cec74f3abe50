// SPDX-License-Identifier: GPL-3.0-or-later
// The pictures of the chosen chess set.
//
// A set is a folder below "Graphics/" of the program folder. It holds twelve piece pictures and one
// or more board pictures. A board picture is a sheet of 4 rows by 8 columns of equal cells,
// numbered from 0 along the rows, with every square as it looks with every piece on it:
//
//   cell   = column + 8 if the square is dark + 16 if the piece is black (an empty square is)
//   column = 0 empty, 1 rook, 2 knight, 3 bishop, 4 queen, 5 king, 6 pawn, 7 the fallen king
#pragma once

#include <QImage>

#include <array>
#include <string>

#include "rules/position.h"

namespace boards {

struct ChessGraphics {
  static constexpr int rows = 4;
  static constexpr int columns = 8;
  static constexpr std::size_t cells = rows * std::size_t{columns};

  std::array<QImage, 12> IconSet;  ///< by piece code, which counts from 1
  QImage ChessSet;                 ///< the sheet

  const QImage& Icon(rules::PieceCode piece) const;

  /// One cell of the sheet. A sheet that doesn't divide evenly loses its right and bottom edges.
  QImage Cell(int number) const;
};

/// Tells nobody of a failure: raises std::exception. On any thread.
ChessGraphics ReadChessGraphics(const std::string& chessSet, const std::string& chessBoard);

/// False where a picture is missing or can't be read: the user was told then, and `graphics` is as
/// before. Every way to the board begins here.
bool LoadChessGraphics(const std::string& chessSet, const std::string& chessBoard,
                       ChessGraphics& graphics);

}  // namespace boards
