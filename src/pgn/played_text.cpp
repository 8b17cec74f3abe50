// SPDX-License-Identifier: GPL-3.0-or-later
#include "pgn/played_text.h"

#include <algorithm>
#include <optional>

#include "mail/character_count.h"
#include "mail/move_mail.h"
#include "pgn/fen.h"
#include "pgn/san.h"
#include "rules/board_text.h"
#include "rules/game_end.h"
#include "rules/notation.h"

namespace pgn {

using rules::ThePosition;

namespace {

constexpr std::string_view nullMoves[] = {"--", "Z0", "z0", "<>", "@@@@", "0000", "null", "pass"};

bool IsNullMove(std::string_view move) {
  return std::ranges::find(nullMoves, move) != std::end(nullMoves);
}

rules::Side WinnerOf(std::string_view result) {
  return result == "1-0" ? rules::White : result == "0-1" ? rules::Black : rules::NoSide;
}

/// A comment as the game file keeps it, without what programs say to each other in "[%...]".
std::string CommentText(std::string_view raw) {
  std::string text = AsUtf8(raw);
  for (auto open = text.find("[%"); open != std::string::npos; open = text.find("[%", open)) {
    const auto close = text.find(']', open);
    text.erase(open, close == std::string::npos ? close : close + 1 - open);
  }
  std::ranges::replace(text, '|', '/');
  std::string words;
  for (const char c : mail::StripReservedText(text)) {
    if (c != ' ' || (!words.empty() && words.back() != ' ')) words += c;
  }
  if (words.ends_with(' ')) words.pop_back();
  return words;
}

class Player {
 public:
  Player(const GameText& text, bool keepMoves) : text_(text), keepMoves_(keepMoves) {}

  PlayedText Play() {
    if (Begin() && PlayMoves()) End();
    if (keepMoves_ && played_.objection.why.empty()) AddComments();
    return std::move(played_);
  }

 private:
  bool Refuse(std::string why) { return RefuseAt(0, {}, std::move(why)); }

  bool RefuseAt(std::size_t ply, std::string_view move, std::string why) {
    played_.objection = {static_cast<int>(ply), AsUtf8(move), std::move(why)};
    return false;
  }

  bool Begin() {
    const std::string fen = text_.Tag("FEN");
    if (fen.empty()) {
      static const rules::BoardSquares start = rules::ReadBoardText(rules::normalStart);
      BeginFrom(start);
      return true;
    }
    const FenReading reading = ReadFen(fen);
    if (!reading.trouble.empty()) return Refuse("Its FEN can't be read. " + reading.trouble);
    BeginFrom(reading.board);
    std::string why = WhyNoStart(reading);
    if (why.empty()) why = WhyOver();
    if (!why.empty()) return Refuse(why);
    const std::string board = rules::WriteBoardText(reading.board);
    if (board != rules::normalStart) played_.startBoard = board;
    return true;
  }

  /// Why no move can follow, as a sentence.
  std::string WhyOver() const {
    switch (EndingAt(turn_)) {
      case Ending::Mate:
        return "The game was over: it was mate.";
      case Ending::Stalemate:
        return "The game was over: it was stalemate.";
      case Ending::DeadPosition:
        return "The game was over: nobody could win any more.";
      case Ending::None:
        break;
    }
    return {};
  }

  bool PlayMoves() {
    if (keepMoves_) played_.moves.reserve(text_.moves.size() + 2);
    for (std::size_t i = 0; i < text_.moves.size(); ++i) {
      if (!PlayMove(text_.moves[i], i + 1)) return false;
    }
    if (!text_.trouble.empty()) return RefuseAt(text_.moves.size() + 1, {}, text_.trouble);
    return !text_.moves.empty() || Refuse("It has no move.");
  }

  bool PlayMove(std::string_view san, std::size_t ply) {
    if (IsNullMove(san)) {
      return RefuseAt(ply, san, "It is a null move, and nobody may leave a move out.");
    }
    std::string trouble;
    const auto move = ReadSan(san, turn_, trouble);
    const bool isDead = rules::ForcedDrawType() != rules::ForcedDraw::None;
    if (!move || isDead) {
      const std::string over = WhyOver();
      return RefuseAt(ply, san, over.empty() ? trouble : over);
    }
    if (keepMoves_) {
      KeepMove(*move);
    } else {
      pgn::Play(turn_, *move);
    }
    return true;
  }

  void KeepMove(const ChessMove& move) {
    const rules::Position before = ThePosition();
    const rules::LastMove previous = turn_.lastMove;
    pgn::Play(turn_, move);
    const Ending ending = EndingAt(turn_);
    ThePosition().CheckmateFlag = ending == Ending::Mate;
    const bool drawn = ending == Ending::Stalemate || ending == Ending::DeadPosition;
    const bool castling =
        rules::KindOf(move.becomes) == rules::WhiteKing && std::abs(move.from.x - move.to.x) == 2;
    const bool capture = before.BoardState.At(move.to) != rules::NoPiece;
    const rules::PlayedMove played{move.becomes, move.from, move.to, capture, castling};
    AddEntry(
        move.from, move.to,
        rules::MoveNotation(played, ThePosition().SideInCheck, before.BoardState, drawn, previous));
  }

  void AddEntry(rules::Square from, rules::Square to, std::string text) {
    const auto digits = [](rules::Square square) {
      return std::string{static_cast<char>('0' + square.x), static_cast<char>('0' + square.y)};
    };
    const auto number = static_cast<std::int32_t>(played_.moves.size() + 1);
    played_.moves.push_back({number, digits(from) + digits(to), std::move(text), {}});
  }

  /// What the game says of its end has to be what the board says, where that says anything.
  void End() {
    played_.result = text_.result;
    if (text_.result.empty()) {
      Refuse("It breaks off: there is no result behind its last move.");
      return;
    }
    const Ending ending = EndingAt(turn_);
    if (ending == Ending::None) return EndByWord();
    played_.result = ResultOf(ending, turn_);
    if (text_.result != "*" && text_.result != played_.result) {
      Refuse("Its result is " + std::string(text_.result) + ", and on the board it ended " +
             std::string(played_.result) + '.');
    }
  }

  /// Adds what a player says who gives the game up, or to whom a draw is due. An entry belongs to
  /// the side whose turn it is, so the winner's place may have to stay free before it.
  void EndByWord() {
    if (!keepMoves_ || played_.result == "*") return;
    const rules::Side winner = WinnerOf(played_.result);
    if (winner == turn_.side) AddEntry({}, {}, "...");
    const rules::Side speaker = winner == rules::NoSide ? turn_.side : rules::OtherSide(winner);
    const rules::Square king = rules::FindPiece(rules::OfSide(rules::WhiteKing, speaker));
    AddEntry(king, king, std::string(played_.result));
  }

  /// What was said ahead of the first move goes to it.
  void AddComments() {
    for (const GameText::Comment& comment : text_.comments) {
      const std::string text = CommentText(comment.text);
      if (text.empty()) continue;
      std::string& place = played_.moves[std::max<std::size_t>(comment.ply, 1) - 1].MoveComment;
      place += (place.empty() ? "" : " ") + text;
      place.resize(mail::FirstCharacters(place, mail::longestComment).size());
    }
  }

  const GameText& text_;
  const bool keepMoves_;
  Turn turn_;
  PlayedText played_;
};

}  // namespace

PlayedText PlayThrough(const GameText& text, bool keepMoves) {
  return Player(text, keepMoves).Play();
}

}  // namespace pgn
