// SPDX-License-Identifier: GPL-3.0-or-later
// The order of games is defined by passes over neighbours (SortByPasses), which is quadratic. An
// ordinary sort gives the same where the comparison is consistent, and it is for all but hand-made
// data and sort strings.
#include <algorithm>
#include <compare>
#include <map>
#include <stdexcept>
#include <utility>
#include <vector>

#include "platform/ascii.h"
#include "platform/conversions.h"
#include "store/queries.h"
#include "store/query_words.h"

namespace store {
namespace {

using Compare = std::partial_ordering (*)(const GameRecord&, const GameRecord&);

template <auto member>
std::partial_ordering ByValue(const GameRecord& a, const GameRecord& b) {
  return a.*member <=> b.*member;
}

platform::Date DateOf(const GameRecord& game) {
  const auto date = platform::ToDate(game.GAME_DATE);
  if (!date) throw std::invalid_argument("not a date: " + game.GAME_DATE);
  return *date;
}

/// One day in two spellings is no tie, yet neither is smaller: such games are unordered. Equal
/// texts are a tie even where they are no date.
std::partial_ordering ByDate(const GameRecord& a, const GameRecord& b) {
  if (a.GAME_DATE == b.GAME_DATE) return std::partial_ordering::equivalent;
  const std::partial_ordering order = DateOf(a) <=> DateOf(b);
  return order == 0 ? std::partial_ordering::unordered : order;
}

struct SortableKey {
  std::string_view key;
  Compare compare;
};

constexpr SortableKey sortableKeys[] = {
    {"GAME_ID", ByValue<&GameRecord::GAME_ID>},
    {"GAME_NAME", ByValue<&GameRecord::GAME_NAME>},
    {"GAME_DATE", ByDate},
    {"GAME_OPPONENTS_NAME", ByValue<&GameRecord::GAME_OPPONENTS_NAME>},
    {"GAME_STATUS", ByValue<&GameRecord::GAME_STATUS>},
};

struct SortStep {
  std::string key;
  Compare compare;  // null for an unknown key
  std::string order;
};

using SortSteps = std::vector<SortStep>;
using Order = std::vector<GameRecord*>;

SortSteps StepsOf(std::string_view sort) {
  SortSteps steps;
  for (WordPair& pair : WordPairs(sort)) {
    const auto known =
        std::find_if(std::begin(sortableKeys), std::end(sortableKeys),
                     [&](const SortableKey& sortable) { return sortable.key == pair.key; });
    const Compare compare = known == std::end(sortableKeys) ? nullptr : known->compare;
    steps.push_back({std::move(pair.key), compare, platform::Uppered(pair.value)});
  }
  return steps;
}

/// Whether `a` has to stand ahead of `b`. The first step in which they differ decides, if only that
/// they stay as they are.
bool GoesAhead(const GameRecord& a, const GameRecord& b, const SortSteps& steps) {
  for (const SortStep& step : steps) {
    if (step.compare == nullptr) {
      ReportUnknownKey("Game recordset sort error!  No CASE for ", step.key);
      return false;
    }
    const std::partial_ordering order = step.compare(a, b);
    if (order != 0) return (step.order == "A" && order < 0) || (step.order == "D" && order > 0);
  }
  return false;
}

void SortByPasses(Order& order, const SortSteps& steps) {
  for (std::size_t i = 1; i < order.size(); ++i) {
    for (std::size_t j = order.size() - 1; j >= i; --j) {
      if (GoesAhead(*order[j], *order[j - 1], steps)) std::swap(order[j], order[j - 1]);
    }
  }
}

bool AnyDayIsSpelledTwice(const Order& games) {
  std::map<platform::Date, std::string_view> spellings;
  return std::any_of(games.begin(), games.end(), [&](const GameRecord* game) {
    const auto date = platform::ToDate(game->GAME_DATE);
    return date && spellings.emplace(*date, game->GAME_DATE).first->second != game->GAME_DATE;
  });
}

/// Whether GoesAhead is a strict weak order. Games unordered in a last step count as a tie, but
/// ahead of others such a step makes three games of which two tie with the third and not with each
/// other. A date that can't be read does no harm: neighbours in the result have always been
/// compared, so it raises in either way of sorting or in none.
bool OrdersConsistently(const SortSteps& steps, const Order& games) {
  return std::all_of(steps.begin(), steps.end(), [&](const SortStep& step) {
    if (step.compare == nullptr || (step.order != "A" && step.order != "D")) return false;
    return step.compare != ByDate || &step == &steps.back() || !AnyDayIsSpelledTwice(games);
  });
}

}  // namespace

void SortGames(GameRecords& games, std::string_view sort) {
  const SortSteps steps = StepsOf(sort);
  Order order;
  for (GameRecord& game : games) order.push_back(&game);
  if (OrdersConsistently(steps, order)) {
    std::stable_sort(order.begin(), order.end(), [&](const GameRecord* a, const GameRecord* b) {
      return GoesAhead(*a, *b, steps);
    });
  } else {
    SortByPasses(order, steps);
  }
  GameRecords sorted;
  sorted.reserve(games.size());
  for (GameRecord* game : order) sorted.push_back(std::move(*game));
  games = std::move(sorted);
}

}  // namespace store
