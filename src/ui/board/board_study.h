// SPDX-License-Identifier: GPL-3.0-or-later
// What the user thinks for himself beside the game on the board, as the board's window knows it: a
// way to try moves, and notes. Nothing of it changes the game but a move that he wants to play.
#pragma once

#include <QObject>
#include <QString>

#include <functional>
#include <optional>

#include "board/game.h"

namespace ui {

struct WantedMove {
  rules::Square from;
  rules::Square to;
  rules::PieceCode becomes = rules::NoPiece;  ///< what stands on the to-square then
};

class BoardStudy : public QObject {
  Q_OBJECT

 public:
  /// Another game came onto the board, or the same one anew.
  virtual void Open() = 0;

  /// Only of a game that is stored something can be kept.
  virtual bool IsAvailable() const = 0;

  /// Tries moves from the position that the board shows, in the place of its window. Answers the
  /// one that the user wants to play in the game. `mayAskWhy` is asked before the computer is, and
  /// has told the user why where it answers false.
  virtual std::optional<WantedMove> TryMoves(const board::Game& game, QWidget& window,
                                             std::function<bool()> mayAskWhy) = 0;

  /// Opens the notes beside the window.
  virtual void ShowNotes(const board::Game& game, QWidget& window) = 0;

  /// The board shows this position of the game now; what stands in the note on it or, where there
  /// is none, on the game.
  virtual QString NoteOn(const board::Game& game) = 0;

 Q_SIGNALS:
  void NotesChanged();
};

}  // namespace ui
