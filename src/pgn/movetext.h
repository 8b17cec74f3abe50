// SPDX-License-Identifier: GPL-3.0-or-later
// Filling lines with the moves of a game and what is said between them.
#pragma once

#include <string>
#include <string_view>

#include "pgn/turn.h"

namespace pgn {

class MoveText {
 public:
  /// A move, with its number where a reader needs it. `turn` is the moment before the move.
  void AddMove(const Turn& turn, std::string_view san);

  /// Nothing for a blank text. Braces, which would end it, become round, and blanks in a row one;
  /// but for that an import gets the same text. What stands `behindCommand`, one that says nothing,
  /// isn't read as words of the program's own.
  void AddComment(std::string_view text, bool behindCommand = false);

  /// The lines, ended by the result and an empty line.
  std::string Finished(std::string_view result);

 private:
  void AddParted(std::string word);
  void AddWord(std::string_view word);

  std::string text_;
  std::size_t lineLength_ = 0;
  bool numberNeeded_ = true;
};

}  // namespace pgn
