// SPDX-License-Identifier: GPL-3.0-or-later
#include "study/study_file.h"

#include <algorithm>
#include <chrono>
#include <exception>
#include <utility>

#include "platform/messages.h"
#include "platform/process_state.h"
#include "platform/seams.h"
#include "store/data_files.h"
#include "store/game_file.h"
#include "store/queries.h"

namespace study {

namespace {

constexpr int layoutNumber = 1;
constexpr std::chrono::milliseconds patience{1000};
constexpr std::chrono::milliseconds patienceAfterwards{50};  // where it was in vain before

constexpr const char* tables[] = {
    "CREATE TABLE IF NOT EXISTS game_note (game INTEGER, stamp TEXT, note TEXT NOT NULL, "
    "PRIMARY KEY (game, stamp))",
    "CREATE TABLE IF NOT EXISTS position_note (game INTEGER, stamp TEXT, position TEXT, "
    "note TEXT NOT NULL, PRIMARY KEY (game, stamp, position))",
    "CREATE TABLE IF NOT EXISTS tried_lines (game INTEGER, stamp TEXT, ply INTEGER, position TEXT, "
    "moves TEXT NOT NULL, PRIMARY KEY (game, stamp, ply, position))",
};

void TellUser(const std::string& text) {
  platform::ShowMessage(platform::DatabaseIcon, "Your notes", text, "OK", {}, false,
                        platform::FailureSound);
}

/// Answers the name that the file has now.
/// A change that was cut off belongs to the file.
void Move(const std::string& from, const std::string& to) {
  constexpr const char* journal = "-journal";
  platform::Files& files = platform::TheFiles();
  if (files.Exists(from + journal)) files.Rename(from + journal, to + journal);
  files.Rename(from, to);
}

std::string PutAside(const std::string& start) {
  std::string name = store::FreeName(start, ".sqlite");
  const std::string path = platform::Process().DataPath + name;
  Move(NotesPath(), path);
  return name;
}

/// Puts another file in the place of the notes, which are kept beside it. Both stay where they are
/// where that fails.
void Replace(const std::string& copy) {
  platform::Files& files = platform::TheFiles();
  const std::string aside =
      files.Exists(NotesPath()) ? platform::Process().DataPath + PutAside("Notes.replaced-") : "";
  try {
    files.Rename(copy, NotesPath());
  } catch (const platform::FileError&) {
    if (!aside.empty()) Move(aside, NotesPath());
    throw;
  }
}

int LayoutOf(NotesDatabase& database) {
  int number = 0;
  database.Run("PRAGMA user_version", {}, [&number](const NotesDatabase::Row& row) {
    number = static_cast<int>(row.Number(0));
  });
  return number;
}

void LookOver(NotesDatabase& database) {
  database.Run("PRAGMA quick_check(1)", {}, [](const NotesDatabase::Row& row) {
    if (row.Text(0) != "ok") throw DatabaseError(Trouble::Damaged, row.Text(0));
  });
  if (LayoutOf(database) != layoutNumber) return;
  for (const char* columns : {"note FROM game_note", "position, note FROM position_note",
                              "ply, position, moves FROM tried_lines"}) {
    database.Run(std::string("SELECT game, stamp, ") + columns + " LIMIT 0");
  }
}

void KeepNote(NotesDatabase& database, const GameIdentity& game, const std::string& note) {
  database.Run("DELETE FROM game_note WHERE game = ? AND stamp = ?", {game.number, game.stamp});
  if (note.empty()) return;
  database.Run("INSERT INTO game_note VALUES (?, ?, ?)", {game.number, game.stamp, note});
}

void KeepPositionNote(NotesDatabase& database, const GameIdentity& game,
                      const std::string& position, const std::string& note) {
  database.Run("DELETE FROM position_note WHERE game = ? AND stamp = ? AND position = ?",
               {game.number, game.stamp, position});
  if (note.empty()) return;
  database.Run("INSERT INTO position_note VALUES (?, ?, ?, ?)",
               {game.number, game.stamp, position, note});
}

void KeepLines(NotesDatabase& database, const GameIdentity& game,
               const std::vector<TriedLines>& lines) {
  database.Run("DELETE FROM tried_lines WHERE game = ? AND stamp = ?", {game.number, game.stamp});
  for (const TriedLines& tried : lines) {
    database.Run("INSERT OR REPLACE INTO tried_lines VALUES (?, ?, ?, ?, ?)",
                 {game.number, game.stamp, tried.ply, tried.position, tried.moves});
  }
}

void KeepChanges(NotesDatabase& database, const GameIdentity& game, const StudyChanges& changes) {
  if (changes.note) KeepNote(database, game, *changes.note);
  for (const auto& [position, note] : changes.positionNotes) {
    KeepPositionNote(database, game, position, note);
  }
  if (changes.lines) KeepLines(database, game, *changes.lines);
}

/// Another program may have brought one of them back.
std::vector<GameIdentity> GamesThatAreGone(const std::vector<std::string>& removed) {
  std::vector<GameIdentity> gone;
  for (const std::string& line : removed) {
    store::GameRecord game;
    store::ReadGameLine(line, game);
    std::optional<store::GameRecord> there;
    const bool isKnown = store::FindGame(there, game.GAME_ID);
    if (isKnown && !there) gone.push_back({game.GAME_ID, game.GAME_DATESTAMP});
  }
  return gone;
}

std::string Sentence(const DatabaseError& error) {
  switch (error.trouble) {
    case Trouble::Newer:
      return "Your notes were written by a later version of Tarvolenix, so they aren't shown and "
             "nothing is added to them here.";
    case Trouble::Locked:
      return "Another program is at work in the file of your notes, so they can't be read or kept "
             "until it lets go of it.";
    default:
      return "Your notes can't be read or kept (" + NotesPath() + "): " + error.what() + ".";
  }
}

}  // namespace

std::string NotesPath() { return platform::Process().DataPath + notesFile; }

void StudyFile::Prepare(NotesDatabase& database) {
  const int number = LayoutOf(database);
  if (number > layoutNumber) {
    throw DatabaseError(Trouble::Newer, "layout " + std::to_string(number));
  }
  if (!lookedOver_) LookOver(database);
  lookedOver_ = true;
  if (number == layoutNumber) return;
  database.InOneStep([&database] {
    for (const char* table : tables) database.Run(table);
    database.Run("PRAGMA user_version = " + std::to_string(layoutNumber));
  });
}

std::optional<GameStudy> StudyFile::Read(const GameIdentity& game) {
  GameStudy kept;
  const auto read = [&](NotesDatabase& database) {
    kept = {};
    using Row = NotesDatabase::Row;
    database.Run("SELECT note FROM game_note WHERE game = ? AND stamp = ?",
                 {game.number, game.stamp}, [&](const Row& row) { kept.note = row.Text(0); });
    database.Run("SELECT position, note FROM position_note WHERE game = ? AND stamp = ?",
                 {game.number, game.stamp},
                 [&](const Row& row) { kept.positionNotes[row.Text(0)] = row.Text(1); });
    database.Run(
        "SELECT ply, position, moves FROM tried_lines WHERE game = ? AND stamp = ? ORDER BY ply",
        {game.number, game.stamp}, [&](const Row& row) {
          kept.lines.push_back({static_cast<int>(row.Number(0)), row.Text(1), row.Text(2)});
        });
  };
  return Do(false, read) ? std::optional(std::move(kept)) : std::nullopt;
}

bool StudyFile::Keep(const GameIdentity& game, const StudyChanges& changes) {
  return Keep(std::map<GameIdentity, StudyChanges>{{game, changes}});
}

bool StudyFile::Keep(const std::map<GameIdentity, StudyChanges>& changes) {
  const auto isBlank = [](const auto& ofGame) { return ofGame.second.IsBlank(); };
  return Do(!std::ranges::all_of(changes, isBlank), [&](NotesDatabase& database) {
    database.InOneStep([&] {
      for (const auto& [game, ofGame] : changes) KeepChanges(database, game, ofGame);
    });
  });
}

bool StudyFile::Do(bool create, const Work& work) {
  try {
    try {
      return DoOnce(create, work);
    } catch (const DatabaseError& error) {
      if (error.trouble != Trouble::Damaged) throw;
    }
    const std::string name = PutAside("Notes.damaged-");
    TellUser("The file of your notes is damaged and was put aside as " + name +
             "; your games are as they were, and what you note from now on is kept in a new file.");
    return DoOnce(create, work);
  } catch (const DatabaseError& error) {
    Tell(error);
  } catch (const std::exception& error) {
    Tell(DatabaseError(Trouble::Other, error.what()));
  }
  return false;
}

bool StudyFile::DoOnce(bool create, const Work& work) {
  if (create || platform::TheFiles().Exists(NotesPath())) {
    NotesDatabase database(NotesPath(), create, whyNot_.empty() ? patience : patienceAfterwards);
    Prepare(database);
    work(database);
    told_.erase(Trouble::Locked);
  }
  whyNot_.clear();
  return true;
}

void StudyFile::Tell(const DatabaseError& error) {
  whyNot_ = Sentence(error);
  if (told_.insert(error.trouble).second) TellUser(whyNot_);
}

void ForgetGames(const std::vector<std::string>& removed) try {
  const std::vector<GameIdentity> games = GamesThatAreGone(removed);
  if (games.empty() || !platform::TheFiles().Exists(NotesPath())) return;
  NotesDatabase database(NotesPath(), false, patienceAfterwards);
  if (LayoutOf(database) != layoutNumber) return;
  database.InOneStep([&] {
    for (const char* table : {"game_note", "position_note", "tried_lines"}) {
      const std::string sql = std::string("DELETE FROM ") + table + " WHERE game = ? AND stamp = ?";
      for (const GameIdentity& game : games) database.Run(sql, {game.number, game.stamp});
    }
  });
} catch (const std::exception&) {  // the next start finds what is wrong with the file, and tells it
}

bool HasNotes() { return platform::TheFiles().Exists(NotesPath()); }

std::string UseNotesOf(const std::string& folder) {
  const std::string source = folder + notesFile;
  const std::string copy = platform::Process().DataPath + "Notes.new";
  try {
    if (!platform::TheFiles().Exists(source)) return {};
    store::RemoveQuietly(copy);
    {
      NotesDatabase other(source, false);
      LookOver(other);
      { const NotesDatabase emptyAndPrivate(copy, true); }
      other.Run("VACUUM INTO ?", {copy});
    }
    Replace(copy);
    return {};
  } catch (const std::exception& error) {
    store::RemoveQuietly(copy);
    return error.what();
  }
}

}  // namespace study
