// SPDX-License-Identifier: GPL-3.0-or-later
// The score of a move as one would write it down: squares walked, ValidMove asked, nothing shared
// and nothing remembered. It is slow, and the measure for the program's own.
#pragma once

#include <algorithm>
#include <cmath>

#include "ai/heuristics.h"
#include "rules/attack.h"
#include "rules/piece_moves.h"
#include "rules/test_moves.h"

namespace ai::literal {

using rules::ThePosition;

inline rules::PieceCode At(int x, int y) { return ThePosition().BoardState.At(x, y); }
inline int Side(int x, int y) { return rules::SideOf({x, y}); }

/// The kind of a piece of either side, from 1 for a rook to 6 for a pawn.
inline int Kind(rules::PieceCode piece) { return piece > 6 ? piece - 6 : piece; }

/// One of five motivations in a row, for a rook, knight, bishop, queen and pawn; a king has none.
inline int Group(rules::PieceCode piece, int first) {
  constexpr int none = -1;
  constexpr int places[] = {none, 0, 1, 2, 3, none, 4};
  const int place = places[Kind(piece)];
  return place == none ? 0 : Heuristics[first + place];
}

inline bool Reaches(rules::PieceCode piece, int side, int fromX, int fromY, int x, int y,
                    int inCheck) {
  return rules::ValidMove(side, piece, {fromX, fromY}, {x, y}, true, inCheck, {}, false);
}

inline rules::Square Find(rules::PieceCode piece) {
  for (int y = 1; y <= 8; ++y) {
    for (int x = 1; x <= 8; ++x) {
      if (At(x, y) == piece) return {x, y};
    }
  }
  return {};
}

inline double Distance(int x, int y, rules::Square to) {
  return std::sqrt(std::pow(x - to.x, 2) + std::pow(y - to.y, 2));
}

inline double Nearing(int motivation, double before, double after) {
  if (after < before) return motivation;
  return after > before ? -std::floor(motivation / 2.0) : 0;
}

inline int RightsBonus(int side, rules::PieceCode piece, int fromX) {
  const rules::CastleFlags& moved = ThePosition().CastleState;
  const bool rook1 = moved[side], king = moved[side + 2], rook8 = moved[side + 4];
  if (Kind(piece) == 5) return king ? 0 : Heuristics[52];
  if (Kind(piece) != 1) return 0;
  if (fromX == 1) return king || rook1 ? 0 : rook8 ? Heuristics[50] : Heuristics[51];
  if (fromX == 8) return king || rook8 ? 0 : rook1 ? Heuristics[50] : Heuristics[51];
  return 0;
}

inline std::int16_t In16Bits(double score) {
  return static_cast<std::int16_t>(std::clamp(score, -32768.0, 32767.0));
}

inline int CountAttackers(rules::Side side, int x, int y, int sideInCheck) {
  int count = 0;
  for (int py = 1; py <= 8; ++py) {
    for (int px = 1; px <= 8; ++px) {
      if ((px == x && py == y) || Side(px, py) != side) continue;
      if (Reaches(At(px, py), side, px, py, x, y, sideInCheck)) ++count;
    }
  }
  return count;
}

inline int PinBonus(rules::Side side, int x, int y) {
  const int kind = Kind(At(x, y));
  static constexpr int steps[8][2] = {{-1, 0},  {1, 0},  {0, -1}, {0, 1},
                                      {-1, -1}, {-1, 1}, {1, -1}, {1, 1}};
  int bonus = 0;
  for (int ray = 0; ray < 8; ++ray) {
    const bool straight = ray < 4;
    if (kind != 4 && !(kind == 1 && straight) && !(kind == 3 && !straight)) continue;
    rules::PieceCode first = 0;
    for (int n = 1; n < 8; ++n) {
      const int px = x + n * steps[ray][0], py = y + n * steps[ray][1];
      if (px < 1 || px > 8 || py < 1 || py > 8 || Side(px, py) == side) break;
      if (At(px, py) == 0) continue;
      if (At(px, py) == (side == 0 ? 11 : 5)) {
        if (first == 0) continue;
        bonus += Group(first, kind == 1 ? 37 : kind == 3 ? 32 : 42);
        break;
      }
      if (first == 0) first = At(px, py);
    }
  }
  return bonus;
}

/// The score of one pass, before the move or with the move played.
inline std::int16_t EvaluateMove(int fromX, int fromY, int toX, int toY, int sideInCheck,
                                 bool doMove, rules::LastMove lastMove) {
  const int mover = Side(fromX, fromY);
  const int other = 1 - mover;
  const rules::PieceCode piece = At(fromX, fromY);
  double score = 0;
  if (doMove) {
    rules::MakeTestMove(mover, {fromX, fromY}, {toX, toY}, piece, lastMove, sideInCheck);
  }
  const rules::LastMove move{{fromX, fromY}, {toX, toY}};
  const rules::Standing standing =
      rules::GameState(other, true, sideInCheck, doMove ? move : rules::LastMove{});
  if (standing == rules::Standing::Checkmate) {
    if (doMove) rules::UndoTestMove(sideInCheck);
    return 1000;
  }
  if (standing == rules::Standing::Check) score += Heuristics[0];
  for (int y = 1; y <= 8; ++y) {
    for (int x = 1; x <= 8; ++x) {
      if (Side(x, y) != mover) continue;
      score += Group(At(x, y), 1) * CountAttackers(other, x, y, sideInCheck);
      if (Reaches(piece, mover, toX, toY, x, y, sideInCheck)) score += Group(At(x, y), 6);
    }
  }
  const int sx = doMove ? toX : fromX, sy = doMove ? toY : fromY;
  const int mine = CountAttackers(mover, sx, sy, sideInCheck);
  const int theirs = CountAttackers(other, sx, sy, sideInCheck);
  if (theirs > 0 && mine == 0) score += Group(At(sx, sy), 27);
  if (mine > 0 || theirs == 0) score += PinBonus(mover, sx, sy);
  if (rules::DetectCastling(mover, {fromX, fromY}, {toX, toY}) != rules::Castling::None) {
    score += Heuristics[53];
  }
  if (doMove) {
    rules::UndoTestMove(sideInCheck);
    const rules::Square king = Find(other == 0 ? 5 : 11);
    score += Nearing(Heuristics[47], std::floor(Distance(fromX, fromY, king)),
                     std::floor(Distance(toX, toY, king)));
    const rules::Square queen = Find(other == 0 ? 4 : 10);
    if (queen.x != 0) {
      score += Nearing(Heuristics[48], std::floor(Distance(fromX, fromY, queen)),
                       std::floor(Distance(toX, toY, queen)));
    }
    score += Nearing(Heuristics[49], std::nearbyint(Distance(fromX, fromY, {4, 4})),
                     std::nearbyint(Distance(toX, toY, {4, 4})));
    score += Group(At(toX, toY), 11);
    if (Side(toX, toY) == other && CountAttackers(other, toX, toY, sideInCheck) == 0) {
      score += Group(At(toX, toY), 22);
    }
    static constexpr int ofMoving[] = {0, 16, 17, 18, 19, 21, 20};
    score += Heuristics[ofMoving[Kind(piece)]];
  }
  return In16Bits(score + RightsBonus(mover, piece, fromX));
}

}  // namespace ai::literal
