// SPDX-License-Identifier: GPL-3.0-or-later
#include "pgn/entries.h"

#include <string>
#include <string_view>

#include "rules/board_text.h"
#include "rules/notation.h"

namespace pgn {
namespace {

constexpr struct {
  std::string_view text;
  EntryKind kind;
} words[] = {
    {"Draw offer", EntryKind::DrawOffer}, {"1/2-1/2", EntryKind::Draw},
    {"Decline", EntryKind::Decline},      {"0-1", EntryKind::Surrender},
    {"1-0", EntryKind::Surrender},        {"Surrender", EntryKind::Surrender},
};

/// What the text says that a pawn becomes, else the piece on the from-square.
rules::PieceCode PieceBehind(std::string_view text, rules::Square from, rules::Side side) {
  const auto sign = text.find('=');
  if (sign != std::string_view::npos && sign + 1 < text.size()) {
    const rules::PieceCode chosen = rules::PieceOfLetter(text[sign + 1]);
    if (chosen != rules::NoPiece) return rules::OfSide(chosen, side);
  }
  return rules::ThePosition().BoardState.At(from);
}

}  // namespace

EntryKind KindOf(const store::MoveRecord& entry) {
  for (const auto& word : words) {
    if (entry.MoveText == word.text) return word.kind;
  }
  return EntryKind::Move;
}

bool IsUnspokenEnd(const store::MoveRecord& entry) {
  const EntryKind kind = KindOf(entry);
  return (kind == EntryKind::Draw || kind == EntryKind::Surrender) &&
         entry.MoveCoordinates == "0000";
}

ChessMove MoveOf(const store::MoveRecord& entry, rules::Side side) {
  const auto move = rules::LastMove::FromText(entry.MoveCoordinates);
  if (!IsOnBoard(move.from) || !IsOnBoard(move.to)) return {};
  return {move.from, move.to, PieceBehind(entry.MoveText, move.from, side)};
}

void BeginGame(const store::GameRecord& game) {
  // A blank start board comes out of a mail as ";;;;;;;".
  const std::string& text = game.GAME_START_BOARD;
  const bool isBlank = text.find_first_of("0123456789") == std::string::npos;
  BeginFrom(rules::ReadBoardText(isBlank ? rules::normalStart : std::string_view(text)));
}

void Replay(Turn& turn, const store::MoveRecord& entry, std::size_t number) {
  // An entry that moves no piece ends the right to take in passing.
  if (KindOf(entry) != EntryKind::Move) {
    turn.lastMove = {};
    return;
  }
  turn.side = SideOfEntry(number);
  const ChessMove move = MoveOf(entry, turn.side);
  if (IsOnBoard(move.from)) Play(turn, move);
}

}  // namespace pgn
