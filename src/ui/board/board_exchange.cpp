// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/board/board_exchange.h"

#include "board/setup.h"
#include "pgn/fen.h"
#include "platform/process_state.h"
#include "rules/board_text.h"

namespace ui {

std::string ShownFen(const board::Game& game) {
  store::GameRecord record;
  store::MoveRecords moves;
  if (platform::Process().BoardSetupMode) {
    record.GAME_START_BOARD = rules::WriteBoardText(rules::ThePosition().BoardState);
  } else {
    record.GAME_START_BOARD = game.StartBoard;
    for (int row = 1; row <= game.Moves.Selected(); ++row) moves.push_back(game.Moves.Row(row));
  }
  return pgn::FenOfGame(record, moves);
}

std::string SetUpFen(board::Game& game, const std::string& fen) {
  const pgn::FenReading reading = pgn::ReadFen(fen);
  if (!reading.trouble.empty()) return reading.trouble;
  const std::string why = pgn::WhyNoStart(reading);
  return why.empty() ? board::SetUpPosition(game, reading.board) : why;
}

}  // namespace ui
