// SPDX-License-Identifier: GPL-3.0-or-later
// The verbs that ask the rules about positions from standard input.
#include <unistd.h>

#include "ai/candidates.h"
#include "ai/perft.h"
#include "cli/played_board.h"
#include "cli/position_lines.h"
#include "cli/verbs.h"
#include "rules/board_text.h"

namespace cli {
namespace {

using rules::ThePosition;

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
