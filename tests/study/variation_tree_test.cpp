// SPDX-License-Identifier: GPL-3.0-or-later
#include "study/variation_tree.h"

#include "pgn/pgn_fixture.h"
#include "rules/board_text.h"
#include "study/game_study.h"

namespace study {
namespace {

const rules::BoardSquares startBoard = rules::ReadBoardText(rules::normalStart);

VariationTree TreeOf(const std::string& played) {
  return NewTree(startBoard, pgn::Entries(played));
}

/// Lines tried from the game's present, as they are kept.
std::vector<TriedLines> Kept(const VariationTree& tree, const std::string& moves) {
  const auto node = tree.Present();
  return {{tree.PlyOf(node), PositionKey(tree.PositionAt(node).BoardState, tree.TurnAt(node).side),
           moves}};
}

struct GoesOnCase {
  const char* name;
  const char* played;
  const char* tried;
  const char* playedLater;  ///< the whole game then
  const char* kept;         ///< plies and lines
};

const GoesOnCase goesOnCases[] = {
    {"a line with others beside it", "e2e4", "e7e5 g1f3 (f1c4 (d2d4)) b8c6 (d7d6)", "e2e4",
     "1: e7e5 g1f3 (f1c4) (d2d4) b8c6 (d7d6); "},
    {"the tried move was played, and what was behind it is ahead now", "e2e4", "e7e5 g1f3 (f1c4)",
     "e2e4 e7e5", "2: g1f3 (f1c4); "},
    {"another one was played", "e2e4", "e7e5 (c7c5 g1f3) g1f3", "e2e4 c7c5 d2d4",
     "1: e7e5 g1f3; 2: g1f3; "},
    {"an offer of a draw is no move", "e2e4", "e7e5", "e2e4 Draw_offer Decline", "1: e7e5; "},
    {"a promotion of one's choice, castling and a capture in passing", "e2e4 a7a6 e4e5 d7d5",
     "e5d6 a6a5 d6c7 a5a4 c7b8n (c7d8q e8d8) a4a3 g1f3 a3b2 f1e2 b2a1q e1g1", "e2e4 a7a6 e4e5 d7d5",
     "4: e5d6 a6a5 d6c7 a5a4 c7b8n (c7d8q e8d8) a4a3 g1f3 a3b2 f1e2 b2a1q e1g1; "},
    {"what is no move ends its line, and not those beside it", "e2e4",
     "e7e5 e1e3 (g1f3 x)) (b1c3 b8c6 ((g8f6)) a9a1 e4e5 (a2a3", "e2e4",
     "1: e7e5 g1f3 (b1c3 b8c6 (g8f6)); "},
    {"a game that went otherwise keeps them unseen", "e2e4", "e7e5", "d2d4", ""},
};

TEST(VariationTreeTest, WhatWasTriedStaysWhereItWasThoughtWhileTheGameGoesOn) {
  for (const GoesOnCase& row : goesOnCases) {
    SCOPED_TRACE(row.name);
    VariationTree before = TreeOf(row.played);
    EXPECT_TRUE(HangUp(Kept(before, row.tried), before).empty());
    const std::vector<TriedLines> lines = TakeDown(before);
    VariationTree tree = TreeOf(row.playedLater);
    const auto present = tree.Cursor();
    EXPECT_EQ(HangUp(lines, tree).empty(), *row.kept != '\0');
    EXPECT_EQ(tree.Cursor(), present);
    std::string kept;
    for (const TriedLines& tried : TakeDown(tree)) {
      kept += std::to_string(tried.ply) + ": " + tried.moves + "; ";
    }
    EXPECT_EQ(kept, row.kept);
  }
}

/// Every step of the hand, and what stands at the cursor behind it.
TEST(VariationTreeTest, TheCursorGoesAllWaysAndOnlyTriedMovesAreDeletedOrPutFirst) {
  VariationTree tree = TreeOf("e2e4 e7e5");
  HangUp(Kept(tree, "g1f3 (f1c4 b8c6 (g8f6)) b8c6"), tree);
  const auto here = [&] { return tree.Written(tree.Cursor()); };
  const auto deleteHere = [&] { return tree.Delete(tree.Cursor()); };
  const auto promoteHere = [&] { return tree.Promote(tree.Cursor()); };
  const auto undelete = [&] { return tree.Undelete(); };
  const auto tryAgain = [&] {
    tree.Try({rules::Sq("f1"), rules::Sq("c4"), rules::WhiteBishop});
    return true;
  };
  struct Step {
    const char* name;
    std::function<bool()> take;
    bool done;
    const char* at;
  };
  const Step steps[] = {
      {"played moves stay", deleteHere, false, "e7e5"},
      {"into the first line", [&] { return tree.Forward(); }, true, "Nf3"},
      {"to the other one", [&] { return tree.NextSibling(); }, true, "Bc4"},
      {"no third one", [&] { return tree.NextSibling(); }, false, "Bc4"},
      {"to its end", [&] { return tree.Last(); }, true, "Nc6"},
      {"beside it", [&] { return tree.NextSibling(); }, true, "Nf6"},
      {"before its neighbour", promoteHere, true, "Nf6"},
      {"then the line that it belongs to", promoteHere, true, "Nf6"},
      {"it is the first", promoteHere, false, "Nf6"},
      {"to the game", [&] { return tree.First(); }, true, "e7e5"},
      {"the line that was put first", [&] { return tree.Last(); }, true, "Nf6"},
      {"off with the move", deleteHere, true, "Bc4"},
      {"and with its line", deleteHere, true, "e7e5"},
      {"to the start", [&] { return tree.First(); }, true, ""},
      {"along the game", [&] { return tree.Last(); }, true, "Nc6"},
      {"back", [&] { return tree.Back(); }, true, "Nf3"},
      {"the line comes back", undelete, true, "Bc4"},
      {"and its move", undelete, true, "Nf6"},
      {"nothing else", undelete, false, "Nf6"},
      {"back to the line", [&] { return tree.Back(); }, true, "Bc4"},
      {"off with all of it", deleteHere, true, "e7e5"},
      {"tried again", tryAgain, true, "Bc4"},
      {"what stood behind it comes back", undelete, true, "Bc4"},
      {"to its end", [&] { return tree.Last(); }, true, "Nf6"},
  };
  for (const Step& step : steps) {
    SCOPED_TRACE(step.name);
    EXPECT_EQ(step.take(), step.done);
    EXPECT_EQ(here(), step.at);
  }
}

TEST(VariationTreeTest, TriedMovesLeaveThePositionOfTheBoardAloneAndAreWrittenBothWays) {
  rules::Place("Ka1 kh8");
  const std::string before = rules::WriteBoardText(rules::ThePosition().BoardState);
  VariationTree tree = TreeOf("f2f3 e7e5");
  HangUp(Kept(tree, "g2g4 d8h4"), tree);
  EXPECT_FALSE(tree.Allows(rules::Sq("e1"), rules::Sq("e2")));
  EXPECT_EQ(rules::CountSquares(tree.TargetsFrom(rules::Sq("b1"))), 2);
  tree.Last();
  EXPECT_EQ(tree.Written(tree.Cursor()) + " " + tree.San(tree.Cursor()), "Qh4++ Qh4#");
  EXPECT_TRUE(tree.PositionAt(tree.Cursor()).CheckmateFlag);
  EXPECT_EQ(tree.NextMoveOfGame()->to, rules::Sq("g4"));
  EXPECT_EQ(rules::WriteBoardText(rules::ThePosition().BoardState), before);
}

}  // namespace
}  // namespace study
