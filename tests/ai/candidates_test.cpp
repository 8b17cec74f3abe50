// SPDX-License-Identifier: GPL-3.0-or-later
#include "ai/candidates.h"

#include <algorithm>

#include "ai/perft.h"
#include "ai/plain_chess.h"
#include "ai/random_positions.h"
#include "rules/attack.h"
#include "rules/game_end.h"

namespace ai {
namespace {

using rules::NobodyInCheck;
using rules::Untouched;

struct OrderCase {
  const char* name;
  const char* board;
  const char* from;
  const char* targets;  ///< in the order of the list
  const char* lastMove = "";
};

const OrderCase orderCases[] = {
    {"en passant comes before captures", "Pe5 pf5 pd6", "e5", "e6 f6 d6 ", "f7f5"},
    {"a pawn of column a takes to the right alone", "Pa2 pb3 ph3", "a2", "a3 a4 b3 "},
    {"a step onto the last row is one move", "Pe7 rd8", "e7", "e8 d8 "},
    {"White's pawn on row 8", "Pe8 rd7", "e8", ""},
    // No game leads there: who takes the knight takes the pawn too, and nothing keeps the rook off.
    {"a capture that also takes in passing bares the king", "Ka5 Pe5 rh5 pd5 nd6 kg8", "e5", "e6 ",
     "d7d5"},
};

TEST(CandidatesTest, APawnsMovesComeInTheirOrder) {
  for (const OrderCase& row : orderCases) {
    SCOPED_TRACE(row.name);
    rules::Place(row.board);
    const Untouched before;
    const rules::Square from = rules::Sq(row.from);
    CandidateList list;
    GenerateMoves(rules::SideOf(from), ThePosition().BoardState.At(from), from, list,
                  rules::After(row.lastMove), NobodyInCheck);
    std::string targets;
    for (const CandidateMove& move : list) targets += rules::NameOf(move.to) + ' ';
    EXPECT_EQ(targets, row.targets);
    EXPECT_EQ(Untouched(), before);
  }
}

TEST(CandidatesTest, MovesFromTheStartCountAsTheyAreKnown) {
  rules::Place("start");
  const long counts[] = {20, 400, 8902, 197281, 4865609};
  const Untouched before;
  for (int depth = 1; depth <= 5; ++depth) {
    EXPECT_EQ(CountMoveSequences(rules::White, depth, {}, NobodyInCheck), counts[depth - 1]);
  }
  EXPECT_EQ(Untouched(), before);
}

/// The position on the board, as the second opinion reads it.
PlainChess Plain(const Turn& turn) {
  rules::Position& position = ThePosition();
  PlainChess plain;
  for (int i = 0; i < 64; ++i) plain.squares[i] = ".RNBQKPrnbqkp"[position.BoardState[i]];
  plain.whiteMoves = turn.side == rules::White;
  plain.rights.clear();
  for (const rules::Side side : {rules::White, rules::Black}) {
    const bool king = !position.HasMoved(side, rules::KingItself);
    plain.rights += king && !position.HasMoved(side, rules::Column8Rook) ? "Kk"[side] : ' ';
    plain.rights += king && !position.HasMoved(side, rules::Column1Rook) ? "Qq"[side] : ' ';
  }
  const auto& [from, to] = turn.lastMove;
  if (turn.lastMove && rules::IsPawn(position.BoardState.At(to)) && std::abs(from.y - to.y) == 2) {
    plain.passed = rules::IndexOf(to.x, (from.y + to.y) / 2);
  }
  return plain;
}

struct Seen {
  int castlings = 0, passings = 0, checks = 0, mates = 0, stalemates = 0;
};

/// Every legal move is found, plays as it should and is taken back without a trace.
void CompareMoves(const Turn& turn, const PlainChess& plain, Seen& seen) {
  const Untouched before;
  PlainChess::Moves found;
  for (const CandidateMove& move : turn.Moves()) {
    found.emplace_back(rules::IndexOf(move.from), rules::IndexOf(move.to));
    Turn next = turn.Play(move);
    const PlainChess expected = plain.Moved(found.back().first, found.back().second);
    EXPECT_EQ(Plain(next).squares, expected.squares);
    EXPECT_EQ(Plain(next).rights, expected.rights);
    EXPECT_EQ(next.sideInCheck == next.side, expected.InCheck(expected.whiteMoves));
    EXPECT_TRUE(rules::SetsInStep(ThePosition().BoardState));
    rules::UndoTestMove(next.sideInCheck);
    EXPECT_EQ(next.sideInCheck, turn.sideInCheck);
    EXPECT_EQ(Untouched(), before);

    const rules::PieceCode piece = before.board.At(move.from);
    const int columns = std::abs(move.from.x - move.to.x);
    seen.castlings += rules::KindOf(piece) == rules::WhiteKing && columns == 2;
    seen.passings +=
        rules::IsPawn(piece) && columns == 1 && before.board.At(move.to) == rules::NoPiece;
  }
  const auto byFrom = [](const auto& a, const auto& b) { return a.first < b.first; };
  EXPECT_TRUE(std::is_sorted(found.begin(), found.end(), byFrom)) << "pieces come row by row";
  std::sort(found.begin(), found.end());
  EXPECT_EQ(found, plain.LegalMoves());
  EXPECT_EQ(CountMoveSequences(turn.side, 1, turn.lastMove, turn.sideInCheck),
            static_cast<long>(found.size()));
}

/// Mate is reasoned and stalemate is searched piece by piece; both must mean "no legal move".
void CompareEnds(const Turn& turn, const PlainChess& plain, Seen& seen) {
  const bool stuck = plain.LegalMoves().empty();
  const bool check = plain.InCheck(plain.whiteMoves);
  using rules::Standing;
  const Standing standing = !check  ? Standing::Neither
                            : stuck ? Standing::Checkmate
                                    : Standing::Check;
  EXPECT_EQ(rules::GameState(turn.side, true, turn.sideInCheck, turn.lastMove), standing);
  EXPECT_EQ(rules::NoLegalMoves(turn.side, turn.lastMove, turn.sideInCheck), stuck);
  seen.checks += check;
  seen.mates += check && stuck;
  seen.stalemates += !check && stuck;
}

TEST(CandidatesTest, RandomGamesAgreeWithASecondOpinion) {
  RandomPositions source;
  Seen seen;
  for (int n = 0; n < 12000 && !::testing::Test::HasFailure(); ++n) {
    const Turn turn = source.FromPlay();
    const PlainChess plain = Plain(turn);
    SCOPED_TRACE(plain.squares + (plain.whiteMoves ? " White" : " Black"));
    CompareMoves(turn, plain, seen);
    CompareEnds(turn, plain, seen);
  }
  EXPECT_GT(seen.castlings, 300) << "too few for a comparison";
  EXPECT_GT(seen.passings, 15);
  EXPECT_GT(seen.checks, 500);
  EXPECT_GT(seen.mates, 10);
  EXPECT_GT(seen.stalemates, 4);
}

}  // namespace
}  // namespace ai
