// SPDX-License-Identifier: GPL-3.0-or-later
// The question about games of a file that aren't finished, where it doesn't tell all that is needed
// to go on with them. Each opponent is asked about once.
#pragma once

#include <QWidget>

#include <map>
#include <string>
#include <vector>

#include "pgn/import.h"

namespace ui {

class UnfinishedGames {
 public:
  using Answers = std::map<pgn::PossibleOpponents, pgn::GoingOn>;

  explicit UnfinishedGames(const pgn::ImportedGames& games);

  bool IsEmpty() const { return numbers_.empty(); }

  /// Modal. The games of whoever isn't in the answers are left out.
  Answers Ask(QWidget& window) const;

 private:
  std::vector<int> numbers_;
  std::vector<pgn::PossibleOpponents> opponents_;  ///< in the order of the file
  std::map<std::string, std::string> addresses_;   ///< of some of them, by name
};

}  // namespace ui
