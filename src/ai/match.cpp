// SPDX-License-Identifier: GPL-3.0-or-later
#include "ai/match.h"

#include <algorithm>
#include <cassert>
#include <cmath>
#include <mutex>
#include <string_view>
#include <system_error>
#include <thread>
#include <utility>
#include <vector>

#include "ai/search.h"
#include "platform/text_fields.h"
#include "rules/attack.h"
#include "rules/board_text.h"
#include "rules/game_end.h"
#include "rules/piece_moves.h"

namespace ai {
namespace {

using rules::PieceCode;
using rules::Side;
using rules::ThePosition;

/// Sound openings, as the coordinates of their moves. Neighbours differ, so that a short match sees
/// open and closed games.
constexpr std::string_view openings[] = {
    "5254 5755 7163 2836",            // e4 e5 Nf3 Nc6
    "4244 4745 3234 5756",            // d4 d5 c4 e6
    "5254 3735 7163 4746",            // e4 c5 Nf3 d6
    "4244 7866 3234 7776",            // d4 Nf6 c4 g6
    "5254 5756 4244 4745",            // e4 e6 d4 d5
    "3234 5755 2133 7866",            // c4 e5 Nc3 Nf6
    "5254 3736 4244 4745",            // e4 c6 d4 d5
    "7163 4745 7273 7866",            // Nf3 d5 g3 Nf6
    "5254 5755 7163 7866",            // e4 e5 Nf3 Nf6
    "4244 4745 3234 3736",            // d4 d5 c4 c6
    "5254 3735 7163 2836 4244 3544",  // e4 c5 Nf3 Nc6 d4 cxd4
    "4244 7866 3234 5756 2133 6824",  // d4 Nf6 c4 e6 Nc3 Bb4
    "5254 5755 7163 2836 6125 1716",  // e4 e5 Nf3 Nc6 Bb5 a6
    "4244 6765 7273 7866",            // d4 f5 g3 Nf6
    "5254 4746 4244 7866 2133 7776",  // e4 d6 d4 Nf6 Nc3 g6
    "3234 3735 2133 2836",            // c4 c5 Nc3 Nc6
    "5254 5755 7163 2836 6134 6835",  // e4 e5 Nf3 Nc6 Bc4 Bc5
    "4244 4745 7163 7866 5253 5756",  // d4 d5 Nf3 Nf6 e3 e6
    "5254 4745 5445 4845",            // e4 d5 exd5 Qxd5
    "5254 5755 2133 7866",            // e4 e5 Nc3 Nf6
};

/// One game, on this thread's position.
class Game {
 public:
  Game(const MatchOrder& order, int index) : order_(order) {
    played_.number = index + 1;
    played_.white = index % 2;
    ThePosition() = {};
    ThePosition().BoardState = rules::ReadBoardText(rules::normalStart);
    rules::RebuildCastleState();
    const std::string_view opening =
        openings[static_cast<std::size_t>(index) / 2 % std::size(openings)];
    platform::FieldWalk moves(opening, ' ');
    for (int n = platform::CountFields(opening, ' '); n > 0; --n) {
      const auto move = rules::LastMove::FromText(moves.Next());
      assert(IsLegal(move));
      Play(move);
    }
    played_.figures = {};
  }

  /// Nothing where it was stopped.
  std::optional<PlayedGame> ToItsEnd(const std::atomic<bool>& stopped) {
    std::optional<GameEnd> end;
    while (!end) {
      if (stopped) return std::nullopt;
      const CandidateMove move = Choose();
      end = Play({move.from, move.to});
    }
    played_.end = *end;
    played_.moves = (halfMoves_ + 1) / 2;
    if (played_.end == GameEnd::Mate) played_.winner = rules::OtherSide(side_);
    return played_;
  }

 private:
  int TableOfSide() const { return side_ == rules::White ? played_.white : 1 - played_.white; }

  bool IsLegal(rules::LastMove move) const {
    CandidateList list;
    GenerateAllMoves(side_, list, lastMove_, ThePosition().SideInCheck);
    return std::ranges::any_of(list, [&](const CandidateMove& legal) {
      return legal.from == move.from && legal.to == move.to;
    });
  }

  CandidateMove Choose() const {
    constexpr std::uint64_t drawsOfAGame = 1U << 16;
    SearchOrder order;
    order.maxDepth = order_.maxDepth;
    order.side = side_;
    order.lastMove = lastMove_;
    order.sideInCheck = ThePosition().SideInCheck;
    order.seed = order_.seed + static_cast<std::uint64_t>(played_.number) * drawsOfAGame +
                 static_cast<std::uint64_t>(halfMoves_);
    order.heuristics = order_.tables[TableOfSide()];
    SearchWatch watch;
    return SearchBestMove(order, watch).best;
  }

  /// Plays a legal move and turns to the other side, whose game may be over then.
  std::optional<GameEnd> Play(rules::LastMove move) {
    rules::Position& position = ThePosition();
    const PieceCode piece = position.BoardState.At(move.from);
    const rules::Bitboard enemies = position.BoardState.OfSide(rules::OtherSide(side_));
    const rules::Castling castling = rules::CarryOut(side_, piece, move.from, move.to, lastMove_);
    const Side enemy = rules::OtherSide(side_);
    const rules::Standing standing = rules::GameState(enemy, true, position.SideInCheck, move);
    const bool check = standing != rules::Standing::Neither;
    position.SideInCheck = check ? enemy : rules::NobodyInCheck;
    Count(piece, move.to, enemies != position.BoardState.OfSide(enemy), check,
          castling != rules::Castling::None);
    side_ = enemy;
    lastMove_ = move;
    ++halfMoves_;
    return EndAfter(standing);
  }

  void Count(PieceCode piece, rules::Square to, bool captures, bool checks, bool castles) {
    const PieceCode kind = rules::KindOf(piece);
    MoveFigures& figures = played_.figures[TableOfSide()];
    ++figures[AllMoves];
    figures[Captures] += captures;
    figures[Checks] += checks;
    figures[Castlings] += castles;
    figures[PawnMoves] += kind == rules::WhitePawn;
    figures[KingMoves] += kind == rules::WhiteKing;
    figures[QueenMoves] += kind == rules::WhiteQueen;
    figures[AdvancedMoves] += (to.y > 4) == (side_ == rules::White);
  }

  std::optional<GameEnd> EndAfter(rules::Standing standing) {
    if (standing == rules::Standing::Checkmate) return GameEnd::Mate;
    if (rules::NoLegalMoves(side_, lastMove_, ThePosition().SideInCheck)) return GameEnd::Stalemate;
    if (rules::ForcedDrawType() != rules::ForcedDraw::None) return GameEnd::ForcedDraw;
    if (IsThirdTime()) return GameEnd::Repetition;
    if (halfMoves_ >= 2 * matchMoveLimit) return GameEnd::MoveLimit;
    return std::nullopt;
  }

  bool IsThirdTime() {
    const rules::Position& position = ThePosition();
    auto& earlier = earlier_[side_];
    earlier.emplace_back(position.BoardState, position.CastleState);
    return std::count(earlier.begin(), earlier.end(), earlier.back()) >= 3;
  }

  using Repeatable = std::pair<rules::BoardSquares, rules::CastleFlags>;

  const MatchOrder& order_;
  PlayedGame played_;
  Side side_ = rules::White;
  rules::LastMove lastMove_;
  int halfMoves_ = 0;
  std::array<std::vector<Repeatable>, 2> earlier_;  // by the side to move
};

/// Hands on games that end in any order in the order of their numbers.
class GamesInOrder {
 public:
  GamesInOrder(int games, const ReportGame& report)
      : ended_(static_cast<std::size_t>(games)), report_(report) {}

  void Add(const PlayedGame& game) {
    const std::scoped_lock lock(mutex_);
    ended_[static_cast<std::size_t>(game.number - 1)] = game;
    while (next_ < ended_.size() && ended_[next_]) report_(*ended_[next_++]);
  }

  /// Those as well that had to wait for one that was dropped.
  void ReportRest() {
    for (; next_ < ended_.size(); ++next_) {
      if (ended_[next_]) report_(*ended_[next_]);
    }
  }

 private:
  std::mutex mutex_;
  std::vector<std::optional<PlayedGame>> ended_;
  std::size_t next_ = 0;
  const ReportGame& report_;
};

double EloOf(double score) { return 400 * std::log10(score / (1 - score)); }

}  // namespace

void PlayMatch(const MatchOrder& order, const ReportGame& report,
               const std::atomic<bool>& stopped) {
  GamesInOrder games(order.games, report);
  std::atomic<int> next = 0;
  const auto play = [&] {
    for (int index = next++; index < order.games && !stopped; index = next++) {
      if (const auto game = Game(order, index).ToItsEnd(stopped)) games.Add(*game);
    }
  };
  {
    std::vector<std::jthread> helpers;
    try {
      for (int n = 1; n < order.threads; ++n) helpers.emplace_back(play);
    } catch (const std::system_error&) {
      // Those that are there play all of them.
    }
    play();
  }
  games.ReportRest();
}

std::optional<RatingDifference> RatingDifferenceOf(int won, int drawn, int lost) {
  constexpr double deviationsOf95Percent = 1.959964;
  const double games = won + drawn + lost;
  const double mean = (won + drawn / 2.0) / games;
  const auto squared = [mean](double score) { return (score - mean) * (score - mean); };
  const double variance = (won * squared(1) + drawn * squared(0.5) + lost * squared(0)) / games;
  const double margin = deviationsOf95Percent * std::sqrt(variance / games);
  if (!(margin > 0 && mean - margin > 0 && mean + margin < 1)) return std::nullopt;
  return RatingDifference{EloOf(mean), (EloOf(mean + margin) - EloOf(mean - margin)) / 2};
}

}  // namespace ai
