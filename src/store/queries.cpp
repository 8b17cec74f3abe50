// SPDX-License-Identifier: GPL-3.0-or-later
#include "store/queries.h"

#include <algorithm>
#include <exception>
#include <limits>
#include <string>
#include <utility>
#include <vector>

#include "platform/process_state.h"
#include "platform/seams.h"
#include "store/data_files.h"
#include "store/game_file.h"

namespace store {
namespace {

GameRecords MatchingGames(std::string_view content, std::string_view selection) {
  GameRecords games;
  GameRecord record;
  LineWalk lines(content);
  while (const auto line = lines.Next()) {
    ReadGameLine(*line, record);
    if (GameMatches(record, selection)) games.push_back(std::move(record));
  }
  return games;
}

GameRecords AllGames(std::string_view content, LastMoves& lastMoves) {
  GameRecords games;
  LineWalk lines(content);
  while (const auto line = lines.Next()) {
    ReadGameLine(*line, games.emplace_back());
    if (auto move = ReadLastMove(*line)) {
      lastMoves.insert_or_assign(games.back().GAME_ID, std::move(*move));
    }
  }
  return games;
}

/// Fills `moves` with what `read` makes of the game's line.
bool SelectMovesBy(MoveRecords (*read)(std::string_view line), MoveRecords& moves,
                   std::int32_t gameID) {
  moves.clear();
  try {
    const std::string content = ReadGameFile().value_or("");
    LineWalk lines(content);
    while (const auto line = lines.Next()) {
      if (GameIDOfLine(*line) != gameID) continue;
      moves = read(*line);
      break;
    }
    return true;
  } catch (const std::exception&) {
    return false;
  }
}

}  // namespace

bool SelectGames(GameRecords& games, std::string_view selection, std::string_view sort) {
  games.clear();
  try {
    games = MatchingGames(ReadGameFile().value_or(""), selection);
    SortGames(games, sort);
    return true;
  } catch (const std::exception&) {
    return false;
  }
}

bool SelectGamesWithLastMoves(GameRecords& games, LastMoves& lastMoves, std::string_view sort) {
  games.clear();
  lastMoves.clear();
  try {
    games = AllGames(ReadGameFile().value_or(""), lastMoves);
    SortGames(games, sort);
    return true;
  } catch (const std::exception&) {
    return false;
  }
}

bool SelectMoves(MoveRecords& moves, std::int32_t gameID) {
  return SelectMovesBy(ReadMoves, moves, gameID);
}

bool SelectWholeMoves(MoveRecords& moves, std::int32_t gameID) {
  return SelectMovesBy(ReadWholeMoves, moves, gameID);
}

bool FindGame(std::optional<GameRecord>& game, std::int32_t gameID) {
  game.reset();
  GameRecords games;
  if (!SelectGames(games, "GAME_ID;" + std::to_string(gameID))) return false;
  if (!games.empty()) game = std::move(games.front());
  return true;
}

bool VisitGames(const std::function<void(const GameRecord&, const MoveRecords&)>& visit) {
  try {
    const std::string content = ReadGameFile().value_or("");
    std::vector<std::pair<std::int32_t, std::string_view>> games;
    LineWalk lines(content);
    while (const auto line = lines.Next()) games.emplace_back(GameIDOfLine(*line), *line);
    std::ranges::stable_sort(games, {}, [](const auto& game) { return game.first; });
    GameRecord record;
    for (const auto& [id, line] : games) {
      ReadGameLine(line, record);
      visit(record, ReadWholeMoves(line));
    }
    return true;
  } catch (const std::exception&) {
    return false;
  }
}

std::string GameFileStamp() {
  try {
    return platform::TheSeams().files->Stamp(GameFilePath());
  } catch (const std::exception&) {
    return {};
  }
}

bool IsGameFileUnchanged(std::string& stamp) {
  const std::string before = std::exchange(stamp, GameFileStamp());
  return !stamp.empty() && stamp == before;
}

std::optional<std::int32_t> NextGameID() {
  GameRecords games;
  if (!SelectGames(games, "", "Game_ID;A")) return std::nullopt;
  std::int32_t last = games.empty() ? 0 : games.back().GAME_ID;
  // A deleted game keeps its number as long as it can be put back.
  for (const std::string& line : platform::Process().DeletedGames) {
    last = std::max(last, GameIDOfLine(line));
  }
  if (last < std::numeric_limits<std::int32_t>::max()) return last + 1;
  // Behind the greatest number there is none: the first gap, so that no game is overwritten.
  std::int32_t gap = 1;
  for (const GameRecord& game : games) {
    if (game.GAME_ID == gap) ++gap;
  }
  return gap;
}

}  // namespace store
