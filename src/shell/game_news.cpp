// SPDX-License-Identifier: GPL-3.0-or-later
#include "shell/game_news.h"

#include <algorithm>
#include <utility>
#include <vector>

#include "mail/arrivals.h"
#include "mail/sending.h"

namespace shell {
namespace {

/// The coordinates of an entry that is a word, such as a draw offer.
constexpr const char* noMove = "0000";

/// `keyOf` a game is worked out once; what has none counts as 0.
template <typename KeyOf>
void SortByKey(store::GameRecords& games, bool descending, const KeyOf& keyOf) {
  std::vector<std::pair<std::int64_t, std::size_t>> order;
  for (std::size_t i = 0; i < games.size(); ++i) order.emplace_back(keyOf(games[i]), i);
  std::ranges::stable_sort(order, [descending](const auto& a, const auto& b) {
    if (a.first == 0 || b.first == 0) return a.first != 0 && b.first == 0;
    return descending ? a.first > b.first : a.first < b.first;
  });
  store::GameRecords sorted;
  sorted.reserve(games.size());
  for (const auto& [key, place] : order) sorted.push_back(std::move(games[place]));
  games = std::move(sorted);
}

}  // namespace

std::string NumberedMove(const store::MoveRecord& move) {
  if (move.MoveCoordinates == noMove) return move.MoveText;
  const std::int64_t number = (std::int64_t{move.MoveNumber} + 1) / 2;
  const bool byBlack = move.MoveNumber % 2 == 0;
  return std::to_string(number) + (byBlack ? "... " : ". ") + move.MoveText;
}

GameNews::GameNews(store::LastMoves lastMoves)
    : lastMoves_(std::move(lastMoves)), lastMails_(mail::LastMails()) {}

std::string GameNews::LastMove(const store::GameRecord& game) const {
  const auto found = lastMoves_.find(game.GAME_ID);
  return found == lastMoves_.end() ? std::string() : NumberedMove(found->second);
}

std::int32_t GameNews::Moves(const store::GameRecord& game) const {
  const auto found = lastMoves_.find(game.GAME_ID);
  return found == lastMoves_.end() ? 0 : found->second.MoveNumber;
}

std::optional<std::int64_t> GameNews::Since(const store::GameRecord& game) const {
  if (lastMails_.empty()) return std::nullopt;
  const auto found = lastMails_.find(mail::ThreadOf(game));
  return found == lastMails_.end() ? std::nullopt : std::optional(found->second);
}

void GameNews::SortByMove(store::GameRecords& games, bool descending) const {
  SortByKey(games, descending,
            [this](const store::GameRecord& game) -> std::int64_t { return Moves(game); });
}

void GameNews::SortByTime(store::GameRecords& games, bool descending) const {
  SortByKey(games, descending,
            [this](const store::GameRecord& game) { return Since(game).value_or(0); });
}

}  // namespace shell
