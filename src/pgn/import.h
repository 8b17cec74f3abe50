// SPDX-License-Identifier: GPL-3.0-or-later
// Games of others, from PGN into the store. Each game is played through by the rules; one that
// breaks them is told by its number, its move and the reason, and the others are taken.
#pragma once

#include <cstdint>
#include <iosfwd>
#include <string>
#include <string_view>
#include <vector>

#include "platform/clock.h"
#include "rules/position.h"
#include "store/saving.h"

namespace pgn {

struct ImportOptions {
  std::string ownName;     ///< who the user is among the players
  std::string ownAddress;  ///< the same, where the file has addresses
  std::string opponent;    ///< address for games that aren't finished and have none, or blank
  platform::LocalTime now;
  rules::Side ownSide = rules::NoSide;  ///< in games that aren't finished and name no own player
};

/// What a game that isn't finished lacks to be gone on with, and the user can tell.
enum class Lack { Nothing, OwnSide, Address };

struct RefusedGame {
  int number = 0;  ///< in the file, from 1
  int ply = 0;     ///< of the move at which it was refused; 0 for the game as a whole
  std::string move;
  std::string why;  ///< as a sentence
  Lack lacks = Lack::Nothing;
};

struct ImportedGames {
  int count = 0;  ///< of all that were read
  std::vector<RefusedGame> refused;
  store::NewGames taken;  ///< the others, in their order, to be stored with store::AddGames
  std::vector<int> withoutComments;  ///< numbers of those that aren't finished and had some
  store::NewGames lacking;  ///< the refused ones that lack something, as far as they are known
};

/// As the game file has it; a game whose day isn't known gets that of its import.
std::string DayOf(const platform::LocalTime& moment);

/// Why a text can't stand as a mail address, as the end of a sentence: "is not one mail address".
/// Blank where it can.
std::string WhyNoAddress(std::string_view text);

/// Reads games, on all processors. The text is never in memory as a whole.
ImportedGames ReadGames(std::istream& text, const ImportOptions& options);

/// The same for who only wants to know whether the games are right: none is taken, and whose they
/// are doesn't matter.
ImportedGames CheckGames(std::istream& text);

}  // namespace pgn
