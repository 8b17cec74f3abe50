// SPDX-License-Identifier: GPL-3.0-or-later
#include <algorithm>
#include <span>
#include <type_traits>

#include "platform/text_fields.h"
#include "store/game_file.h"
#include "store/queries.h"
#include "store/query_words.h"

namespace store {
namespace {

bool FieldEquals(const GameRecord& record, const GameField& field, std::string_view text) {
  return std::visit(
      [&](auto member) {
        std::remove_cvref_t<decltype(record.*member)> value{};
        Convert(text, value);
        return record.*member == value;
      },
      field.member);
}

bool PairHolds(const GameRecord& record, const WordPair& pair) {
  // The start board, the last field, can't be asked for.
  const auto selectable = std::span(gameFields).first(gameFields.size() - 1);
  const auto field = std::find_if(selectable.begin(), selectable.end(),
                                  [&](const GameField& known) { return known.key == pair.key; });
  if (field == selectable.end()) {
    ReportUnknownKey("Game data selection error!  No CASE for ", pair.key);
    return false;
  }
  return FieldEquals(record, *field, pair.value);
}

}  // namespace

bool GameMatches(const GameRecord& record, std::string_view selection) {
  // Every pair is compared, whatever came out before it: a value that can't be read always raises.
  int holding = 0;
  for (const WordPair& pair : WordPairs(selection)) {
    if (PairHolds(record, pair)) ++holding;
  }
  // A selection with an odd number of words thus fits nothing.
  return 2 * holding == platform::CountFields(selection, ';');
}

}  // namespace store
