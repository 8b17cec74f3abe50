// SPDX-License-Identifier: GPL-3.0-or-later
// What a player thinks for himself about one game: what he tried out, and what he noted. None of it
// is the opponent's: it is in no mail, no move file and no game file.
#pragma once

#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <vector>

#include "store/game_record.h"
#include "study/variation_tree.h"

namespace study {

/// Characters of a note.
inline constexpr int longestNote = 10000;

/// Numbers of games are given anew; together with the stamp one is a game's own for ever.
struct GameIdentity {
  std::int32_t number = 0;
  std::string stamp;

  auto operator<=>(const GameIdentity&) const = default;
};

/// What was tried from one position of the game.
struct TriedLines {
  int ply = 0;  ///< the moves that had been played
  std::string position;
  std::string moves;

  bool operator==(const TriedLines&) const = default;
};

struct GameStudy {
  std::string note;
  std::map<std::string, std::string> positionNotes;  ///< by the keys of their positions
  std::vector<TriedLines> lines;
};

/// What was changed of a study and is still to be kept. A blank text takes a note back.
struct StudyChanges {
  std::optional<std::string> note;
  std::map<std::string, std::string> positionNotes;
  std::optional<std::vector<TriedLines>> lines;

  /// To keep nothing needs no file.
  bool IsBlank() const;
};

/// The study as it is with the changes.
void Apply(const StudyChanges& changes, GameStudy& study);

/// The entries of a game that are moves, as a tree in which nothing was tried yet.
VariationTree NewTree(const rules::BoardSquares& startBoard, const store::MoveRecords& entries);

/// Hangs the lines onto the game. Those of positions that it never had come back.
std::vector<TriedLines> HangUp(const std::vector<TriedLines>& lines, VariationTree& tree);

/// All that was tried, from the start of the game on.
std::vector<TriedLines> TakeDown(const VariationTree& tree);

}  // namespace study
