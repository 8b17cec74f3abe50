// SPDX-License-Identifier: GPL-3.0-or-later
// PGN and FEN: whatever is taken is a game that goes out as the same game, and a position that is
// read is written as what it was read from.
#include <sstream>

#include "fuzz/fuzz.h"
#include "pgn/export.h"
#include "pgn/fen.h"
#include "pgn/import.h"
#include "rules/position_guard.h"
#include "store/game_file.h"

namespace {

pgn::ImportedGames Read(const std::string& text) {
  std::istringstream stream(text);
  return pgn::ReadGames(stream,
                        {"Anna", "anna@example.org", "bob@example.org", {2026, 3, 9, 8, 5}});
}

std::string WrittenFen(const pgn::FenReading& reading) {
  const rules::PositionGuard guard;
  rules::ThePosition().BoardState = reading.board;
  rules::ThePosition().CastleState = reading.hasMoved;
  return pgn::WriteFen(reading.turn);
}

void TryFen(std::string_view text) {
  const pgn::FenReading reading = pgn::ReadFen(text);
  if (!reading.trouble.empty()) return;
  const std::string written = WrittenFen(reading);
  Require(WrittenFen(pgn::ReadFen(written)) == written);
}

/// The moves of a game, without what was said to them.
std::string Moves(std::string_view line) {
  std::string text;
  for (const store::MoveRecord& move : store::ReadMoves(line)) {
    text += move.MoveCoordinates + move.MoveText + ' ';
  }
  return text;
}

}  // namespace

void TryInput(std::string_view input) {
  TryFen(input.substr(0, input.find('\n')));
  const pgn::ImportedGames games = Read(std::string(input));
  Require(games.count == static_cast<int>(games.refused.size() + games.taken.Count()));
  for (std::size_t i = 0; i < games.taken.Count(); ++i) {
    const std::string line = "1" + std::string(games.taken.Line(i));
    store::GameRecord record;
    store::ReadGameLine(line, record);
    const pgn::ImportedGames again =
        Read(pgn::PgnOfGame(record, store::ReadMoves(line), {true, "Anna", "anna@example.org"}));
    Require(again.count == 1 && again.taken.Count() == 1);
    Require(Moves("1" + std::string(again.taken.Line(0))) == Moves(line));
  }
}
