// SPDX-License-Identifier: GPL-3.0-or-later
#include "ai/candidates.h"

#include <algorithm>
#include <random>

#include "ai/literal_opponent.h"
#include "ai/perft.h"
#include "ai/plain_chess.h"
#include "ai/random_positions.h"
#include "rules/attack.h"
#include "rules/game_end.h"
#include "rules/rules_fixture.h"
#include "rules/test_moves.h"

namespace ai {
namespace {

using rules::Black;
using rules::LastMove;
using rules::NobodyInCheck;
using rules::Side;
using rules::Square;
using rules::ThePosition;
using rules::Untouched;
using rules::White;

std::string Names(const CandidateList& list) {
  std::string names;
  for (const CandidateMove& move : list) {
    names += rules::NameOf(move.from) + rules::NameOf(move.to) + ' ';
  }
  return names;
}

struct OrderCase {
  const char* name;
  const char* board;
  const char* from;
  const char* targets;  ///< in the order of the list
  const char* lastMove = "";
};

const OrderCase orderCases[] = {
    {"a rook: left, right, down, up", "Rd4 Pb4 pd6", "d4", "c4 e4 f4 g4 h4 d3 d2 d1 d5 d6"},
    {"a queen: as a rook, then as a bishop", "qd4 pb4 pf4 pd2 pd6 pc3 pc5 pf2 Pf6", "d4",
     "c4 e4 d3 d5 e3 e5 f6"},
    {"a knight", "Nd4", "d4", "c6 e6 c2 e2 b5 b3 f5 f3"},
    {"a pawn: steps, then captures", "Pe2 pd3 pf3", "e2", "e3 e4 d3 f3"},
    {"en passant comes before captures", "Pe5 pf5 pd6", "e5", "e6 f6 d6", "f7f5"},
    {"a pawn of column a takes to the right alone", "Pa2 pb3 ph3", "a2", "a3 a4 b3"},
    {"a step onto the last row is one move", "Pe7 rd8", "e7", "e8 d8"},
    {"White's pawn on row 8", "Pe8 rd7", "e8", ""},
    {"a king, column by column, then castling", "Ke1 Ra1 Rh1", "e1", "d1 d2 e2 f1 f2 c1 g1"},
};

TEST(CandidatesTest, APiecesMovesComeInTheirOrder) {
  for (const OrderCase& row : orderCases) {
    SCOPED_TRACE(row.name);
    rules::Place(row.board);
    const Untouched before;
    const Square from = rules::Sq(row.from);
    CandidateList list;
    GenerateMoves(rules::SideOf(from), ThePosition().BoardState.At(from), from, list,
                  rules::After(row.lastMove), NobodyInCheck);
    std::string targets;
    for (const CandidateMove& move : list) {
      EXPECT_EQ(move.from, from);
      if (!targets.empty()) targets += ' ';
      targets += rules::NameOf(move.to);
    }
    EXPECT_EQ(targets, row.targets);
    EXPECT_EQ(Untouched(), before);
  }
}

#ifdef TARVOLENIX_SANITIZED
constexpr int positions = 2000;
#else
constexpr int positions = 100000;
#endif

// On any board, also with several kings of a side or none, and by any piece alone.
TEST(CandidatesTest, MovesComeAsTheLiteralOpponentListsThem) {
  RandomPositions source;
  SortsMet sorts;
  for (int n = 0; n < positions; ++n) {
    const auto turn = source.Next();
    const rules::Untouched before;
    CandidateList list, literal, ofEach;
    GenerateAllMoves(turn.side, list, turn.lastMove, turn.sideInCheck);
    literal::GenerateAllMoves(turn.side, literal, turn.lastMove, turn.sideInCheck);
    ASSERT_EQ(Names(list), Names(literal)) << n << " " << before;
    for (int i = 0; i < 64; ++i) {
      const rules::PieceCode piece = before.board[i];
      if (rules::SideOfPiece(piece) != turn.side) continue;
      GenerateMoves(turn.side, piece, rules::SquareAt(i), ofEach, turn.lastMove, turn.sideInCheck);
    }
    ASSERT_EQ(Names(ofEach), Names(literal)) << n << " " << before;
    ASSERT_EQ(rules::Untouched(), before);
    sorts.Note(turn, list);
  }
  sorts.ExpectEnough(positions);
}

/// The knight stands where the pawn has just gone past, as on no board of a game: who takes it
/// takes both, and nothing keeps the rook from the king any more.
TEST(CandidatesTest, ACaptureThatAlsoTakesInPassingIsTriedOut) {
  rules::Place("Ka5 Pe5 rh5 pd5 nd6 kg8");
  const rules::LastMove lastMove = rules::LastMove::FromText("4745");
  CandidateList list, literal;
  GenerateAllMoves(rules::White, list, lastMove, NobodyInCheck);
  literal::GenerateAllMoves(rules::White, literal, lastMove, NobodyInCheck);
  EXPECT_EQ(Names(list), Names(literal));
}

/// A side's turn, with what the rules have to be told about it.
struct Turn {
  Side side = White;
  LastMove lastMove;
  int sideInCheck = NobodyInCheck;

  CandidateList Moves() const {
    CandidateList list;
    GenerateAllMoves(side, list, lastMove, sideInCheck);
    return list;
  }

  /// Plays the move as a test move; the turn behind it.
  Turn Play(const CandidateMove& move) const {
    Turn next{rules::OtherSide(side), {move.from, move.to}, sideInCheck};
    rules::MakeTestMove(side, move.from, move.to, ThePosition().BoardState.At(move.from), lastMove,
                        next.sideInCheck);
    return next;
  }
};

/// The position on the board, as the second opinion reads it.
PlainChess Plain(const Turn& turn) {
  rules::Position& position = ThePosition();
  PlainChess plain;
  for (int i = 0; i < 64; ++i) plain.squares[i] = ".RNBQKPrnbqkp"[position.BoardState[i]];
  plain.whiteMoves = turn.side == White;
  plain.rights.clear();
  for (const Side side : {White, Black}) {
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

// Castling on both sides, pins, en passant with and without the pin.
constexpr const char* rich =
    "Ra1 Ke1 Rh1 Pa2 Pb2 Pc2 Bd2 Be2 Pf2 Pg2 Ph2 Nc3 Qf3 ph3 pb4 Pe4 Pd5 Ne5 ba6 nb6 pe6 nf6 pg6 "
    "pa7 pc7 pd7 qe7 pf7 bg7 ra8 ke8 rh8";
constexpr const char* passing = "Ka5 Pb5 Rb4 pc7 pd6 pf4 kh4 rh5 Pe2 Pg2";

TEST(CandidatesTest, MovesFromTheStartCountAsTheyAreKnown) {
  rules::Place("start");
  const long counts[] = {20, 400, 8902, 197281, 4865609};
  const Untouched before;
  for (int depth = 1; depth <= 5; ++depth) {
    EXPECT_EQ(CountMoveSequences(White, depth, {}, NobodyInCheck), counts[depth - 1]);
  }
}

std::size_t Replies(const Turn& turn, const CandidateMove& move) {
  Turn next = turn.Play(move);
  const std::size_t replies = next.Moves().size();
  rules::UndoTestMove(next.sideInCheck);
  return replies;
}

/// Lets both sides move from several positions, in half of their turns at random and in the other
/// half to leave few replies, so that there are mates and stalemates; `visit` sees every turn.
template <typename Visit>
void PlayAtRandom(int games, Visit visit) {
  const char* const starts[] = {"start", rich, passing, "Ra1 Qd1 Ke1 Rh1 ra8 qd8 ke8 rh8",
                                "Ke1 Qd1 Ra1 Rh1 Ba3 ke8 pa7 pb7"};
  std::mt19937 random(20260309);
  for (int game = 0; game < games; ++game) {
    rules::Place(starts[game % std::size(starts)]);
    Turn turn;
    for (int ply = 0; ply < 100; ++ply) {
      visit(turn);
      const CandidateList moves = turn.Moves();
      if (moves.empty()) break;
      CandidateMove chosen = moves[random() % moves.size()];
      for (const CandidateMove& move : moves) {
        if (ply % 4 > 1 && Replies(turn, move) < Replies(turn, chosen)) chosen = move;
      }
      turn = turn.Play(chosen);
    }
  }
}

struct Seen {
  int castlings = 0;
  int passings = 0;
  int checks = 0;
  int mates = 0;
  int stalemates = 0;
};

/// Every legal move is found, plays as it should and is taken back without a trace.
void CompareMoves(const Turn& turn, const PlainChess& plain, Seen& seen) {
  const Untouched before;
  PlainChess::Moves found;
  for (const CandidateMove& move : turn.Moves()) {
    found.emplace_back(rules::IndexOf(move.from), rules::IndexOf(move.to));
    const bool pawnAslant = rules::IsPawn(before.board.At(move.from)) && move.from.x != move.to.x;
    seen.passings += pawnAslant && before.board.At(move.to) == rules::NoPiece;
    seen.castlings += rules::KindOf(before.board.At(move.from)) == rules::WhiteKing &&
                      std::abs(move.from.x - move.to.x) == 2;

    Turn next = turn.Play(move);
    const PlainChess expected = plain.Moved(found.back().first, found.back().second);
    EXPECT_EQ(Plain(next).squares, expected.squares);
    EXPECT_EQ(Plain(next).rights, expected.rights);
    EXPECT_EQ(next.sideInCheck == next.side, expected.InCheck(expected.whiteMoves));
    EXPECT_TRUE(rules::SetsInStep(ThePosition().BoardState));
    rules::UndoTestMove(next.sideInCheck);
    EXPECT_EQ(next.sideInCheck, turn.sideInCheck);
    EXPECT_EQ(Untouched(), before);
  }
  const auto byFrom = [](const auto& a, const auto& b) { return a.first < b.first; };
  EXPECT_TRUE(std::is_sorted(found.begin(), found.end(), byFrom)) << "pieces come row by row";
  std::sort(found.begin(), found.end());
  EXPECT_EQ(found, plain.LegalMoves());
}

/// Mate is reasoned and stalemate is searched piece by piece; both must mean "no legal move".
void CompareEnds(const Turn& turn, const PlainChess& plain, Seen& seen) {
  const bool stuck = plain.LegalMoves().empty();
  const bool check = plain.InCheck(plain.whiteMoves);
  using rules::Standing;
  EXPECT_EQ(rules::GameState(turn.side, true, turn.sideInCheck, turn.lastMove),
            !check  ? Standing::Neither
            : stuck ? Standing::Checkmate
                    : Standing::Check);
  EXPECT_EQ(rules::NoLegalMoves(turn.side, turn.lastMove, turn.sideInCheck), stuck);
  seen.checks += check;
  seen.mates += check && stuck;
  seen.stalemates += !check && stuck;
}

TEST(CandidatesTest, RandomGamesAgreeWithASecondOpinion) {
  Seen seen;
  PlayAtRandom(120, [&](const Turn& turn) {
    const PlainChess plain = Plain(turn);
    CompareMoves(turn, plain, seen);
    CompareEnds(turn, plain, seen);
    ASSERT_FALSE(::testing::Test::HasFailure()) << plain.squares << " side " << turn.side;
  });
  EXPECT_GT(seen.castlings, 500) << "too few for a comparison";
  EXPECT_GT(seen.passings, 30);
  EXPECT_GT(seen.checks, 500);
  EXPECT_GT(seen.mates, 10);
  EXPECT_GT(seen.stalemates, 4);
}

}  // namespace
}  // namespace ai
