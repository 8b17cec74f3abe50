// SPDX-License-Identifier: GPL-3.0-or-later
#include "study/imported_notes.h"

#include <algorithm>

#include "mail/character_count.h"
#include "store/queries.h"
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
                         const std::vector<pgn::KnownGame>& known) {
  const auto refused =
      std::ranges::lower_bound(games.refused, number, {}, &pgn::RefusedGame::number) -
      games.refused.begin();
  const auto there =
      std::ranges::lower_bound(known, number, {}, &pgn::KnownGame::number) - known.begin();
  return static_cast<std::int32_t>(number - 1 - refused - there);
}

/// Nothing for a game that isn't stored yet, and one that has a note.
std::optional<GameIdentity> WithoutNote(std::int32_t number, StudyFile& file) {
  std::optional<store::GameRecord> game;
  if (!store::FindGame(game, number) || !game) return std::nullopt;
  const GameIdentity identity{number, game->GAME_DATESTAMP};
  const auto kept = file.Read(identity);
  return kept && !kept->note.empty() ? std::nullopt : std::optional(identity);
}

}  // namespace

bool KeepNotesOf(const pgn::ImportedGames& games, const std::vector<pgn::KnownGame>& known,
                 std::optional<std::int32_t> first, const pgn::ImportOptions& options) {
  StudyFile file;
  const std::string stamp = pgn::StampOf(options.now);
  std::map<GameIdentity, StudyChanges> changes;
  for (const auto& [number, text] : games.notes) {
    const auto there = std::ranges::lower_bound(known, number, {}, &pgn::KnownGame::number);
    std::optional<GameIdentity> game;
    if (there != known.end() && there->number == number) {
      game = WithoutNote(there->game, file);
    } else if (first) {
      game = {*first + TakenBefore(number, games, known), stamp};
    }
    if (game) changes[*game].note = NoteFrom(text);
  }
  return changes.empty() || file.Keep(changes);
}

}  // namespace study
