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

KnownGames::KnownGames(const ImportOptions& options)
    : ownName_(options.ownName), today_(DayOf(options.now)) {}

std::optional<KnownGames> KnownGames::Stored(const ImportOptions& options) {
  KnownGames known(options);
  const bool read =
      store::VisitGames([&](const store::GameRecord& game, const store::MoveRecords& moves) {
        known.Add(game, known.KeyOf(game, moves));
      });
  return read ? std::optional(std::move(known)) : std::nullopt;
}

std::vector<int> KnownGames::LeaveOutOf(ImportedGames& games) {
  std::vector<int> numbers;
  store::NewGames news;
  auto refused = games.refused.begin();
  std::size_t index = 0;
  for (int number = 1; number <= games.count; ++number) {
    if (refused != games.refused.end() && refused->number == number) {
      ++refused;
      continue;
    }
    const std::string line = '1' + std::string(games.taken.Line(index++));
    store::GameRecord game;
    store::ReadGameLine(line, game);
    const store::MoveRecords moves = store::ReadMoves(line);
    const std::string key = KeyOf(game, moves);
    if (IsKnown(game, key)) {
      numbers.push_back(number);
    } else {
      Add(game, key);
      news.Add(game, moves);
    }
  }
  games.taken = std::move(news);
  return numbers;
}

/// What players say in place of a move is in the result.
std::string KnownGames::KeyOf(const store::GameRecord& game,
                              const store::MoveRecords& moves) const {
  const auto name = [this](const std::string& player, bool own) {
    return player.empty() && own ? ownName_ : player;
  };
  std::string key = '|' + name(game.GAME_WHITE_NAME, game.GAME_HOST) + '|' +
                    name(game.GAME_BLACK_NAME, !game.GAME_HOST) + '|' + game.GAME_START_BOARD +
                    '|' + ResultKey(game);
  for (const store::MoveRecord& move : moves) {
    if (KindOf(move) == EntryKind::Move && move.MoveText != "...") key += MoveKey(move);
  }
  return key;
}

bool KnownGames::IsKnown(const store::GameRecord& game, const std::string& key) const {
  return keys_.contains(game.GAME_DATE + key) || (game.GAME_DATE == today_ && keys_.contains(key));
}

void KnownGames::Add(const store::GameRecord& game, const std::string& key) {
  keys_.insert(game.GAME_DATE + key);
  keys_.insert(key);
}

}  // namespace pgn
