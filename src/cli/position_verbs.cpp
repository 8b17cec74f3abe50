// SPDX-License-Identifier: GPL-3.0-or-later
// The verbs that take positions from standard input, one a line: "board=TEXT moves=M1 M2 ...". The
// board may be left out for the normal start.
#include <unistd.h>

#include <functional>
#include <iostream>
#include <sstream>

#include "ai/candidates.h"
#include "ai/perft.h"
#include "cli/played_board.h"
#include "cli/verbs.h"
#include "rules/board_text.h"

namespace cli {
namespace {

using rules::ThePosition;

struct PositionLine {
  std::string board;
  std::vector<std::string> moves;
};

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

/// Runs `answer` for each line of standard input that isn't empty. The number of those lines.
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

std::string CastleText() {
  std::string text;
  for (const rules::Side side : {rules::White, rules::Black}) {
    for (const auto kind : {rules::Column1Rook, rules::KingItself, rules::Column8Rook}) {
      text += ThePosition().HasMoved(side, kind) ? '1' : '0';
    }
  }
  return text;
}

void ReplayLine(const PositionLine& line, CollectedMessages& messages) {
  PlayedBoard played(messages);
  played.StartFrom(line.board);
  std::vector<std::string> answers;
  for (const std::string& move : line.moves) {
    const bool ok = played.PlayBothSides({move}) == 1;
    JsonObject answer;
    answer.Add("move", move).Add("ok", ok);
    if (ok) {
      answer.Add("text", played.logic.Moves.Last().MoveText)
          .Add("check", ThePosition().SideInCheck)
          .Add("mate", ThePosition().CheckmateFlag)
          .Add("drawn", played.logic.GameDrawn);
    }
    answer.Add("messages", messages.Take());
    answers.push_back(answer.Text());
    if (!ok) break;
  }
  JsonObject()
      .Add("moves", JsonArray(answers))
      .Add("board", rules::WriteBoardText(ThePosition().BoardState))
      .Add("castle", CastleText())
      .Print();
}

/// Where the moves of a line lead to.
struct Reached {
  rules::Side side = rules::White;
  rules::LastMove lastMove;
};

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

}  // namespace

bool Replay(const Call& call) {
  ForEachPosition([&](const PositionLine& line) { ReplayLine(line, call.messages); });
  return true;
}

bool Legal(const Call& call) {
  ForEachPosition([&](const PositionLine& line) {
    const Reached reached = ReachPosition(line, call.messages);
    ai::CandidateList list;
    ai::GenerateAllMoves(reached.side, list, reached.lastMove, ThePosition().SideInCheck);
    std::vector<std::string> moves;
    for (const ai::CandidateMove& move : list)
      moves.push_back(Quoted(MoveText(move.from, move.to)));
    JsonObject().Add("side", reached.side).Add("moves", JsonArray(moves)).Print();
  });
  return true;
}

bool Perft(const Call& call) {
  const int depth = call.arguments.Number(0, 0, 20);
  const auto count = [&](const PositionLine& line) {
    const Reached reached = ReachPosition(line, call.messages);
    const std::int64_t nodes =
        ai::CountMoveSequences(reached.side, depth, reached.lastMove, ThePosition().SideInCheck);
    JsonObject().Add("nodes", nodes).Print();
  };
  const bool typed = isatty(STDIN_FILENO) != 0;
  if (typed || ForEachPosition(count) == 0) count({});
  return true;
}

}  // namespace cli
