// SPDX-License-Identifier: GPL-3.0-or-later
// What the board's logic asks of the window that shows it. The window reads everything else from
// the Board when it is told to refresh; it holds the cell of each square itself, because the
// position behind the logic moves during a test while the picture must not.
#pragma once

#include <string>

#include "rules/position.h"

namespace board {

class BoardView {
 public:
  virtual ~BoardView() = default;

  /// Lays the squares and coordinates out anew, after a change of ViewSide.
  virtual void ConstructBoard() = 0;

  /// Shows a cell of the chess set's sheet, 0 to 31, on a square.
  virtual void PaintSquare(rules::Square square, int cell) = 0;

  /// Captions, controls, move list, dots or comment may have changed.
  virtual void Refresh() = 0;

  /// The promotion dialog, modal: a rook, knight, bishop or queen of `side`. A choice is its only
  /// exit.
  virtual rules::PieceCode ExchangePawn(rules::Side side) = 0;

  /// Shows what is odd about a position that was set up; "\n" ends a line. True where the user
  /// wants to play from it nevertheless.
  virtual bool AcceptSetupWarnings(const std::string& warnings) = 0;

  /// Whether the user sees the window yet. Notices wait for that.
  virtual bool Visible() const = 0;

  virtual void SetTimerInterval(int milliseconds) = 0;

  /// Takes the window off the screen while its closing work goes on.
  virtual void Hide() = 0;

  /// Closes the window, which runs Form_Unload.
  virtual void Close() = 0;
};

}  // namespace board
