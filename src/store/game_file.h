// SPDX-License-Identifier: GPL-3.0-or-later
// The game file and its lines. It is plain text without header or trailer, one game to a line, in
// no sorted order; lines end in carriage return and line feed. An absent file is an empty database.
//
//   GAME_ID|...|GAME_START_BOARD|MoveNumber|MoveCoordinates|MoveText|MoveComment|MoveNumber|...
//
// Thirteen fixed fields (the members of GameRecord, in order), then four for each move. Numbers are
// decimal, booleans "-1" and "0". There is no quoting: a "|" or a line break in a text shifts or
// cuts all that stands behind it, and nothing here detects that. Bytes pass through as they are.
//
// Damage is found by reading a line and raises std::invalid_argument: a number or boolean that
// doesn't convert, and so an empty line. Missing texts at the end read as empty.
//
// What editors, copies and crashes put around the games is none: a byte order mark ahead of the
// first line, blanks, blank lines and NUL bytes behind the last. It goes with the next change.
#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <variant>

#include "store/game_record.h"

namespace store {

std::string GameFilePath();

/// Walks the lines of a file's content, without what stands around its games. A line may also end
/// in a bare line feed, the last one in nothing.
class LineWalk {
 public:
  explicit LineWalk(std::string_view content);

  /// The next line without its end; nothing behind the last one.
  std::optional<std::string_view> Next();

 private:
  std::string_view rest_;
};

/// One of the fixed fields: its name, which is its key in queries, and its place in a record.
struct GameField {
  std::string_view key;
  std::variant<std::int32_t GameRecord::*, std::int16_t GameRecord::*, bool GameRecord::*,
               std::string GameRecord::*>
      member;
};

inline constexpr std::array<GameField, 13> gameFields{{
    {"GAME_ID", &GameRecord::GAME_ID},
    {"GAME_DATESTAMP", &GameRecord::GAME_DATESTAMP},
    {"GAME_OPPONENTS_ID", &GameRecord::GAME_OPPONENTS_ID},
    {"GAME_NAME", &GameRecord::GAME_NAME},
    {"GAME_DATE", &GameRecord::GAME_DATE},
    {"GAME_OPPONENTS_EMAIL", &GameRecord::GAME_OPPONENTS_EMAIL},
    {"GAME_WHITE_NAME", &GameRecord::GAME_WHITE_NAME},
    {"GAME_BLACK_NAME", &GameRecord::GAME_BLACK_NAME},
    {"GAME_HOST", &GameRecord::GAME_HOST},
    {"GAME_OPPONENTS_NAME", &GameRecord::GAME_OPPONENTS_NAME},
    {"GAME_STATUS", &GameRecord::GAME_STATUS},
    {"GAME_VS_COMPUTER", &GameRecord::GAME_VS_COMPUTER},
    {"GAME_START_BOARD", &GameRecord::GAME_START_BOARD},
}};

/// Converts the text of a field. Raises std::invalid_argument.
void Convert(std::string_view text, std::int32_t& value);
void Convert(std::string_view text, std::int16_t& value);
void Convert(std::string_view text, bool& value);
void Convert(std::string_view text, std::string& value);

/// Field 1 of a line, and nothing else of it.
std::int32_t GameIDOfLine(std::string_view line);

/// Fills every member of `record`; what stands behind the fixed fields isn't looked at. What it
/// raises says in words what is wrong with the line, and so does that of ReadMoves.
void ReadGameLine(std::string_view line, GameRecord& record);

/// The number of moves on a line. Moves that aren't four fields are damage: a quarter of the number
/// of their fields is rounded, a half to the even neighbour.
int StoredMoves(std::string_view line);

/// Whether a line holds fewer moves than `count`. One that is cut off isn't there: a game that
/// brings it again mends the line.
bool HoldsFewerMoves(std::string_view line, std::int32_t count);

/// The moves of a line but a last one that is cut off. Raises as ReadMoves does.
MoveRecords ReadWholeMoves(std::string_view line);

/// The moves of a line. Raises std::invalid_argument where the number of one can't be read.
MoveRecords ReadMoves(std::string_view line);

/// The last of them, found from the end of the line. Nothing where there is none that can be read.
std::optional<MoveRecord> ReadLastMove(std::string_view line);

/// All that stands behind the fixed fields, with its leading "|"; empty where nothing does.
std::string_view MovesText(std::string_view line);

/// The same without a last move that is cut off.
std::string_view WholeMovesText(std::string_view line);

/// Appends the fixed fields of a line, or the fields of one more move.
void AppendGame(std::string& line, const GameRecord& record);
void AppendMove(std::string& line, const MoveRecord& move);

}  // namespace store
