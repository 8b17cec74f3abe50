// SPDX-License-Identifier: GPL-3.0-or-later
#include "pgn/played_text.h"

#include <algorithm>
#include <optional>
#include <span>
#include <utility>
#include <vector>

#include "mail/character_count.h"
#include "mail/move_mail.h"
#include "pgn/fen.h"
#include "pgn/san.h"
#include "pgn/sayings.h"
#include "platform/ascii.h"
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

struct Remark {
  std::string text;
  std::optional<Saying> saying;  ///< what the text says, where it isn't a comment of a move
};

/// Without what programs say to each other in "[%...]".
std::string WithoutCommands(std::string_view text) {
  std::string kept;
  while (true) {
    const auto open = text.find("[%");
    kept += text.substr(0, open);
    const auto close = text.find(']', std::min(open, text.size()));
    if (close == std::string_view::npos) return kept;
    text.remove_prefix(close + 1);
  }
}

/// A comment as the game file keeps it.
std::string CommentText(std::string_view raw) {
  std::string text = WithoutCommands(AsUtf8(raw));
  std::ranges::replace(text, '|', '/');
  std::string words;
  for (const char c : mail::StripReservedText(text)) {
    if (c != ' ' || (!words.empty() && words.back() != ' ')) words += c;
  }
  if (words.ends_with(' ')) words.pop_back();
  return words;
}

/// How a game ended that the board didn't end; blank where the tag says nothing of it.
std::string WayOfEnding(const GameText& text) {
  constexpr std::string_view emptyWords[] = {"normal", "unterminated", "?"};
  const std::string way = CommentText(text.Tag("Termination"));
  const auto isWay = [&way](std::string_view word) { return platform::SameWithoutCase(way, word); };
  return std::ranges::any_of(emptyWords, isWay) ? std::string() : way;
}

class Player {
 public:
  Player(const GameText& text, bool keepMoves) : text_(text), keepMoves_(keepMoves) {}

  PlayedText Play() {
    if (Begin() && PlayMoves()) End();
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
      if (keepMoves_) Hear(RemarksAt(i), false);
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
    played_.moves.push_back(
        {number, digits(from) + digits(to), std::move(text), std::exchange(opening_, {})});
  }

  std::vector<Remark> RemarksAt(std::size_t ply) {
    std::vector<Remark> remarks;
    for (; heard_ < text_.comments.size() && text_.comments[heard_].ply == ply; ++heard_) {
      const std::string_view raw = text_.comments[heard_].text;
      std::string text = CommentText(raw);
      if (text.empty()) continue;
      const bool behindCommand = raw[raw.find_first_not_of(" \t\r\n")] == '[';
      auto saying = behindCommand ? std::nullopt : SayingIn(text);
      remarks.push_back({std::move(text), std::move(saying)});
    }
    return remarks;
  }

  /// Takes what is said between two moves, or behind the last of a game that the board left open.
  void Hear(std::span<const Remark> remarks, bool mayEnd) {
    while (!remarks.empty()) {
      const std::size_t count = CountOfSayings(remarks, mayEnd);
      for (const Remark& remark : remarks.first(count)) AddSaying(*remark.saying);
      if (count == 0) AddComment(remarks.front().text);
      remarks = remarks.subspan(std::max<std::size_t>(count, 1));
    }
  }

  /// How many of the remarks at the front are entries: only what can be said at this point is.
  std::size_t CountOfSayings(std::span<const Remark> remarks, bool mayEnd) const {
    const auto& first = remarks[0].saying;
    if (!first) return 0;
    const bool isLast = mayEnd && remarks.size() == 1;
    if (first->kind == EntryKind::Surrender) {
      return isLast && WinnerOf(played_.result) == rules::OtherSide(first->side) ? 1 : 0;
    }
    if (first->kind != EntryKind::DrawOffer || first->side != turn_.side) return 0;
    if (isLast) return played_.result == "*" ? 1 : 0;
    const auto answer = remarks.size() > 1 ? remarks[1].saying : std::nullopt;
    if (!answer || answer->side == first->side) return 0;
    const bool isDraw = answer->kind == EntryKind::Draw && mayEnd && remarks.size() == 2 &&
                        played_.result == "1/2-1/2";
    return isDraw || answer->kind == EntryKind::Decline ? 2 : 0;
  }

  void AddSaying(const Saying& saying) {
    if (saying.kind == EntryKind::Surrender) LeavePlaceBefore(saying.side);
    const rules::Square king = rules::FindPiece(rules::OfSide(rules::WhiteKing, saying.side));
    AddEntry(king, king, std::string(WordOf(saying.kind)));
    AddComment(saying.comment);
    turn_.lastMove = {};
    isEnded_ = saying.kind == EntryKind::Surrender || saying.kind == EntryKind::Draw;
  }

  std::string_view WordOf(EntryKind kind) const {
    if (kind == EntryKind::DrawOffer) return "Draw offer";
    return kind == EntryKind::Decline ? "Decline" : played_.result;
  }

  /// An entry belongs to the side whose turn it is, so the other's place may have to stay free.
  void LeavePlaceBefore(rules::Side speaker) {
    if (SideOfEntry(played_.moves.size() + 1) != speaker) AddEntry({}, {}, "...");
  }

  /// What is said ahead of the first entry goes to it. In a game that goes on here comments are the
  /// player's own thoughts, which the next mail would carry to the opponent.
  void AddComment(const std::string& text) {
    if (text.empty()) return;
    if (text_.result == "*") {
      AddToNote(text);
      return;
    }
    std::string& place = played_.moves.empty() ? opening_ : played_.moves.back().MoveComment;
    place += (place.empty() ? "" : " ") + text;
    place.resize(mail::FirstCharacters(place, mail::longestComment).size());
  }

  /// Such as "12... d5: A surprise."
  void AddToNote(const std::string& text) {
    if (!played_.note.empty()) played_.note += '\n';
    if (!played_.moves.empty()) {
      const store::MoveRecord& entry = played_.moves.back();
      played_.note += std::to_string((entry.MoveNumber + 1) / 2) +
                      (entry.MoveNumber % 2 == 1 ? ". " : "... ") + entry.MoveText + ": ";
    }
    played_.note += text;
  }

  /// What the game says of its end has to be what the board says, where that says anything.
  void End() {
    played_.result = text_.result;
    if (text_.result.empty()) {
      Refuse("It breaks off without a result.");
      return;
    }
    const Ending ending = EndingAt(turn_);
    if (keepMoves_) Hear(RemarksAt(text_.moves.size()), ending == Ending::None);
    if (ending == Ending::None) return EndByWord();
    played_.result = ResultOf(ending, turn_);
    if (text_.result != "*" && text_.result != played_.result) {
      Refuse("Its result is " + std::string(text_.result) + ", and on the board it ended " +
             std::string(played_.result) + '.');
    }
  }

  /// Adds the entry of an end that no player spoke: on time, by adjudication, or nobody knows how.
  /// It shows no king, as one that was given up does.
  void EndByWord() {
    if (!keepMoves_ || isEnded_ || played_.result == "*") return;
    const rules::Side winner = WinnerOf(played_.result);
    if (winner != rules::NoSide) LeavePlaceBefore(rules::OtherSide(winner));
    AddEntry({}, {}, std::string(played_.result));
    AddComment(WayOfEnding(text_));
  }

  const GameText& text_;
  const bool keepMoves_;
  Turn turn_;
  PlayedText played_;
  std::size_t heard_ = 0;  // how many of the comments
  std::string opening_;    // what was said before the first entry
  bool isEnded_ = false;   // by what a player said
};

}  // namespace

PlayedText PlayThrough(const GameText& text, bool keepMoves) {
  return Player(text, keepMoves).Play();
}

}  // namespace pgn
