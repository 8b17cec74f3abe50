// SPDX-License-Identifier: GPL-3.0-or-later
// The moves of the open game: at once what the move list shows and the working store of the moves.
// Row 1 is White's first move, odd rows are White's, the last row is the present of the game. The
// selected row is the position that the board shows.
#pragma once

#include <string>
#include <utility>
#include <vector>

#include "rules/position.h"
#include "store/game_record.h"

namespace board {

class MoveList {
 public:
  /// The number of entries.
  int Count() const { return static_cast<int>(rows_.size()); }

  /// Row n from 1; row 0 and rows behind the last read as a blank entry.
  const store::MoveRecord& Row(int n) const {
    return n >= 1 && n <= Count() ? rows_[static_cast<std::size_t>(n - 1)] : blank_;
  }

  const store::MoveRecord& Last() const { return Row(Count()); }

  /// The coordinates of row n as the en-passant test takes them.
  rules::LastMove MoveOf(int n) const { return rules::LastMove::FromText(Row(n).MoveCoordinates); }

  /// 0 where the list has no entries.
  int Selected() const { return selected_; }
  bool AtEnd() const { return selected_ == Count(); }
  void Select(int n) {
    assert(n >= 0 && n <= Count());
    selected_ = n;
  }

  /// Adds a row behind the last without selecting it.
  void Add(store::MoveRecord row) { rows_.push_back(std::move(row)); }
  void RemoveLast() {
    assert(!rows_.empty());
    rows_.pop_back();
    selected_ = Count();
  }
  void Fill(store::MoveRecords rows) {
    rows_ = std::move(rows);
    selected_ = Count();
  }

 private:
  store::MoveRecords rows_;
  int selected_ = 0;
  store::MoveRecord blank_;
};

}  // namespace board
