// SPDX-License-Identifier: GPL-3.0-or-later
// The one chess position: a board of 64 piece codes and the few flags of the game beside it. No
// position object is passed around. A test that tries a move changes the position, asks its
// question and puts the position back.
//
// The record is thread_local: the window's thread has the program's one position, and a search
// thread works on a copy of its own with the very same operations.
#pragma once

#include <array>
#include <cassert>
#include <cstdint>
#include <string_view>

#include "rules/bitboard.h"

namespace rules {

using Side = int;
inline constexpr Side White = 0;
inline constexpr Side Black = 1;
inline constexpr Side NoSide = 2;

/// SideInCheck where neither side stands in check.
inline constexpr int NobodyInCheck = -1;

constexpr Side OtherSide(Side side) { return 1 - side; }

/// Rows from which the sides start: 1 for White, 8 for Black.
constexpr int HomeRow(Side side) { return side * 7 + 1; }

/// The direction in which a side's pawns move.
constexpr int PawnDirection(Side side) { return side == White ? 1 : -1; }

using PieceCode = int;
enum : PieceCode {
  NoPiece = 0,
  WhiteRook,
  WhiteKnight,
  WhiteBishop,
  WhiteQueen,
  WhiteKing,
  WhitePawn,
  BlackRook,
  BlackKnight,
  BlackBishop,
  BlackQueen,
  BlackKing,
  BlackPawn
};

/// The code of a White piece, or of the same piece for Black.
constexpr PieceCode OfSide(PieceCode whitePiece, Side side) { return whitePiece + 6 * side; }

/// The White code of a piece of either side: its kind.
constexpr PieceCode KindOf(PieceCode piece) { return piece > WhitePawn ? piece - 6 : piece; }

constexpr Side SideOfPiece(PieceCode piece) {
  return piece == NoPiece ? NoSide : piece > WhitePawn ? Black : White;
}

/// A column and a row. On the board both are 1 to 8; {0, 0} is no square.
struct Square {
  int x = 0;
  int y = 0;

  constexpr bool operator==(const Square&) const = default;
};

constexpr bool IsOnBoard(Square square) { return IsOnBoard(square.x, square.y); }
constexpr int IndexOf(Square square) { return IndexOf(square.x, square.y); }
constexpr Bitboard BitOf(Square square) { return BitOf(square.x, square.y); }
constexpr Square SquareAt(int index) { return {ColumnOf(index), RowOf(index)}; }

/// The two-digit square number: column digit, then row digit.
constexpr int NumberOf(Square square) { return square.x * 10 + square.y; }
constexpr Square FromNumber(int number) { return {number / 10, number % 10}; }

/// The move before the one in question, as the en-passant test needs it. Default: there is none.
struct LastMove {
  Square from;
  Square to;

  /// Reads MoveCoordinates. "0000", and text that isn't four digits, is no move.
  static LastMove FromText(std::string_view moveCoordinates);
  explicit operator bool() const { return from.x != 0 || from.y != 0 || to.x != 0 || to.y != 0; }
};

/// The 64 piece codes, row by row from (1, 1), with the sets of squares of each code and of each
/// side kept in step.
class BoardSquares {
 public:
  constexpr PieceCode At(int x, int y) const { return (*this)[IndexOf(x, y)]; }
  constexpr PieceCode At(Square square) const { return At(square.x, square.y); }
  constexpr PieceCode operator[](int index) const { return codes_[index]; }

  constexpr void Put(Square square, PieceCode piece) {
    assert(IsOnBoard(square));
    assert(piece >= NoPiece && piece <= BlackPawn);
    const int index = IndexOf(square);
    const Bitboard bit = Bitboard{1} << index;
    const PieceCode old = codes_[index];
    pieces_[old] ^= bit;
    pieces_[piece] ^= bit;
    sides_[SideOfPiece(old)] ^= bit;
    sides_[SideOfPiece(piece)] ^= bit;
    codes_[index] = static_cast<std::uint8_t>(piece);
  }

  constexpr Bitboard Of(PieceCode piece) const { return pieces_[piece]; }
  constexpr Bitboard Occupied() const { return ~pieces_[NoPiece]; }
  constexpr Bitboard OfSide(Side side) const { return sides_[side]; }

  constexpr bool operator==(const BoardSquares& other) const { return codes_ == other.codes_; }

 private:
  // A new board is all empty squares.
  std::array<std::uint8_t, 64> codes_{};
  std::array<Bitboard, 13> pieces_{~Bitboard{0}};
  std::array<Bitboard, 3> sides_{0, 0, ~Bitboard{0}};
};

/// Whether the pieces that castling needs have moved; element side + kind * 2.
using CastleFlags = std::array<bool, 6>;
enum CastleKind { Column1Rook = 0, KingItself = 1, Column8Rook = 2 };

struct Position {
  BoardSquares BoardState;
  CastleFlags CastleState{};
  Side SideToMove = White;  ///< the side whose moves the board accepts; doesn't alternate by itself
  int SideInCheck = NobodyInCheck;
  bool CheckmateFlag = false;
  bool MoveAllowed = false;  ///< the user may pick up a piece now

  bool& HasMoved(Side side, CastleKind kind) { return CastleState[side + kind * 2]; }
};

namespace detail {
inline constinit thread_local Position thePosition;
}

/// This thread's position.
inline Position& ThePosition() { return detail::thePosition; }

/// Puts the board back as it was found.
class BoardGuard {
 public:
  BoardGuard() : saved_(ThePosition().BoardState) {}
  ~BoardGuard() { ThePosition().BoardState = saved_; }
  BoardGuard(const BoardGuard&) = delete;
  BoardGuard& operator=(const BoardGuard&) = delete;

 private:
  BoardSquares saved_;
};

/// White, Black or NoSide for an empty square. The square must be on the board.
Side SideOf(Square square);

/// True for a square of the board with neither a piece of `side` nor a king of either colour.
bool IsTargetSquare(Side side, Square square);

bool IsPawn(PieceCode piece);
bool IsWhitePiece(PieceCode value);
bool IsBlackPiece(PieceCode value);

/// The first square with the code, row 1 first and column 1 first in each row; {0, 0} where there
/// is none.
Square FindPiece(PieceCode piece);

/// 8 for a dark square, 0 for a light one; (1, 1) is dark.
int SquareShade(Square square);

/// True for a pawn on the last row of SideToMove.
bool IsPromotion(PieceCode piece, int toY);

/// What one undo needs.
struct GameStateSnapshot {
  BoardSquares boardCopy;
  CastleFlags castleCopy{};
  int sideInCheck = NobodyInCheck;
  bool checkmate = false;
  bool surrendered = false;
};

GameStateSnapshot SaveGameState(bool surrendered);

/// Puts all of the snapshot back; MoveAllowed only where `allowMove` is set.
void RestoreGameState(const GameStateSnapshot& snapshot, bool& surrendered, bool allowMove);

/// Notes that a piece left column x, or was taken on it. The row is not looked at.
void LogCastleState(PieceCode piece, int x);

/// Sets each moved-flag by whether its piece stands on its home square.
void RebuildCastleState();

}  // namespace rules
