// SPDX-License-Identifier: GPL-3.0-or-later
// The board's logic played from text instead of by a mouse. A move is four digits (from column,
// from row, to column, to row), and "=" with R, N, B or Q behind them for a promotion.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "board/game.h"
#include "cli/collected_messages.h"

namespace cli {

class PlayedBoard : private board::BoardView {
 public:
  explicit PlayedBoard(CollectedMessages& messages) : logic(*this), messages_(messages) {}

  /// Sets up a bare board without a game, White to move; the normal start where the text is empty.
  void StartFrom(const std::string& boardText);

  /// Begins the new game that is being set up from this position, one with a king on each side.
  /// False where the window wouldn't let it be set up or played; the messages then say why.
  bool BeginFrom(const std::string& boardText);

  /// Lifts and drops as the window does. False where the move was refused; the messages then say
  /// why.
  bool Play(std::string_view move);

  /// Plays a move, or one of the entries "offer", "accept", "decline" and "surrender", where the
  /// window would offer that. Refuses as Play does.
  bool PlayEntry(std::string_view entry);

  /// Plays moves of both sides in turn, as far as they are accepted. The number accepted.
  std::size_t PlayBothSides(const std::vector<std::string>& moves);

  board::Game logic;

 private:
  void ConstructBoard() override {}
  void PaintSquare(rules::Square, int) override {}
  void Refresh() override {}
  rules::PieceCode ExchangePawn(rules::Side side) override;
  /// What is odd about a position is no reason to stop for someone who wrote it down.
  bool AcceptSetupWarnings(const std::string&) override { return true; }
  bool Visible() const override { return false; }
  void SetTimerInterval(int) override {}
  void Hide() override {}
  void Close() override {}

  bool Refuse(const std::string& why);
  std::string WhyNotOffered() const;

  CollectedMessages& messages_;
  rules::PieceCode choice_ = rules::NoPiece;  // White code of the promotion letter
  bool promoted_ = false;
};

}  // namespace cli
