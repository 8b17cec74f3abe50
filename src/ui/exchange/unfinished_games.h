// SPDX-License-Identifier: GPL-3.0-or-later
// The question about games of a file that aren't finished, where it doesn't tell all that is needed
// to go on with them.
#pragma once

#include <QWidget>

#include <optional>
#include <string>
#include <vector>

#include "pgn/import.h"

namespace ui {

struct UnfinishedAnswer {
  std::string address;  ///< of the opponent
  rules::Side ownSide = rules::NoSide;
};

class UnfinishedGames {
 public:
  explicit UnfinishedGames(const std::vector<pgn::RefusedGame>& refused);

  bool IsEmpty() const { return numbers_.empty(); }

  /// Modal. Nothing where the user leaves these games out.
  std::optional<UnfinishedAnswer> Ask(QWidget& window) const;

 private:
  std::vector<int> numbers_;
  bool lackSide_ = false;
  bool lackAddress_ = false;
};

}  // namespace ui
