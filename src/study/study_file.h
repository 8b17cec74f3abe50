// SPDX-License-Identifier: GPL-3.0-or-later
// The file beside the game file that keeps what a player thinks for himself: "Notes.sqlite".
//
//   game_note      game, stamp, note
//   position_note  game, stamp, position, note
//   tried_lines    game, stamp, ply, position, moves
//
// `PRAGMA user_version` is the layout's number. A file of a later number is neither read nor
// changed. The file comes to be with the first thing that is kept, each change is whole or not
// made, and its loss costs no game. What is kept of a game stays when the game is deleted: it can
// be put back, and no other game has the same identity.
//
// What goes wrong is told by a message, once; a file that is damaged is put aside.
#pragma once

#include <functional>
#include <set>
#include <string>
#include <vector>

#include "study/game_study.h"
#include "study/notes_database.h"

namespace study {

inline constexpr const char* notesFile = "Notes.sqlite";

/// In the data folder.
std::string NotesPath();

class StudyFile {
 public:
  /// Nothing where nothing is kept, or it can't be read.
  GameStudy Read(const GameIdentity& game);

  // A blank text takes back what was kept. False where it couldn't be.
  bool KeepNote(const GameIdentity& game, const std::string& note);
  bool KeepPositionNote(const GameIdentity& game, const std::string& position,
                        const std::string& note);
  bool KeepLines(const GameIdentity& game, const std::vector<TriedLines>& lines);

 private:
  using Work = std::function<void(NotesDatabase&)>;
  bool Keep(bool isBlank, const Work& work);
  bool Do(bool create, const Work& work);
  bool DoOnce(bool create, const Work& work);
  void Prepare(NotesDatabase& database);
  void Tell(const DatabaseError& error);

  bool lookedOver_ = false;  // since the program started
  std::set<Trouble> told_;
};

/// Copies the notes that lie in the folder of other games, and keeps one's own beside them. Nothing
/// is done where there are none. Answers what went wrong, as the end of a sentence.
std::string UseNotesOf(const std::string& folder);

}  // namespace study
