// SPDX-License-Identifier: GPL-3.0-or-later
// A match of two tables of motivations: the computer opponent against itself, to see which plays
// better, and how each plays.
//
// Games begin with a few moves out of a small book, each opening once with either colour. They end
// by the rules of the program's own games against the computer: mate, stalemate, a forced draw, and
// a pawn that reaches the last row stays a pawn. As neither side would ever offer a draw, the third
// occurrence of a position and a limit of moves count as drawn, too.
#pragma once

#include <array>
#include <atomic>
#include <cstdint>
#include <functional>
#include <optional>

#include "ai/heuristics.h"
#include "rules/position.h"

namespace ai {

/// After so many moves of each side a game is drawn.
inline constexpr int matchMoveLimit = 150;

struct MatchOrder {
  std::array<HeuristicTable, 2> tables;
  int games = 1;
  int maxDepth = 1;
  std::uint64_t seed = 0;
  int threads = 1;
};

enum class GameEnd { Mate, Stalemate, ForcedDraw, Repetition, MoveLimit };
inline constexpr int gameEndCount = 5;

/// What is counted of a player's moves. Those of the book aren't his.
enum MoveFigure {
  AllMoves,
  Captures,
  Checks,
  Castlings,
  PawnMoves,
  KingMoves,
  QueenMoves,
  AdvancedMoves,  ///< to a square of the other half of the board
  moveFigureCount
};
using MoveFigures = std::array<int, moveFigureCount>;

struct PlayedGame {
  int number = 0;  ///< from 1
  int white = 0;   ///< which table White played with
  rules::Side winner = rules::NoSide;
  int moves = 0;  ///< of each side, the last one counting whole
  GameEnd end = GameEnd::MoveLimit;
  std::array<MoveFigures, 2> figures{};  ///< by table
};

/// Hears of each game, in the order of their numbers, one at a time but on any thread.
using ReportGame = std::function<void(const PlayedGame& game)>;

/// Plays a match; the same order has the same games with any number of threads. When `stopped`
/// becomes true the games that are being played are dropped, and so are those to come.
void PlayMatch(const MatchOrder& order, const ReportGame& report, const std::atomic<bool>& stopped);

/// How many rating points a player is ahead, give or take an error.
struct RatingDifference {
  double elo = 0;
  double error = 0;
};

/// The difference that makes the score of so many games likely, by the logistic curve of A. E. Elo,
/// "The Rating of Chessplayers, Past and Present" (1978): a player who is d points ahead scores
/// 1 / (1 + 10^(-d / 400)). The error is half of what the curve makes of the normal approximation's
/// interval of 95 % around the mean score of a game. Nothing where all games ended alike, which
/// tells no error, or where the interval reaches a score of none or of all, which no difference
/// explains.
std::optional<RatingDifference> RatingDifferenceOf(int won, int drawn, int lost);

}  // namespace ai
