// SPDX-License-Identifier: GPL-3.0-or-later
// A stored game, played through away from the board. The position of the program, which may be that
// of a game on the board, is what it was when this has ended.
#pragma once

#include <cstdint>
#include <functional>

#include "rules/position.h"
#include "store/game_record.h"

namespace board {

/// Calls `seen` with the start of the game as the program's position, and again behind each entry
/// of its moves. An entry that moves no piece leaves the position of the entry before.
void WalkStoredGame(std::int32_t gameID, const store::MoveRecords& moves,
                    const std::function<void()>& seen);

/// The last entry that moves a piece, as offers of a draw and what follows them don't; no move
/// where there is none.
rules::LastMove LastPieceMove(const store::MoveRecords& moves);

/// The squares at the end of the moves.
rules::BoardSquares LastSquares(std::int32_t gameID, const store::MoveRecords& moves);

}  // namespace board
