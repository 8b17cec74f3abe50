// SPDX-License-Identifier: GPL-3.0-or-later
// The format of a move mail, from the sender's side. A mail carries the whole game, so a lost one
// is made good by the next, and the first one founds the game at the receiver.
//
// The body is a banner for people, then the move text between its two markers, and nothing behind.
// The move text is fields separated by "|", without escapes. Line breaks in it mean nothing; the
// receiver removes them all before he splits the fields:
//
//   1  the receiver's GAME_ID of the game, 0 while the sender doesn't know it (may come empty)
//   2  the sender's GAME_ID
//   3  GAME_DATESTAMP, 12 digits
//   4  GAME_NAME, at most 50 characters
//   5  GAME_DATE, 10 characters
//   6  GAME_WHITE_NAME, at most 50 characters
//   7  GAME_BLACK_NAME, at most 50 characters
//   8  "True" where the receiver is the host, else "False"
//   9  GAME_START_BOARD, eight rows separated by ";" (may come empty)
//   10 on: MoveNumber, MoveCoordinates, MoveText (at most 15 characters) and MoveComment (at most
//      200 characters, of a longer one the first 200 count) of every move of the game
//
// The opponent's name and address don't travel: the receiver takes them from the mail's sender.
// There is no version in the text; compatibility rests on the layout alone.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include "store/game_record.h"

namespace mail {

/// Characters of a title or a player's name.
inline constexpr std::size_t longestName = 50;

/// Characters of a comment.
inline constexpr std::size_t longestComment = 200;

inline constexpr std::string_view startMarker = "<<TARVOLENIX:";
inline constexpr std::string_view endMarker = ":TARVOLENIX>>";

/// What tells a person who opens the mail what to do. Lines end in CR LF.
std::string BuildMailBanner();

/// Names the last move and its comment. A game is only sent after a move: `moves` must not be
/// empty.
std::string BuildMailSubject(const store::MoveRecords& moves);

/// The move text without its markers.
std::string BuildMoveText(const store::GameRecord& game, const store::MoveRecords& moves);

/// Banner, markers and move text: the body of a mail, and the content of a move file but for the
/// line break at its end.
std::string BuildMailBody(const store::GameRecord& game, const store::MoveRecords& moves);

/// What the user typed as a title or comment, without the markers and control characters.
std::string StripReservedText(std::string_view text);

enum class ReservedTextIn { GameName, PlayerComment };

/// Tells the user that StripReservedText has changed what he typed.
void ReportReservedText(ReservedTextIn field);

}  // namespace mail
