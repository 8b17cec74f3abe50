// SPDX-License-Identifier: GPL-3.0-or-later
#include "pgn/sayings.h"

#include <algorithm>
#include <iterator>

namespace pgn {
namespace {

constexpr std::string_view names[] = {"White", "Black"};

constexpr struct {
  EntryKind kind;
  std::string_view words;
} sentences[] = {
    {EntryKind::DrawOffer, " offers a draw"},
    {EntryKind::Decline, " declines the draw"},
    {EntryKind::Draw, " accepts the draw"},
    {EntryKind::Surrender, " surrenders"},
};

constexpr std::string_view beforeComment = ": ";

}  // namespace

std::string CommentOf(const Saying& saying) {
  const auto* sentence =
      std::ranges::find(sentences, saying.kind, [](const auto& row) { return row.kind; });
  std::string text(names[saying.side]);
  text += sentence->words;
  return saying.comment.empty() ? text : text.append(beforeComment) + saying.comment;
}

std::optional<Saying> SayingIn(std::string_view comment) {
  for (const rules::Side side : {rules::White, rules::Black}) {
    if (!comment.starts_with(names[side])) continue;
    const auto said = comment.substr(names[side].size());
    for (const auto& [kind, words] : sentences) {
      if (!said.starts_with(words)) continue;
      const auto rest = said.substr(words.size());
      if (rest.empty()) return Saying{kind, side, {}};
      if (rest.starts_with(beforeComment)) {
        return Saying{kind, side, std::string(rest.substr(beforeComment.size()))};
      }
    }
  }
  return std::nullopt;
}

}  // namespace pgn
