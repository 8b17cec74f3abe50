// SPDX-License-Identifier: GPL-3.0-or-later
// What a move mail or move file says: a game, as its sender has it. It is a claim and no fact.
// Before anything of it is stored it is judged by who sent it and by what is stored already.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "store/game_record.h"

namespace mail {

struct Claim {
  std::int32_t receiversID = 0;  ///< our own GAME_ID; 0 where the sender doesn't know it
  std::int32_t sendersID = 0;
  std::string dateStamp;
  std::string name;
  std::string date;
  std::string whiteName;
  std::string blackName;
  bool receiverIsHost = false;
  std::string startBoard;
  store::MoveRecords moves;
};

/// Reads a move text of good form; comments that are too long are cut. Raises std::exception where
/// a number is out of range.
Claim ReadClaim(std::string_view text);

/// Whether the moves are numbered 1, 2, 3 and so on.
bool HasOrderlyNumbers(const store::MoveRecords& moves);

/// Whether two entries are the same move, whatever was said about it. Blanks in a move's text,
/// which travel badly, count for nothing.
bool IsSameMove(const store::MoveRecord& a, const store::MoveRecord& b);

/// The index of the first move that both lists have and that isn't the same in them; the length of
/// the shorter list where there is none.
std::size_t FirstDifference(const store::MoveRecords& a, const store::MoveRecords& b);

}  // namespace mail
