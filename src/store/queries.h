// SPDX-License-Identifier: GPL-3.0-or-later
// The only ways to read the game file. Every query reads the file afresh; an absent file is a valid
// empty database. A line that can't be read fails the whole query: nothing is skipped or repaired.
//
// Selection string: pairs of key and value, separated by ";", all of which must hold. Keys (the
// GAME_... names but GAME_START_BOARD) are read without regard to case, texts compare exactly.
// Sort string: pairs of key and order ("A" ascending, "D" descending), separated by ";". Sortable
// are GAME_ID, GAME_NAME, GAME_DATE, GAME_OPPONENTS_NAME and GAME_STATUS.
#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string_view>
#include <unordered_map>

#include "store/game_record.h"

namespace store {

/// Fills `games` with those that fit, sorted. False on any failure; `games` is then empty after a
/// failed scan and filled, in no set order, after a failed sort.
bool SelectGames(GameRecords& games, std::string_view selection, std::string_view sort = {});

/// The last stored move of each game that has one, by its GAME_ID.
using LastMoves = std::unordered_map<std::int32_t, MoveRecord>;

/// Fills `games` with all of them, sorted, and `lastMoves` from the same read, which takes no
/// longer for many moves. Fails as SelectGames does; a game whose moves are damaged has no last
/// one.
bool SelectGamesWithLastMoves(GameRecords& games, LastMoves& lastMoves, std::string_view sort);

/// Fills `moves` with the stored moves of one game. A game that isn't in the file has none. False
/// on any failure; damage behind the game's line disturbs nothing.
bool SelectMoves(MoveRecords& moves, std::int32_t gameID);

/// The same but for a last move that is cut off: what may stand when the game is sent again.
bool SelectWholeMoves(MoveRecords& moves, std::int32_t gameID);

/// Looks for one game; `game` is empty where it isn't there. False on any failure.
bool FindGame(std::optional<GameRecord>& game, std::int32_t gameID);

/// Hands every game over with its moves, but for a last move that is cut off, in the order of the
/// numbers. False on any failure; some games may have been handed over by then.
bool VisitGames(const std::function<void(const GameRecord&, const MoveRecords&)>& visit);

/// A text that differs from all earlier ones once the game file has changed, by this program or
/// another; empty where there is none, or it can't be reached.
std::string GameFileStamp();

/// Whether the game file surely is what it was when `stamp` was taken here; takes it anew. Where
/// what follows from that fails, clear it: the next look then reads the file again.
bool IsGameFileUnchanged(std::string& stamp);

/// The greatest GAME_ID plus 1; 1 without games. Nothing where the file can't be read: a number
/// that wasn't worked out from the games could be one of theirs.
std::optional<std::int32_t> NextGameID();

/// Whether one record fits a selection. Raises std::invalid_argument where a value isn't of its
/// key's type.
bool GameMatches(const GameRecord& record, std::string_view selection);

/// Sorts stably. Raises std::invalid_argument where a date that must be compared can't be read.
void SortGames(GameRecords& games, std::string_view sort);

}  // namespace store
