// SPDX-License-Identifier: GPL-3.0-or-later
#include "store/sorted_content.h"

#include <algorithm>
#include <cstdint>
#include <set>
#include <stdexcept>
#include <utility>

#include "store/data_files.h"
#include "store/game_file.h"

namespace store {
namespace {

struct Line {
  std::string_view text;
  std::int32_t gameID = 0;
  std::string why;  ///< of its damage; empty for a good one
};

void Judge(Line& line) {
  try {
    GameRecord record;
    ReadGameLine(line.text, record);
    ReadMoves(line.text);
    line.gameID = record.GAME_ID;
  } catch (const std::invalid_argument& damage) {
    line.why = damage.what();
  }
}

/// Of two lines of one game the later one was saved later.
void JudgeRepeatedGames(std::vector<Line>& lines) {
  std::set<std::int32_t> seen;
  std::for_each(lines.rbegin(), lines.rend(), [&seen](Line& line) {
    if (!line.why.empty() || seen.insert(line.gameID).second) return;
    line.why = "its game " + std::to_string(line.gameID) + " stands once more further down";
  });
}

}  // namespace

SortedContent SortOut(std::string_view content) {
  std::vector<Line> lines;
  LineWalk walk(content);
  while (const auto text = walk.Next()) {
    lines.push_back({*text, 0, {}});
    Judge(lines.back());
  }
  JudgeRepeatedGames(lines);
  SortedContent sorted;
  int number = 0;
  for (Line& line : lines) {
    ++number;
    if (line.why.empty()) {
      sorted.goodLines.append(line.text).append(lineEnd);
      ++sorted.games;
    } else {
      sorted.damaged.push_back({number, std::move(line.why)});
    }
  }
  return sorted;
}

}  // namespace store
