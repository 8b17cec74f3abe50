// SPDX-License-Identifier: GPL-3.0-or-later
// Positions of every sort for the computer opponent, always the same ones in the same order, each
// with a table of its own.
#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <random>
#include <string>

#include "ai/candidates.h"
#include "ai/heuristics.h"
#include "rules/attack.h"
#include "rules/piece_moves.h"
#include "rules/rules_fixture.h"
#include "rules/test_moves.h"

namespace ai {

using rules::ThePosition;

class RandomPositions {
 public:
  /// The side to move, what it has to know of check and of the move before.
  struct Turn {
    rules::Side side = rules::NoSide;
    int sideInCheck = rules::NobodyInCheck;
    rules::LastMove lastMove;
  };

  /// Puts up the next position: from play, from a heap of pieces, or from something in between.
  Turn Next() {
    ++count_;
    MixTable();
    return count_ % 3 == 0 ? FromHeap() : FromPlay();
  }

 private:
  int Draw(int below) { return static_cast<int>(random_() % static_cast<unsigned>(below)); }

  void MixTable() {
    const int reach = count_ % 5 == 0 ? 32767 : 200;
    for (auto& value : Heuristics) {
      value = static_cast<std::int16_t>(Draw(2 * reach + 1) - reach);
    }
  }

  /// Any pieces anywhere: kings missing or in plenty, pawns on the last rows, flags at will.
  Turn FromHeap() {
    ThePosition() = {};
    const bool queens = count_ % 33 == 0;
    const int pieces = 1 + (queens ? 8 + Draw(4) : Draw(count_ % 7 == 0 ? 64 : 24));
    const rules::PieceCode queen = rules::OfSide(rules::WhiteQueen, Draw(2));
    for (int n = 0; n < pieces; ++n) {
      ThePosition().BoardState.Put(rules::SquareAt(Draw(64)), queens ? queen : 1 + Draw(12));
    }
    if (Draw(4) != 0) KeepOneKingEach();
    if (Draw(2) != 0) {
      rules::RebuildCastleState();
    } else {
      for (bool& flag : ThePosition().CastleState) flag = Draw(2) != 0;
    }
    return {Draw(2), Draw(3) - 1, AnyLastMove()};
  }

  void KeepOneKingEach() {
    for (const rules::PieceCode king : {rules::WhiteKing, rules::BlackKing}) {
      for (rules::Bitboard kings = ThePosition().BoardState.Of(king); kings != 0;) {
        ThePosition().BoardState.Put(rules::SquareAt(rules::TakeLowest(kings)), rules::NoPiece);
      }
    }
    ThePosition().BoardState.Put(rules::SquareAt(Draw(32)), rules::WhiteKing);
    ThePosition().BoardState.Put(rules::SquareAt(32 + Draw(32)), rules::BlackKing);
  }

  rules::LastMove AnyLastMove() {
    if (Draw(2) == 0) return {};
    const int x = 1 + Draw(8);
    return Draw(2) == 0 ? rules::LastMove{{x, 2}, {x, 4}} : rules::LastMove{{x, 7}, {x, 5}};
  }

  /// One more move of a game that begins anew now and then.
  Turn FromPlay() {
    if (Draw(60) == 0 || turn_.side == rules::NoSide) {
      static constexpr const char* starts[] = {
          "start", "start", "Ke1 Ra1 Rh1 Pb2 Pg2 Pd5 ke8 ra8 rh8 pb7 pc7 pg7",
          "Ke1 Pa7 Pb7 Qg2 ke8 pa2 qb2 pg7", "Kg1 Rd1 Bb3 Qh5 Ne5 Pf2 Pg2 kg8 rf8 bb7 qd8 nf6 pg7"};
      rules::Place(starts[Draw(5)]);
      turn_ = {rules::White, rules::NobodyInCheck, {}};
    } else {
      ThePosition() = game_;
    }
    CandidateList list;
    GenerateAllMoves(turn_.side, list, turn_.lastMove, turn_.sideInCheck);
    if (list.empty()) {
      turn_.side = rules::NoSide;
      return FromPlay();
    }
    const CandidateMove& move = list[static_cast<std::size_t>(Draw(static_cast<int>(list.size())))];
    rules::MakeTestMove(turn_.side, move.from, move.to, ThePosition().BoardState.At(move.from),
                        turn_.lastMove, turn_.sideInCheck);
    rules::ClearTestMoves();
    turn_.side = rules::OtherSide(turn_.side);
    turn_.lastMove = {move.from, move.to};
    game_ = ThePosition();
    return turn_;
  }

  std::mt19937 random_{20260309};
  int count_ = 0;
  rules::Position game_;
  Turn turn_;
};

/// How many positions there were of the sorts that are easily wrong. A comparison shows by this
/// that it was worth making.
struct SortsMet {
  std::map<std::string, int> counts{{"castling", 0},      {"en passant", 0}, {"pin", 0},
                                    {"check", 0},         {"last row", 0},   {"king missing", 0},
                                    {"several kings", 0}, {"many moves", 0}, {"no move", 0}};

  void Note(const RandomPositions::Turn& turn, const CandidateList& list) {
    constexpr rules::Bitboard lastRows = 0xff000000000000ffU;
    const rules::BoardSquares& board = ThePosition().BoardState;
    const auto kings = [&](rules::Side side) {
      return rules::CountSquares(board.Of(rules::OfSide(rules::WhiteKing, side)));
    };
    const auto any = [&](auto isSo) { return std::any_of(list.begin(), list.end(), isSo); };
    counts["castling"] += any([&](const CandidateMove& move) {
      return rules::DetectCastling(turn.side, move.from, move.to) != rules::Castling::None;
    });
    counts["en passant"] += any([&](const CandidateMove& move) {
      return rules::TakesEnPassant(move.from, move.to, turn.lastMove, turn.side);
    });
    counts["pin"] += rules::PinnedPieces(turn.side) != 0;
    counts["check"] += rules::IsInCheck(turn.side);
    counts["last row"] +=
        ((board.Of(rules::WhitePawn) | board.Of(rules::BlackPawn)) & lastRows) != 0;
    counts["king missing"] += kings(rules::White) == 0 || kings(rules::Black) == 0;
    counts["several kings"] += kings(rules::White) > 1 || kings(rules::Black) > 1;
    counts["many moves"] += list.size() > 121;
    counts["no move"] += list.empty();
  }

  void ExpectEnough(int positions) const {
    for (const auto& [sort, count] : counts) EXPECT_GT(count, positions / 2000) << sort;
  }
};

}  // namespace ai
