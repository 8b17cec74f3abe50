// SPDX-License-Identifier: GPL-3.0-or-later
// Games of others, from PGN into the store. Each game is played through by the rules; one that
// breaks them is told by its number, its move and the reason, and the others are taken.
#pragma once

#include <cstdint>
#include <iosfwd>
#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "platform/clock.h"
#include "rules/position.h"
#include "store/saving.h"

namespace pgn {

struct Player {
  std::string name;
  std::string address;  ///< blank where the file has none

  auto operator<=>(const Player&) const = default;
};

/// Who may be the user's opponent in a game: one where the file tells which of the players the user
/// is, else White and then Black.
using PossibleOpponents = std::vector<Player>;

/// What the user tells of the games with these that aren't finished.
struct GoingOn {
  std::string address;                  ///< where his moves go
  rules::Side ownSide = rules::NoSide;  ///< where both may be the opponent
};

struct ImportOptions {
  std::string ownName;     ///< who the user is among the players
  std::string ownAddress;  ///< the same, where the file has addresses
  std::string opponent;    ///< address for games that aren't finished and have none, or blank
  platform::LocalTime now;
  std::map<PossibleOpponents, GoingOn> answers = {};  ///< which count before all else
};

struct RefusedGame {
  int number = 0;  ///< in the file, from 1
  int ply = 0;     ///< of the move at which it was refused; 0 for the game as a whole
  std::string move;
  std::string why;                   ///< as a sentence
  PossibleOpponents opponents = {};  ///< of one that would be taken if the user told more

  bool Lacks() const { return !opponents.empty(); }
};

/// What the user himself said in a game that isn't finished.
struct ImportedNote {
  int number = 0;  ///< of the game in the file
  std::string text;
};

struct ImportedGames {
  int count = 0;  ///< of all that were read
  std::vector<RefusedGame> refused;
  store::NewGames taken;  ///< the others, in their order, to be stored with store::AddGames
  std::vector<ImportedNote> notes;  ///< of those that aren't finished, by number
  store::NewGames lacking;  ///< the refused ones that lack something, as far as they are known
  std::map<std::string, std::string> addresses;  ///< of opponents by name, in games that go on
};

/// As the game file has it; a game whose day isn't known gets that of its import.
std::string DayOf(const platform::LocalTime& moment);

/// The same for all games of an import.
std::string StampOf(const platform::LocalTime& now);

/// Why a text can't stand as a mail address, as the end of a sentence: "is not one mail address".
/// Blank where it can.
std::string WhyNoAddress(std::string_view text);

/// Reads games, on all processors. The text is never in memory as a whole.
ImportedGames ReadGames(std::istream& text, const ImportOptions& options);

/// The same for who only wants to know whether the games are right: none is taken, and whose they
/// are doesn't matter.
ImportedGames CheckGames(std::istream& text);

}  // namespace pgn
