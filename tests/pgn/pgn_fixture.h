// SPDX-License-Identifier: GPL-3.0-or-later
// Words for tests of what goes to other chess programs and comes from them.
#pragma once

#include <gtest/gtest.h>

#include <sstream>
#include <string>

#include "pgn/fen.h"
#include "pgn/import.h"
#include "rules/position_guard.h"
#include "rules/rules_fixture.h"
#include "store/game_file.h"

namespace pgn {

/// "52" of "e2".
inline std::string DigitsOf(std::string_view name) {
  return std::to_string(NumberOf(rules::Sq(name)));
}

/// Stored entries from "e2e4", "a7a8=Q" and texts such as "Draw_offer".
inline store::MoveRecords Entries(const std::string& words) {
  store::MoveRecords entries;
  std::istringstream stream(words);
  for (std::string word; stream >> word;) {
    const bool isMove = word.size() >= 4 && word[1] >= '1' && word[1] <= '8' && word[0] >= 'a';
    std::replace(word.begin(), word.end(), '_', ' ');
    const auto number = static_cast<std::int32_t>(entries.size() + 1);
    const std::string digits = isMove ? DigitsOf(word) + DigitsOf(word.substr(2)) : "5151";
    entries.push_back({number, digits, word, {}});
  }
  return entries;
}

inline std::string ReadAndWritten(const char* text) {
  const FenReading reading = ReadFen(text);
  EXPECT_EQ(reading.trouble, "") << text;
  const rules::PositionGuard guard;
  rules::ThePosition().BoardState = reading.board;
  rules::ThePosition().CastleState = reading.hasMoved;
  return WriteFen(reading.turn);
}

inline const ImportOptions annaImports{
    "Anna", "anna@example.org", "bob@example.org", {2026, 3, 9, 8, 5}};

inline ImportedGames Import(const std::string& text, const ImportOptions& options = annaImports) {
  std::istringstream stream(text);
  return ReadGames(stream, options);
}

/// A taken game as the store has it.
struct TakenGame {
  TakenGame(const store::NewGames& games, std::size_t index) {
    const std::string line = std::to_string(index + 1) + std::string(games.Line(index));
    store::ReadGameLine(line, record);
    moves = store::ReadMoves(line);
  }

  store::GameRecord record;
  store::MoveRecords moves;
};

/// "e2e4 e7e5 " of stored moves.
inline std::string SquaresOf(const store::MoveRecords& moves) {
  std::string text;
  for (const store::MoveRecord& move : moves) {
    const auto squares = rules::LastMove::FromText(move.MoveCoordinates);
    text += rules::NameOf(squares.from) + rules::NameOf(squares.to) + ' ';
  }
  return text;
}

}  // namespace pgn
