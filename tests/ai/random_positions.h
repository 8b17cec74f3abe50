// SPDX-License-Identifier: GPL-3.0-or-later
// Positions of every sort for the computer opponent, always the same ones in the same order, each
// with a table of its own.
#pragma once

#include <gtest/gtest.h>

#include <random>

#include "ai/candidates.h"
#include "ai/heuristics.h"
#include "rules/rules_fixture.h"
#include "rules/test_moves.h"

namespace ai {

using rules::ThePosition;

/// A side's turn in the position that is up, with what the rules have to be told about it.
struct Turn {
  rules::Side side = rules::White;
  rules::LastMove lastMove;
  int sideInCheck = rules::NobodyInCheck;

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

  std::size_t RepliesTo(const CandidateMove& move) const {
    Turn next = Play(move);
    const std::size_t replies = next.Moves().size();
    rules::UndoTestMove(next.sideInCheck);
    return replies;
  }
};

class RandomPositions {
 public:
  /// Puts up the next position, from play or from a heap of pieces, and mixes the table for it.
  Turn Next() {
    ++count_;
    const int reach = count_ % 5 == 0 ? 32767 : 200;
    for (auto& value : Heuristics) value = static_cast<std::int16_t>(Draw(2 * reach + 1) - reach);
    return count_ % 3 == 0 ? FromHeap() : FromPlay();
  }

  /// One more move of a game; half of the moves leave few replies, so that games end in mates and
  /// stalemates, too. A new game begins after an end, and now and then.
  Turn FromPlay() {
    static constexpr const char* starts[] = {
        "start",
        ("Ra1 Ke1 Rh1 Pa2 Pb2 Pc2 Bd2 Be2 Pf2 Pg2 Ph2 Nc3 Qf3 ph3 pb4 Pe4 Pd5 Ne5 ba6 nb6 pe6 nf6 "
         "pg6 pa7 pc7 pd7 qe7 pf7 bg7 ra8 ke8 rh8"),
        "Ka5 Pb5 Rb4 pc7 pd6 pf4 kh4 rh5 Pe2 Pg2",
        "Ra1 Qd1 Ke1 Rh1 ra8 qd8 ke8 rh8",
        "Ke1 Pa7 Pb7 Qg2 ke8 pa2 qb2 pg7",
        "Kg1 Rd1 Bb3 Qh5 Ne5 Pf2 Pg2 kg8 rf8 bb7 qd8 nf6 pg7"};
    ThePosition() = game_;
    const CandidateList moves = turn_.Moves();
    if (moves.empty() || Draw(60) == 0) {
      rules::Place(starts[Draw(std::size(starts))]);
      turn_ = {};
    } else {
      CandidateMove chosen = moves[static_cast<std::size_t>(Draw(static_cast<int>(moves.size())))];
      const bool hunts = Draw(4) > 1;
      for (const CandidateMove& move : moves) {
        if (hunts && turn_.RepliesTo(move) < turn_.RepliesTo(chosen)) chosen = move;
      }
      turn_ = turn_.Play(chosen);
      rules::ClearTestMoves();
    }
    game_ = ThePosition();
    return turn_;
  }

 private:
  int Draw(std::size_t below) { return static_cast<int>(random_() % below); }

  /// Any pieces anywhere: kings missing or in plenty, pawns on the last rows, flags at will.
  Turn FromHeap() {
    ThePosition() = {};
    const bool queens = count_ % 33 == 0;
    const int pieces = 1 + (queens ? 8 + Draw(4) : Draw(count_ % 7 == 0 ? 64 : 24));
    const rules::PieceCode queen = rules::OfSide(rules::WhiteQueen, Draw(2));
    const bool oneKingEach = Draw(4) != 0;
    rules::BoardSquares& board = ThePosition().BoardState;
    for (int n = 0; n < pieces; ++n) {
      const rules::PieceCode piece = queens ? queen : 1 + Draw(12);
      const rules::Square square = rules::SquareAt(Draw(64));
      if (!oneKingEach || rules::KindOf(piece) != rules::WhiteKing) board.Put(square, piece);
    }
    if (oneKingEach) {
      board.Put(rules::SquareAt(Draw(32)), rules::WhiteKing);
      board.Put(rules::SquareAt(32 + Draw(32)), rules::BlackKing);
    }
    rules::RebuildCastleState();
    if (Draw(2) == 0) {
      for (bool& flag : ThePosition().CastleState) flag = Draw(2) != 0;
    }
    const int x = 1 + Draw(8);
    const rules::LastMove steps[] = {{}, {}, {{x, 2}, {x, 4}}, {{x, 7}, {x, 5}}};
    return {Draw(2), steps[Draw(4)], Draw(3) - 1};
  }

  std::mt19937 random_{20260309};
  int count_ = 0;
  rules::Position game_;
  Turn turn_;
};

}  // namespace ai
