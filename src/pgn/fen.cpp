// SPDX-License-Identifier: GPL-3.0-or-later
#include "pgn/fen.h"

#include <array>
#include <bit>
#include <charconv>
#include <cstdlib>
#include <vector>

#include "pgn/entries.h"
#include "pgn/game_text.h"
#include "platform/utf8.h"
#include "rules/attack.h"
#include "rules/position_guard.h"

namespace pgn {

using rules::BoardSquares;
using rules::Square;
using rules::ThePosition;

namespace {

constexpr std::string_view pieceLetters = " RNBQKPrnbqkp";

constexpr const char* sideNames[] = {"White", "Black"};

/// A letter of the third field, and what it speaks of.
struct CastlingRight {
  char letter;
  rules::Side side;
  rules::CastleKind rook;
  int rookColumn;
  const char* wing;
};

constexpr CastlingRight castlingRights[] = {
    {'K', rules::White, rules::Column8Rook, 8, "king's"},
    {'Q', rules::White, rules::Column1Rook, 1, "queen's"},
    {'k', rules::Black, rules::Column8Rook, 8, "king's"},
    {'q', rules::Black, rules::Column1Rook, 1, "queen's"},
};

/// Whether king and rook of a castling stand where it begins.
bool IsAtHome(const BoardSquares& board, const CastlingRight& right) {
  const int row = rules::HomeRow(right.side);
  return board.At(5, row) == OfSide(rules::WhiteKing, right.side) &&
         board.At(right.rookColumn, row) == OfSide(rules::WhiteRook, right.side);
}

bool MayCastle(const BoardSquares& board, const rules::CastleFlags& hasMoved,
               const CastlingRight& right) {
  return !hasMoved[right.side + rules::KingItself * 2] && !hasMoved[right.side + right.rook * 2] &&
         IsAtHome(board, right);
}

std::string Counted(std::size_t count, const char* noun) {
  return std::to_string(count) + ' ' + noun + (count == 1 ? "" : "s");
}

std::string RowText(const BoardSquares& board, int y) {
  std::string text;
  int empty = 0;
  const auto closeGap = [&] {
    if (empty > 0) text += std::to_string(empty);
    empty = 0;
  };
  for (int x = 1; x <= 8; ++x) {
    const rules::PieceCode piece = board.At(x, y);
    if (piece == rules::NoPiece) {
      ++empty;
      continue;
    }
    closeGap();
    text += pieceLetters[static_cast<std::size_t>(piece)];
  }
  closeGap();
  return text;
}

std::string SquareName(Square square) {
  return {static_cast<char>('a' + square.x - 1), static_cast<char>('0' + square.y)};
}

std::string PassedSquare(const rules::LastMove& last) {
  const bool doubleStep = last && IsOnBoard(last.to) &&
                          rules::IsPawn(ThePosition().BoardState.At(last.to)) &&
                          std::abs(last.from.y - last.to.y) == 2 && last.from.x == last.to.x;
  return doubleStep ? SquareName({last.to.x, (last.from.y + last.to.y) / 2}) : "-";
}

std::vector<std::string_view> Split(std::string_view text, std::string_view separators) {
  std::vector<std::string_view> parts;
  for (std::size_t at = 0; at <= text.size();) {
    const std::size_t end = std::min(text.find_first_of(separators, at), text.size());
    parts.push_back(text.substr(at, end - at));
    at = end + 1;
  }
  return parts;
}

std::string Quoted(std::string_view text) { return std::string(1, '"').append(text) + '"'; }

/// Reads the fields one after the other; the first trouble ends it.
class FenReader {
 public:
  FenReading Read(std::string_view text) {
    std::vector<std::string_view> fields = Split(text, " \t\r\n");
    std::erase(fields, "");
    using Step = void (FenReader::*)(std::string_view);
    constexpr struct {
      Step read;
      const char* missing;
    } steps[] = {
        {&FenReader::ReadBoard, "There is no position: it is empty."},
        {&FenReader::ReadSide, "It ends behind the board: whose turn it is, w or b, is missing."},
        {&FenReader::ReadCastling,
         "It ends behind the side to move: who may castle, such as KQkq or -, is missing."},
        {&FenReader::ReadPassed,
         "It ends behind the castling rights: the square of a pawn to be taken in passing, or -, "
         "is "
         "missing."},
        {&FenReader::ReadQuietPlies, nullptr},
        {&FenReader::ReadNumber, nullptr},
    };
    for (std::size_t i = 0; i < std::size(steps) && reading_.trouble.empty(); ++i) {
      if (i < fields.size()) {
        (this->*steps[i].read)(fields[i]);
      } else if (steps[i].missing) {
        Refuse(steps[i].missing);
      }
    }
    if (fields.size() > std::size(steps)) Refuse("There is more behind the number of the move.");
    if (reading_.trouble.empty()) CheckWaitingKing();
    return std::move(reading_);
  }

 private:
  void Refuse(std::string sentence) {
    if (reading_.trouble.empty()) reading_.trouble = std::move(sentence);
  }

  void ReadBoard(std::string_view field) {
    const auto rows = Split(field, "/");
    if (rows.size() == 1) {
      return Refuse("That is no position: one begins with the eight rows of the board, such as " +
                    std::string("rnbqkbnr/pppppppp/8/8/8/8/PPPPPPPP/RNBQKBNR."));
    }
    if (rows.size() != 8) {
      return Refuse("The board has " + Counted(rows.size(), "row") + " in place of 8.");
    }
    for (int y = 8; y >= 1; --y) ReadRow(rows[static_cast<std::size_t>(8 - y)], y);
    for (const rules::Side side : {rules::White, rules::Black}) CountKings(side);
  }

  void ReadRow(std::string_view row, int y) {
    const std::string name = "Row " + std::to_string(y);
    int x = 0;
    for (std::size_t i = 0; i < row.size(); ++i) {
      const char c = row[i];
      const auto piece = pieceLetters.find(c, 1);
      if (c >= '1' && c <= '8') {
        x += c - '0';
      } else if (piece == std::string_view::npos) {
        const auto letter = row.substr(i, platform::FirstCharacter(row.substr(i)).length);
        return Refuse(name + " holds " + Quoted(letter) + ", which is no piece and no number.");
      } else if (++x <= 8) {
        reading_.board.Put({x, y}, static_cast<rules::PieceCode>(piece));
      }
    }
    if (x != 8)
      Refuse(name + " has " + Counted(static_cast<std::size_t>(x), "square") + " in place of 8.");
    if ((y == 1 || y == 8) && row.find_first_of("Pp") != std::string_view::npos) {
      Refuse(name + " holds a pawn, and no pawn can stand there.");
    }
  }

  void CountKings(rules::Side side) {
    const int kings = std::popcount(reading_.board.Of(OfSide(rules::WhiteKing, side)));
    const std::string name = sideNames[side];
    if (kings == 0) Refuse(name + " has no king.");
    if (kings > 1) Refuse(name + " has " + std::to_string(kings) + " kings.");
  }

  void ReadSide(std::string_view field) {
    if (field != "w" && field != "b") {
      return Refuse("The side to move is " + Quoted(field) + "; it is w or b.");
    }
    reading_.turn.side = field == "w" ? rules::White : rules::Black;
  }

  void ReadCastling(std::string_view field) {
    reading_.hasMoved.fill(true);
    if (field == "-") return;
    if (field.find_first_not_of("KQkq") != std::string_view::npos) {
      return Refuse("Who may castle is " + Quoted(field) + "; it is some of KQkq, or -.");
    }
    for (const CastlingRight& right : castlingRights) {
      if (field.find(right.letter) != std::string_view::npos) Grant(right);
    }
  }

  void Grant(const CastlingRight& right) {
    if (!IsAtHome(reading_.board, right)) {
      return Refuse(std::string(sideNames[right.side]) + " can't castle on the " + right.wing +
                    " side: king and rook don't both stand at home.");
    }
    reading_.hasMoved[right.side + rules::KingItself * 2] = false;
    reading_.hasMoved[right.side + right.rook * 2] = false;
  }

  void ReadPassed(std::string_view field) {
    if (field == "-") return;
    const rules::Side mover = rules::OtherSide(reading_.turn.side);
    const int row = rules::HomeRow(mover) + 2 * rules::PawnDirection(mover);
    const Square passed{field[0] - 'a' + 1, row};
    if (field.size() != 2 || !IsOnBoard(passed) || field[1] - '0' != row) {
      return Refuse("A pawn that was passed over " + Quoted(field) +
                    " can't be taken: the square is one of row " + std::to_string(row) + ", or -.");
    }
    const int forward = rules::PawnDirection(mover);
    const Square from{passed.x, row - forward};
    const Square to{passed.x, row + forward};
    const BoardSquares& board = reading_.board;
    if (board.At(to) != OfSide(rules::WhitePawn, mover) || board.At(from) != rules::NoPiece ||
        board.At(passed) != rules::NoPiece) {
      return Refuse("No pawn has just passed over " + std::string(field) + ".");
    }
    reading_.turn.lastMove = {from, to};
  }

  void ReadQuietPlies(std::string_view field) { ReadCounter(field, 0, reading_.turn.quietPlies); }
  void ReadNumber(std::string_view field) { ReadCounter(field, 1, reading_.turn.number); }

  void ReadCounter(std::string_view field, int least, int& counter) {
    const auto [end, error] = std::from_chars(field.begin(), field.end(), counter);
    if (error != std::errc{} || end != field.end() || counter < least || counter > 9999) {
      Refuse("A counter is " + Quoted(field) + "; it is a number from " + std::to_string(least) +
             " to 9999.");
    }
  }

  void CheckWaitingKing() {
    const rules::Side waiting = rules::OtherSide(reading_.turn.side);
    const rules::PositionGuard guard;
    ThePosition().BoardState = reading_.board;
    if (!rules::IsInCheck(waiting)) return;
    Refuse(std::string(sideNames[waiting]) + " is in check, and it isn't " + sideNames[waiting] +
           "'s turn.");
  }

  FenReading reading_;
};

bool CanTakeInPassing(const FenReading& reading) {
  const rules::PositionGuard guard;
  ThePosition().BoardState = reading.board;
  const rules::LastMove last = reading.turn.lastMove;
  const Square to{last.to.x, (last.from.y + last.to.y) / 2};
  rules::Bitboard pawns = rules::pawnReach[rules::OtherSide(reading.turn.side)][IndexOf(to)] &
                          reading.board.Of(OfSide(rules::WhitePawn, reading.turn.side));
  while (pawns != 0) {
    if (IsLegal(reading.turn, rules::SquareAt(rules::TakeLowest(pawns)), to)) return true;
  }
  return false;
}

}  // namespace

std::string WriteFen(const Turn& turn) {
  const rules::Position& position = ThePosition();
  std::string text;
  for (int y = 8; y >= 1; --y) text += RowText(position.BoardState, y) + (y > 1 ? "/" : "");
  text += turn.side == rules::White ? " w " : " b ";
  std::string castling;
  for (const CastlingRight& right : castlingRights) {
    if (MayCastle(position.BoardState, position.CastleState, right)) castling += right.letter;
  }
  return text + (castling.empty() ? "-" : castling) + ' ' + PassedSquare(turn.lastMove) + ' ' +
         std::to_string(turn.quietPlies) + ' ' + std::to_string(turn.number);
}

std::string FenOfGame(const store::GameRecord& game, const store::MoveRecords& moves) {
  const rules::PositionGuard guard;
  BeginGame(game);
  Turn turn;
  for (std::size_t i = 0; i < moves.size(); ++i) Replay(turn, moves[i], i + 1);
  return WriteFen(turn);
}

FenReading ReadFen(std::string_view text) { return FenReader().Read(AsUtf8(text)); }

std::string WhyNoStart(const FenReading& reading) {
  if (reading.turn.side == rules::Black) {
    return "It is Black's turn, and a game begins with White's move.";
  }
  for (const CastlingRight& right : castlingRights) {
    if (!IsAtHome(reading.board, right) || MayCastle(reading.board, reading.hasMoved, right)) {
      continue;
    }
    return std::string(sideNames[right.side]) + " may not castle on the " + right.wing +
           " side although king and rook stand at home, and in a game that begins here that is "
           "allowed.";
  }
  if (reading.turn.lastMove && CanTakeInPassing(reading)) {
    return "A pawn can be taken in passing, and no game can begin with that.";
  }
  return {};
}

}  // namespace pgn
