// SPDX-License-Identifier: GPL-3.0-or-later
// A second opinion on legal moves: letters on 64 squares, every move tried on a copy, nothing
// shared with the rules under test. It plays chess but for what test moves leave out on purpose: a
// pawn on the last row stays a pawn, a rook taken at home doesn't end that castling, and a rook
// that leaves any column but the first counts as the one of column 8.
#pragma once

#include <cctype>
#include <cstdlib>
#include <string>
#include <utility>
#include <vector>

namespace ai {

struct PlainChess {
  std::string squares = std::string(64, '.');  ///< a1, b1, ...; White in capitals
  bool whiteMoves = true;
  std::string rights = "KQkq";  ///< castling still open, a blank for each that is gone
  int passed = -1;              ///< the square behind a pawn that has just made a double step

  static bool IsWhite(char c) { return c >= 'A' && c <= 'Z'; }
  char Own(char kind) const { return static_cast<char>(whiteMoves ? kind : std::tolower(kind)); }
  bool IsOwn(char c) const { return c != '.' && IsWhite(c) == whiteMoves; }

  /// True if the piece on `from` attacks `to`, by the shape of its move.
  bool Attacks(int from, int to) const {
    const int dx = to % 8 - from % 8;
    const int dy = to / 8 - from / 8;
    const char kind = static_cast<char>(std::toupper(squares[from]));
    if (kind == 'P') return std::abs(dx) == 1 && dy == (IsWhite(squares[from]) ? 1 : -1);
    if (kind == 'N') return std::abs(dx * dy) == 2;
    if (kind == 'K') return from != to && std::abs(dx) <= 1 && std::abs(dy) <= 1;
    const bool straight = kind != 'B' && (dx == 0) != (dy == 0);
    const bool aslant = kind != 'R' && dx != 0 && std::abs(dx) == std::abs(dy);
    return (straight || aslant) && IsClear(from, to);
  }

  bool IsClear(int from, int to) const {
    const auto sign = [](int n) { return (n > 0) - (n < 0); };
    const int step = sign(to % 8 - from % 8) + 8 * sign(to / 8 - from / 8);
    for (int i = from + step; i != to; i += step) {
      if (squares[i] != '.') return false;
    }
    return true;
  }

  bool IsAttacked(int square, bool byWhite) const {
    for (int from = 0; from < 64; ++from) {
      if (squares[from] != '.' && IsWhite(squares[from]) == byWhite && Attacks(from, square)) {
        return true;
      }
    }
    return false;
  }

  bool InCheck(bool white) const {
    const auto king = squares.find(white ? 'K' : 'k');
    return king != std::string::npos && IsAttacked(static_cast<int>(king), !white);
  }

  bool MayCastle(int from, int to) const {
    const int home = whiteMoves ? 4 : 60;
    if (from != home || std::abs(to - from) != 2) return false;
    const int corner = to > from ? home + 3 : home - 4;
    return rights.find(Own(to > from ? 'K' : 'Q')) != std::string::npos && IsClear(from, corner) &&
           !InCheck(whiteMoves) && !IsAttacked((from + to) / 2, !whiteMoves);
  }

  bool MayStep(int from, int to) const {
    const int ahead = whiteMoves ? 8 : -8;
    if (to == from + ahead) return squares[to] == '.';
    return to == from + 2 * ahead && from / 8 == (whiteMoves ? 1 : 6) && squares[to] == '.' &&
           squares[from + ahead] == '.';
  }

  /// The position behind a move that the pieces' ways allow.
  PlainChess Moved(int from, int to) const {
    PlainChess next = *this;
    const char piece = squares[from];
    const char kind = static_cast<char>(std::toupper(piece));
    next.squares[from] = '.';
    next.squares[to] = piece;
    next.passed = -1;
    if (kind == 'P' && to == passed) next.squares[to + (whiteMoves ? -8 : 8)] = '.';
    if (kind == 'P' && std::abs(to - from) == 16) next.passed = (from + to) / 2;
    if (kind == 'K' && std::abs(to % 8 - from % 8) == 2) {
      next.squares[to > from ? from + 3 : from - 4] = '.';
      next.squares[(from + to) / 2] = Own('R');
    }
    for (char& right : next.rights) {
      if (right == ' ' || IsWhite(right) != whiteMoves) continue;
      const bool column1 = std::toupper(right) == 'Q';
      if (kind == 'K' || (kind == 'R' && (from % 8 == 0) == column1)) right = ' ';
    }
    next.whiteMoves = !whiteMoves;
    return next;
  }

  using Moves = std::vector<std::pair<int, int>>;

  Moves LegalMoves() const {
    Moves moves;
    for (int from = 0; from < 64; ++from) {
      if (!IsOwn(squares[from])) continue;
      for (int to = 0; to < 64; ++to) {
        if (MayGo(from, to) && !Moved(from, to).InCheck(whiteMoves)) moves.emplace_back(from, to);
      }
    }
    return moves;
  }

  bool MayGo(int from, int to) const {
    const char kind = static_cast<char>(std::toupper(squares[from]));
    const char target = squares[to];
    if (IsOwn(target) || std::toupper(target) == 'K') return false;
    if (kind != 'P') return Attacks(from, to) || (kind == 'K' && MayCastle(from, to));
    return MayStep(from, to) || (Attacks(from, to) && (target != '.' || to == passed));
  }
};

}  // namespace ai
