// SPDX-License-Identifier: GPL-3.0-or-later
#include "study/imported_notes.h"

#include <algorithm>

#include "mail/character_count.h"
#include "study/study_file.h"

namespace study {

namespace {

/// The end of a text that is too long for a note is seen to be missing.
std::string NoteFrom(const std::string& text) {
  constexpr std::string_view goesOn = "...";
  const auto longest = static_cast<std::size_t>(longestNote);
  if (mail::CharacterCount(text) <= longest) return text;
  return std::string(mail::FirstCharacters(text, longest - goesOn.size())).append(goesOn);
}

/// How many games before this one of the file were taken.
std::int32_t TakenBefore(int number, const pgn::ImportedGames& games,
                         const std::vector<int>& known) {
  const auto refused =
      std::ranges::lower_bound(games.refused, number, {}, &pgn::RefusedGame::number) -
      games.refused.begin();
  const auto there = std::ranges::lower_bound(known, number) - known.begin();
  return static_cast<std::int32_t>(number - 1 - refused - there);
}

}  // namespace

bool KeepNotesOf(const pgn::ImportedGames& games, const std::vector<int>& known, std::int32_t first,
                 const pgn::ImportOptions& options) {
  const std::string stamp = pgn::StampOf(options.now);
  std::map<GameIdentity, StudyChanges> changes;
  for (const auto& [number, text] : games.notes) {
    if (std::ranges::binary_search(known, number)) continue;
    changes[{first + TakenBefore(number, games, known), stamp}].note = NoteFrom(text);
  }
  return changes.empty() || StudyFile().Keep(changes);
}

}  // namespace study
