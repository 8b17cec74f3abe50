// SPDX-License-Identifier: GPL-3.0-or-later
// The move list: adding to it, browsing in it, and the replay that every position of a game comes
// from.
#pragma once

#include <optional>
#include <vector>

#include "board/game.h"
#include "rules/notation.h"

namespace board {

void UpdateMoveList(Game& game, const rules::PlayedMove& move, const std::string& comment);
void RemoveLastMove(Game& game);

/// Plays the piece move of one entry on the position. Where its squares aren't on the board it
/// changes nothing.
void ReplayPieceMove(const store::MoveRecord& entry, rules::LastMove previous, rules::Side side);

/// Plays the entries up to the selected one on the start position, which is up.
void MoveThroughHistory(Game& game);

/// The user selects a row.
void MoveList_RowColChange(Game& game, int row);

void HilightMove(Game& game, int row);
void RemoveHilight(Game& game);

/// The user wants the path of the selected row's move.
void AskForHilight(Game& game);

/// The dots to be seen: those of a highlight that the user asked for.
std::vector<rules::Square> ShownPath(const Game& game);

/// The move of the selected row, to be marked by its two squares where no dots show it.
std::optional<rules::LastMove> ShownMove(const Game& game);

void DisplayPlayerComment(Game& game);

/// What the opponent said with the move that the user's pending one answers; else blank.
std::string LastWords(const Game& game);

/// The first row that the list should show.
int TopRow(const Game& game);

}  // namespace board
