// SPDX-License-Identifier: GPL-3.0-or-later
#include "ai/reason_words.h"

#include <algorithm>
#include <cassert>
#include <iterator>

#include "ai/evaluation.h"

namespace ai {

using rules::PieceCode;

namespace {

/// A sentence for the motivations up to `last`, from behind those of the row before. {doer} and
/// {target} are pieces with their squares, {side} is whose move it is, {kind} a piece by itself.
struct Words {
  int last;
  const char* begins;  ///< the move brings it about
  const char* ends;    ///< the move puts an end to it
};

constexpr Words wordsOf[] = {
    {GoForCheck, "{doer} gives check.", "{doer} already gave check."},
    {Vulnerable + 4, "{target} is attacked by {doer}.",
     "{target} is no longer attacked by {doer}."},
    {Protect + 4, "{doer} protects {target}.",
     "{doer} would protect {target}, but not after this move."},
    {Take + 4, "{doer} takes {target}.", ""},
    {MoveAPiece + 5, "The move is made with a {kind}.", ""},
    {TakeUndefended + 4, "{target} is taken, and nothing protected it.", ""},
    {AllowUndefended + 4, "{target} can be taken by {doer}, and nothing protects it.",
     "{target} was unprotected and could be taken by {doer}; it gets away."},
    {PinByQueen + 4, "{doer} pins {target} to the king.",
     "{doer} no longer pins {target} to the king."},
    {CloserToQueen, "{doer} comes closer to {target}.", "{doer} goes away from {target}."},
    {CloserToCentre, "{doer} comes closer to the center of the board.",
     "{doer} goes away from the center of the board."},
    {MoveCastlingRook, "{side} moves a rook that could have castled.", ""},
    {MoveUncastledKing, "{side}'s king moves before it has castled.", ""},
    {PerformCastling, "", "{side} castles now, and can't do so later."},
    {GivesMate, "It is checkmate.", "It was checkmate already."},
    {OverruledByMate, "Nothing else counts beside that.", ""},
    {BeyondLimits, "The sum can't go any further than this.", ""},
};

/// The piece that moves may be among those that it protects from where it goes, as it is on its way
/// there still.
constexpr const char* leavesItself = "{doer} leaves a square that it protects from its new one.";

constexpr const char* kinds[] = {"", "rook", "knight", "bishop", "queen", "king", "pawn"};

std::string SideWord(PieceCode piece) {
  return rules::SideOfPiece(piece) == rules::White ? "White" : "Black";
}

std::string SquareWord(rules::Square square) {
  return {static_cast<char>('a' + square.x - 1), static_cast<char>('0' + square.y)};
}

std::string PieceWords(const Placed& placed) {
  return SideWord(placed.piece) + "'s " + kinds[rules::KindOf(placed.piece)] + " on " +
         SquareWord(placed.square);
}

void Fill(std::string& text, const char* placeholder, const std::string& words) {
  const std::string sign = std::string("{") + placeholder + "}";
  const auto at = text.find(sign);
  if (at != std::string::npos) text.replace(at, sign.size(), words);
}

std::string WithPieces(std::string text, const Reason& reason) {
  Fill(text, "doer", PieceWords(reason.doer));
  Fill(text, "target", PieceWords(reason.target));
  Fill(text, "side", SideWord(reason.doer.piece));
  Fill(text, "kind", kinds[rules::KindOf(reason.doer.piece)]);
  return text;
}

/// Words may be empty for what never happens: what a move does itself never ends.
const char* WordsOf(const Reason& reason) {
  const bool onItself = reason.doer.square == reason.target.square;
  if (onItself && reason.kind >= Protect && reason.kind < Take) return leavesItself;
  const auto* words = std::find_if(std::begin(wordsOf), std::end(wordsOf),
                                   [&](const Words& row) { return reason.kind <= row.last; });
  assert(words != std::end(wordsOf));
  return reason.ends ? words->ends : words->begins;
}

}  // namespace

std::string SentenceFor(const Reason& reason) { return WithPieces(WordsOf(reason), reason); }

}  // namespace ai
