// SPDX-License-Identifier: GPL-3.0-or-later
// Positions from standard input, one a line: "board=TEXT moves=M1 M2 ...". The board may be left
// out for the normal start.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "cli/collected_messages.h"
#include "rules/position.h"

namespace cli {

struct PositionLine {
  std::string board;
  std::vector<std::string> moves;
};

/// Runs `answer` for each line of standard input that isn't empty. The number of those lines.
int ForEachPosition(const std::function<void(const PositionLine&)>& answer);

/// Where the moves of a line lead to.
struct Reached {
  rules::Side side = rules::White;
  rules::LastMove lastMove;
};

/// Plays a line's moves to the position that it stands for. Raises Refusal at a move that isn't
/// allowed.
Reached ReachPosition(const PositionLine& line, CollectedMessages& messages);

/// The four digits of a move.
std::string MoveText(rules::Square from, rules::Square to);

}  // namespace cli
