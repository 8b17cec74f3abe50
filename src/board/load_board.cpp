// SPDX-License-Identifier: GPL-3.0-or-later
#include "board/load_board.h"

#include <optional>

#include "platform/process_state.h"
#include "rules/attack.h"
#include "rules/board_text.h"
#include "store/queries.h"

namespace board {
namespace {

std::string StartBoardOf(std::int32_t gameID) {
  std::optional<store::GameRecord> game;
  if (store::FindGame(game, gameID) && game) {
    // A blank start board comes out of a mail as ";;;;;;;".
    const std::string& text = game->GAME_START_BOARD;
    if (text.find_first_of("0123456789") != std::string::npos) return text;
  }
  return std::string(rules::normalStart);
}

std::string ChooseBoardText(std::int32_t gameID, bool reset, bool clear) {
  if (reset) return std::string(clear ? rules::emptyBoard : rules::normalStart);
  if (gameID != -1) return StartBoardOf(gameID);
  if (platform::Process().SetupGame) {
    return rules::WriteBoardText(rules::ThePosition().BoardState);
  }
  return std::string(rules::normalStart);
}

}  // namespace

std::string LoadBoard(std::int32_t gameID, int& sideInCheck, bool& flashPhase, bool reset,
                      bool clear) {
  std::string text = ChooseBoardText(gameID, reset, clear);
  rules::ThePosition().BoardState = rules::ReadBoardText(text);
  rules::RebuildCastleState();
  sideInCheck = rules::NobodyInCheck;
  if (!reset && !clear) {
    for (const rules::Side side : {rules::Black, rules::White}) {
      if (rules::IsInCheck(side)) sideInCheck = side;
    }
  }
  flashPhase = true;
  return text;
}

}  // namespace board
