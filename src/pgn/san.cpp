// SPDX-License-Identifier: GPL-3.0-or-later
#include "pgn/san.h"

#include <bit>

#include "rules/attack.h"
#include "rules/notation.h"
#include "rules/piece_moves.h"
#include "rules/test_moves.h"

namespace pgn {

using rules::Bitboard;
using rules::PieceCode;
using rules::Side;
using rules::Square;
using rules::ThePosition;

namespace {

constexpr const char* pieceNames[] = {"piece", "rook", "knight", "bishop", "queen", "king", "pawn"};

bool IsColumn(char c) { return c >= 'a' && c <= 'h'; }
bool IsRow(char c) { return c >= '1' && c <= '8'; }

std::string NameOf(Square square) {
  return {static_cast<char>('a' + square.x - 1), static_cast<char>('0' + square.y)};
}

/// What a text says of a move, of pieces other than castling kings.
struct SanWords {
  PieceCode kind = rules::WhitePawn;  ///< a White code
  Square to;
  int fromColumn = 0;  ///< 0 where it isn't said
  int fromRow = 0;
  PieceCode promotion = rules::NoPiece;  ///< a White code
};

/// Takes the check marks, the marks of good and bad moves and the sign of a capture in passing off.
std::string_view WithoutMarks(std::string_view text) {
  const auto last = text.find_last_not_of("+#!?");
  text = text.substr(0, last == std::string_view::npos ? 0 : last + 1);
  for (const std::string_view sign : {"ep", "e.p."}) {
    if (text.ends_with(sign)) text.remove_suffix(sign.size());
  }
  return text;
}

/// 3 or 7, the column that a castling king goes to; 0 for another move.
int CastlingColumn(std::string_view text) {
  if (text == "O-O" || text == "0-0") return 7;
  return text == "O-O-O" || text == "0-0-0" ? 3 : 0;
}

/// Takes the promotion off the end of the text.
PieceCode TakePromotion(std::string_view& text) {
  if (text.size() < 3) return rules::NoPiece;
  const PieceCode piece = rules::PieceOfLetter(text.back());
  if (piece == rules::NoPiece) return rules::NoPiece;
  text.remove_suffix(text[text.size() - 2] == '=' ? 2 : 1);
  return piece;
}

std::optional<SanWords> ReadWords(std::string_view text) {
  SanWords words;
  words.promotion = TakePromotion(text);
  constexpr std::string_view letters = " RNBQKP";
  const auto kind = text.empty() ? std::string_view::npos : letters.find(text.front(), 1);
  if (kind != std::string_view::npos) {
    words.kind = static_cast<PieceCode>(kind);
    text.remove_prefix(1);
  }
  if (text.size() < 2 || !IsRow(text.back()) || !IsColumn(text[text.size() - 2])) {
    return std::nullopt;
  }
  words.to = {text[text.size() - 2] - 'a' + 1, text.back() - '0'};
  text.remove_suffix(2);
  if (text.ends_with('x') || text.ends_with('-') || text.ends_with(':')) text.remove_suffix(1);
  if (!text.empty() && IsRow(text.back())) {
    words.fromRow = text.back() - '0';
    text.remove_suffix(1);
  }
  if (!text.empty() && IsColumn(text.back())) {
    words.fromColumn = text.back() - 'a' + 1;
    text.remove_suffix(1);
  }
  return text.empty() ? std::optional(words) : std::nullopt;
}

/// The pawns of the side to move that may get to a square by the way pawns move.
Bitboard PawnsFor(Square to, const Turn& turn) {
  const rules::BoardSquares& board = ThePosition().BoardState;
  const Bitboard own = board.Of(OfSide(rules::WhitePawn, turn.side));
  const Bitboard beside = rules::pawnReach[rules::OtherSide(turn.side)][IndexOf(to)] & own;
  if (board.At(to) != rules::NoPiece) return beside;
  const int back = -rules::PawnDirection(turn.side);
  Bitboard pawns = turn.lastMove && turn.lastMove.to == Square{to.x, to.y + back} ? beside : 0;
  const Square near{to.x, to.y + back};
  if (IsOnBoard(near)) pawns |= rules::BitOf(near) & own;
  const Square far{to.x, to.y + 2 * back};
  if (IsOnBoard(far)) pawns |= rules::BitOf(far) & own;
  return pawns;
}

/// The pieces of the kind that may get to the square, king safety aside.
Bitboard PiecesFor(const SanWords& words, const Turn& turn) {
  if (!rules::IsTargetSquare(turn.side, words.to)) return 0;
  Bitboard pieces = words.kind == rules::WhitePawn
                        ? PawnsFor(words.to, turn)
                        : rules::AttackersOf(words.to, turn.side) &
                              ThePosition().BoardState.Of(rules::OfSide(words.kind, turn.side));
  if (words.fromColumn != 0)
    pieces &= rules::tables::column[words.fromColumn - 1] | rules::BitOf(words.fromColumn, 1);
  if (words.fromRow != 0) pieces &= Bitboard{255} << 8 * (words.fromRow - 1);
  // A pawn that isn't said to come from another column comes straight.
  if (words.kind == rules::WhitePawn && words.fromColumn == 0) {
    pieces &= rules::tables::column[words.to.x - 1] | rules::BitOf(words.to.x, 1);
  }
  return pieces;
}

Bitboard LegalOnes(Bitboard pieces, Square to, const Turn& turn) {
  Bitboard legal = 0;
  while (pieces != 0) {
    const int from = rules::TakeLowest(pieces);
    if (IsLegal(turn, rules::SquareAt(from), to)) legal |= Bitboard{1} << from;
  }
  return legal;
}

/// Why no move of those words is legal, or more than one.
std::string Explain(const SanWords& words, Bitboard pieces, Bitboard legal) {
  const std::string name = pieceNames[words.kind];
  const std::string square = NameOf(words.to);
  if (!std::has_single_bit(legal) && legal != 0) {
    return "More than one " + name + " can go to " + square + ", and it isn't said which.";
  }
  if (pieces == 0 && words.kind == rules::WhiteKing) return "The king can't go to " + square + ".";
  if (pieces == 0) return "There is no " + name + " that can go to " + square + ".";
  return "The " + name + " can't go to " + square + ": the king would be left in check.";
}

std::string ExplainPromotion(const SanWords& words, bool reachesLastRow) {
  if (reachesLastRow) return "It isn't said what the pawn becomes.";
  return words.kind == rules::WhitePawn ? "The pawn doesn't reach the last row."
                                        : "Only a pawn can become another piece.";
}

/// Other programs look at the rook that castles only.
std::string RuleOfColumns(Square from, Square to, rules::Side side) {
  rules::Position& position = ThePosition();
  const bool isShort = to.x > from.x;
  const bool isAtHome =
      position.BoardState.At(from) == OfSide(rules::WhiteKing, side) &&
      position.BoardState.At({isShort ? 8 : 1, from.y}) == OfSide(rules::WhiteRook, side);
  if (!isAtHome || position.HasMoved(side, rules::KingItself) ||
      !position.HasMoved(side, isShort ? rules::Column8Rook : rules::Column1Rook)) {
    return {};
  }
  return std::string(
             " Tarvolenix's own rule is that it ends on a side as soon as any rook has "
             "moved away from the ") +
         (isShort ? 'h' : 'a') + " column.";
}

std::optional<ChessMove> ReadCastling(int column, const Turn& turn, std::string& trouble) {
  const int row = rules::HomeRow(turn.side);
  const Square from{5, row};
  const Square to{column, row};
  const PieceCode king = OfSide(rules::WhiteKing, turn.side);
  if (ThePosition().BoardState.At(from) == king && IsLegal(turn, from, to)) {
    return ChessMove{from, to, king};
  }
  trouble = "Castling isn't possible here." + RuleOfColumns(from, to, turn.side);
  return std::nullopt;
}

std::optional<ChessMove> ReadPieceMove(const SanWords& words, const Turn& turn,
                                       std::string& trouble) {
  const Bitboard pieces = PiecesFor(words, turn);
  const Bitboard legal = LegalOnes(pieces, words.to, turn);
  if (!std::has_single_bit(legal)) {
    trouble = Explain(words, pieces, legal);
    return std::nullopt;
  }
  const bool reachesLastRow =
      words.kind == rules::WhitePawn && words.to.y == rules::HomeRow(rules::OtherSide(turn.side));
  if (reachesLastRow != (words.promotion != rules::NoPiece)) {
    trouble = ExplainPromotion(words, reachesLastRow);
    return std::nullopt;
  }
  return ChessMove{rules::SquareAt(std::countr_zero(legal)), words.to,
                   rules::OfSide(reachesLastRow ? words.promotion : words.kind, turn.side)};
}

/// The parts of the from-square that tell this move from that of another piece of its kind.
std::string Origin(const Turn& turn, const ChessMove& move) {
  Bitboard others = rules::AttackersOf(move.to, turn.side) &
                    ThePosition().BoardState.Of(move.becomes) & ~rules::BitOf(move.from);
  others = LegalOnes(others, move.to, turn);
  if (others == 0) return {};
  bool sameColumn = false;
  bool sameRow = false;
  while (others != 0) {
    const Square other = rules::SquareAt(rules::TakeLowest(others));
    sameColumn = sameColumn || other.x == move.from.x;
    sameRow = sameRow || other.y == move.from.y;
  }
  const std::string name = NameOf(move.from);
  if (!sameColumn) return name.substr(0, 1);
  return sameRow ? name : name.substr(1);
}

std::string PawnMove(const ChessMove& move) {
  std::string text;
  if (move.from.x != move.to.x) text = NameOf(move.from).substr(0, 1) + 'x';
  text += NameOf(move.to);
  if (!rules::IsPawn(move.becomes)) (text += '=') += rules::LetterOf(move.becomes);
  return text;
}

std::string TextBefore(const Turn& turn, const ChessMove& move) {
  const rules::BoardSquares& board = ThePosition().BoardState;
  if (rules::IsPawn(board.At(move.from))) return PawnMove(move);
  if (rules::DetectCastling(turn.side, move.from, move.to) != rules::Castling::None) {
    return move.to.x == 3 ? "O-O-O" : "O-O";
  }
  const bool capture = board.At(move.to) != rules::NoPiece;
  return rules::LetterOf(move.becomes) + Origin(turn, move) + (capture ? "x" : "") +
         NameOf(move.to);
}

}  // namespace

std::string PlaySan(Turn& turn, const ChessMove& move) {
  std::string text = TextBefore(turn, move);
  Play(turn, move);
  const int sideInCheck = ThePosition().SideInCheck;
  if (sideInCheck == rules::NobodyInCheck) return text;
  const auto standing = rules::GameState(turn.side, true, sideInCheck, turn.lastMove);
  return text + (standing == rules::Standing::Checkmate ? '#' : '+');
}

std::optional<ChessMove> ReadSan(std::string_view text, const Turn& turn, std::string& trouble) {
  text = WithoutMarks(text);
  if (const int column = CastlingColumn(text)) return ReadCastling(column, turn, trouble);
  if (const auto words = ReadWords(text)) return ReadPieceMove(*words, turn, trouble);
  trouble = "That is no move.";
  return std::nullopt;
}

}  // namespace pgn
