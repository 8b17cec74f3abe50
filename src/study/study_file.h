// SPDX-License-Identifier: GPL-3.0-or-later
// The file beside the game file that keeps what a player thinks for himself: "Notes.sqlite".
//
//   game_note      game, stamp, note
//   position_note  game, stamp, position, note
//   tried_lines    game, stamp, ply, position, moves
//
// `PRAGMA user_version` is the layout's number. A file of a later number is neither read nor
// changed. The file comes to be with the first thing that is kept, each change is whole or not
// made, and its loss costs no game. What is kept of a deleted game goes when the game can't be put
// back any more.
//
// What goes wrong is told by a message, once; a file that is damaged is put aside.
#pragma once

#include <functional>
#include <map>
#include <optional>
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
  /// Nothing where it can't be read; a study that is empty where nothing is kept.
  std::optional<GameStudy> Read(const GameIdentity& game);

  /// All of the changes, or none of them. False where they couldn't be kept.
  bool Keep(const GameIdentity& game, const StudyChanges& changes);

  /// The same for several games together.
  bool Keep(const std::map<GameIdentity, StudyChanges>& changes);

  /// Why the last of these couldn't be done, in a sentence; blank where it could. Until it can be,
  /// nobody is made to wait for it again.
  const std::string& WhyNot() const { return whyNot_; }

 private:
  using Work = std::function<void(NotesDatabase&)>;
  bool Do(bool create, const Work& work);
  bool DoOnce(bool create, const Work& work);
  void Prepare(NotesDatabase& database);
  void Tell(const DatabaseError& error);

  bool lookedOver_ = false;  // since the program started
  std::set<Trouble> told_;
  std::string whyNot_;
};

/// Takes out what is kept of games that are deleted for good, told by their lines of the game file.
/// Quiet: what can't be taken out stays, and is seen nowhere.
void ForgetGames(const std::vector<std::string>& removed);

/// Whether there is a file of them.
bool HasNotes();

/// Copies the notes that lie in the folder of other games, and keeps one's own beside them. Nothing
/// is done where there are none. Answers what went wrong, as the end of a sentence.
std::string UseNotesOf(const std::string& folder);

}  // namespace study
