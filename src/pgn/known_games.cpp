// SPDX-License-Identifier: GPL-3.0-or-later
#include "pgn/known_games.h"

#include "pgn/entries.h"
#include "platform/conversions.h"
#include "store/game_file.h"
#include "store/queries.h"

namespace pgn {
namespace {

/// Such as "e7e8=Q": but for what a pawn becomes the squares tell the move.
std::string MoveKey(const store::MoveRecord& move) {
  const auto sign = move.MoveText.find('=');
  return move.MoveCoordinates + (sign == std::string::npos ? "" : move.MoveText.substr(sign, 2));
}

/// For White; the three ways of not being over are one.
char ResultKey(const store::GameRecord& game) {
  switch (game.GAME_STATUS) {
    case store::GameWon:
      return game.GAME_HOST ? '1' : '0';
    case store::GameLost:
      return game.GAME_HOST ? '0' : '1';
    case store::GameDrawn:
      return '=';
    default:
      return '*';
  }
}

}  // namespace

/// A game as the file would have it.
struct KnownGames::StoredGame {
  StoredGame(const store::NewGames& games, std::size_t index) {
    const std::string line = '0' + std::string(games.Line(index));
    store::ReadGameLine(line, record);
    moves = store::ReadMoves(line);
  }

  store::GameRecord record;
  store::MoveRecords moves;
};

KnownGames::KnownGames(const ImportOptions& options)
    : ownName_(options.ownName), today_(DayOf(options.now)) {}

std::optional<KnownGames> KnownGames::Stored(const ImportOptions& options) {
  KnownGames known(options);
  const bool read =
      store::VisitGames([&](const store::GameRecord& game, const store::MoveRecords& moves) {
        known.Add(game, moves);
      });
  return read ? std::optional(std::move(known)) : std::nullopt;
}

std::vector<KnownGame> KnownGames::LeaveOutOf(ImportedGames& games) {
  std::vector<KnownGame> known;
  std::vector<RefusedGame> refused;
  store::NewGames taken;
  std::size_t lacking = 0;
  std::size_t next = 0;
  auto refusal = games.refused.begin();
  for (int number = 1; number <= games.count; ++number) {
    const bool isRefused = refusal != games.refused.end() && refusal->number == number;
    std::optional<std::int32_t> there;
    if (!isRefused) {
      const StoredGame game(games.taken, next++);
      there = Find(game);
      if (!there) Take(game, taken);
    } else if (refusal->Lacks()) {
      there = Find(StoredGame(games.lacking, lacking++));
    }
    if (there) known.push_back({number, *there});
    if (isRefused && !there) refused.push_back(std::move(*refusal));
    if (isRefused) ++refusal;
  }
  games.refused = std::move(refused);
  games.taken = std::move(taken);
  return known;
}

std::optional<std::int32_t> KnownGames::Find(const StoredGame& game) const {
  const std::string key = KeyOf(game.record, game.moves);
  const std::string& day = game.record.GAME_DATE;
  auto found = keys_.find(day + key);
  if (found == keys_.end() && day == today_) found = keys_.find(key);
  return found == keys_.end() ? std::nullopt : std::optional(found->second);
}

void KnownGames::Take(const StoredGame& game, store::NewGames& taken) {
  Add(game.record, game.moves);
  taken.Add(game.record, game.moves);
}

/// What players say in place of a move is in the result.
std::string KnownGames::KeyOf(const store::GameRecord& game,
                              const store::MoveRecords& moves) const {
  const auto name = [this](const std::string& player, bool own) {
    const std::string& known = player.empty() && own ? ownName_ : player;
    return known.empty() ? "?" : known;
  };
  std::string key = '|' + name(game.GAME_WHITE_NAME, game.GAME_HOST) + '|' +
                    name(game.GAME_BLACK_NAME, !game.GAME_HOST) + '|' + game.GAME_START_BOARD +
                    '|' + ResultKey(game);
  for (const store::MoveRecord& move : moves) {
    if (KindOf(move) == EntryKind::Move && move.MoveText != "...") key += MoveKey(move);
  }
  return key;
}

void KnownGames::Add(const store::GameRecord& game, const store::MoveRecords& moves) {
  const std::string key = KeyOf(game, moves);
  keys_.try_emplace(game.GAME_DATE + key, game.GAME_ID);
  keys_.try_emplace(key, game.GAME_ID);
}

}  // namespace pgn
