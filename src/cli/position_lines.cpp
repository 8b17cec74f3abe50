// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/position_lines.h"

#include <iostream>
#include <sstream>

#include "cli/arguments.h"
#include "cli/played_board.h"

namespace cli {
namespace {

PositionLine ReadPositionLine(const std::string& text) {
  PositionLine line;
  std::istringstream words(text);
  bool inMoves = false;
  for (std::string word; words >> word;) {
    if (inMoves) {
      line.moves.push_back(word);
    } else if (word.starts_with("board=")) {
      line.board = word.substr(6);
    } else if (word.starts_with("moves=")) {
      inMoves = true;
      if (word.size() > 6) line.moves.push_back(word.substr(6));
    } else {
      throw Refusal("A line of standard input doesn't read board=TEXT moves=M1 M2 ...: " + text);
    }
  }
  return line;
}

}  // namespace

int ForEachPosition(const std::function<void(const PositionLine&)>& answer) {
  int lines = 0;
  for (std::string text; std::getline(std::cin, text);) {
    if (text.find_first_not_of(" \t\r") == std::string::npos) continue;
    answer(ReadPositionLine(text));
    ++lines;
  }
  return lines;
}

std::string MoveText(rules::Square from, rules::Square to) {
  return std::to_string(NumberOf(from)) + std::to_string(NumberOf(to));
}

Reached ReachPosition(const PositionLine& line, CollectedMessages& messages) {
  PlayedBoard played(messages);
  played.StartFrom(line.board);
  const std::size_t accepted = played.PlayBothSides(line.moves);
  if (accepted < line.moves.size()) {
    throw Refusal("The move " + line.moves[accepted] + " was refused: " +
                  messages.TakeSentence("there is no piece of the side to move on its square."));
  }
  messages.Take();
  const int entries = played.logic.Moves.Count();
  return {entries % 2 == 0 ? rules::White : rules::Black, played.logic.Moves.MoveOf(entries)};
}

}  // namespace cli
