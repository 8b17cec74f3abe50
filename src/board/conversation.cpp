// SPDX-License-Identifier: GPL-3.0-or-later
#include "board/conversation.h"

#include "board/move_pairs.h"
#include "platform/process_state.h"

namespace board {

std::vector<Remark> Conversation(const Game& game) {
  std::vector<Remark> remarks;
  if (platform::Process().ComputerGame) return remarks;
  const int said = game.Moves.Count() - (EntryIsPending(game) ? 1 : 0);
  for (int row = 1; row <= said; ++row) {
    const std::string& words = game.Moves.Row(row).MoveComment;
    if (words.empty()) continue;
    remarks.push_back({row, NumberOfPair(game.Moves, PairOf(row)),
                       EntryIsMine(game, row) ? "You" : OpponentName(game), words});
  }
  return remarks;
}

}  // namespace board
