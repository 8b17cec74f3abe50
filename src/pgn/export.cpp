// SPDX-License-Identifier: GPL-3.0-or-later
#include "pgn/export.h"

#include <algorithm>
#include <string_view>

#include "pgn/entries.h"
#include "pgn/fen.h"
#include "pgn/movetext.h"
#include "pgn/san.h"
#include "pgn/sayings.h"
#include "rules/position_guard.h"
#include "store/queries.h"

namespace pgn {
namespace {

constexpr std::string_view unknown = "?";

std::string TagLine(std::string_view name, std::string_view value) {
  std::string line = '[' + std::string(name) + " \"";
  for (const char c : value.empty() ? unknown : value) {
    if (c == '"' || c == '\\') line += '\\';
    line += static_cast<unsigned char>(c) < ' ' ? ' ' : c;
  }
  return line + "\"]\n";
}

/// "2026.11.25" of "25/11/2026".
std::string DateTag(const std::string& date) {
  if (date.size() != 10 || date[2] != '/' || date[5] != '/') return "????.??.??";
  return date.substr(6) + '.' + date.substr(3, 2) + '.' + date.substr(0, 2);
}

constexpr std::string_view running = "*";
constexpr std::string_view drawn = "1/2-1/2";

std::string_view WonBy(rules::Side side) { return side == rules::White ? "1-0" : "0-1"; }

/// The moves of a game as PGN, and how it ended.
class Course {
 public:
  explicit Course(const store::GameRecord& game) { BeginGame(game); }

  void Add(const store::MoveRecords& entries) {
    for (std::size_t i = 0; i < entries.size(); ++i) {
      if (!AddEntry(entries[i], SideOfEntry(i + 1))) {
        AddRemainder(entries, i);
        break;
      }
    }
    // What the entries say of the end was checked by nobody.
    const Ending ending = EndingAt(turn_);
    if (ending != Ending::None) result_ = ResultOf(ending, turn_);
  }

  std::string_view Result() const { return result_; }
  std::string Termination() const { return result_ == running ? "unterminated" : termination_; }
  std::string Text() { return text_.Finished(result_); }

 private:
  /// False for what is no move of chess.
  bool AddEntry(const store::MoveRecord& entry, rules::Side side) {
    const EntryKind kind = KindOf(entry);
    if (kind == EntryKind::Move) return AddMove(entry, side);
    // The word tells who has won; an old one tells nothing but that.
    if (kind == EntryKind::Surrender && entry.MoveText != "Surrender") {
      side = entry.MoveText == WonBy(rules::Black) ? rules::White : rules::Black;
    }
    AddWords(entry, {kind, side, entry.MoveComment});
    if (kind != EntryKind::DrawOffer) result_ = ResultBy(kind, side);
    isOffered_ = kind == EntryKind::DrawOffer;
    turn_.lastMove = {};
    return true;
  }

  void AddWords(const store::MoveRecord& entry, const Saying& saying) {
    if (IsUnspokenEnd(entry)) {
      if (!entry.MoveComment.empty()) termination_ = entry.MoveComment;
    } else if (saying.kind == EntryKind::Draw && !isOffered_) {
      // Nobody knows who wanted it.
      AddPlain(entry.MoveComment);
    } else {
      text_.AddComment(CommentOf(saying));
    }
  }

  /// A comment of a move may read like a saying, and isn't one.
  void AddPlain(const std::string& comment) {
    text_.AddComment(comment, SayingIn(comment).has_value());
  }

  static std::string_view ResultBy(EntryKind kind, rules::Side side) {
    if (kind == EntryKind::Surrender) return WonBy(rules::OtherSide(side));
    return kind == EntryKind::Draw ? drawn : running;
  }

  bool AddMove(const store::MoveRecord& entry, rules::Side side) {
    const ChessMove move = MoveOf(entry, side);
    // A place that an import has left free.
    if (!IsOnBoard(move.from) && entry.MoveCoordinates == "0000") return true;
    if (side != turn_.side || !IsLegal(turn_, move.from, move.to) || StaysPawn(move)) return false;
    const Turn before = turn_;
    text_.AddMove(before, PlaySan(turn_, move));
    AddPlain(entry.MoveComment);
    const std::string& words = entry.MoveText;
    if (words.ends_with("++")) result_ = WonBy(side);
    if (words.ends_with(drawn)) result_ = drawn;
    return true;
  }

  bool StaysPawn(const ChessMove& move) const {
    return rules::IsPawn(move.becomes) && move.to.y == rules::HomeRow(rules::OtherSide(turn_.side));
  }

  void AddRemainder(const store::MoveRecords& entries, std::size_t first) {
    std::string text = "What follows is against the rules of chess:";
    for (std::size_t i = first; i < entries.size(); ++i) {
      text += ' ' + entries[i].MoveText;
      if (!entries[i].MoveComment.empty()) text += " (" + entries[i].MoveComment + ')';
    }
    text_.AddComment(text);
  }

  Turn turn_;
  MoveText text_;
  bool isOffered_ = false;
  std::string_view result_ = running;
  std::string termination_ = "normal";
};

std::string PlayerTag(const std::string& name, bool own, const ExportOptions& options) {
  return name.empty() && own ? options.ownName : name;
}

std::string AddressTag(const char* name, bool own, const store::GameRecord& game,
                       const ExportOptions& options) {
  if (!options.addresses) return {};
  const std::string& address = own ? options.ownAddress : game.GAME_OPPONENTS_EMAIL;
  return address.empty() ? "" : TagLine(name, address);
}

std::string SetUpTags() {
  const std::string fen = WriteFen({});
  return fen == startFen ? "" : TagLine("FEN", fen) + TagLine("SetUp", "1");
}

}  // namespace

std::string PgnOfGame(const store::GameRecord& game, const store::MoveRecords& moves,
                      const ExportOptions& options) {
  const rules::PositionGuard guard;
  Course course(game);
  const std::string setUp = SetUpTags();
  course.Add(moves);
  const bool white = game.GAME_HOST;
  // Behind the seven tags of every game the others come by the alphabet.
  return TagLine("Event", game.GAME_NAME) + TagLine("Site", unknown) +
         TagLine("Date", DateTag(game.GAME_DATE)) + TagLine("Round", "-") +
         TagLine("White", PlayerTag(game.GAME_WHITE_NAME, white, options)) +
         TagLine("Black", PlayerTag(game.GAME_BLACK_NAME, !white, options)) +
         TagLine("Result", course.Result()) + AddressTag("BlackNA", !white, game, options) + setUp +
         TagLine("Termination", course.Termination()) +
         AddressTag("WhiteNA", white, game, options) + '\n' + course.Text();
}

std::optional<std::string> PgnOfStoredGames(const std::vector<std::int32_t>& numbers,
                                            const ExportOptions& options,
                                            const std::function<bool()>& goOn) {
  std::string text;
  bool goesOn = true;
  const bool read =
      store::VisitGames([&](const store::GameRecord& game, const store::MoveRecords& moves) {
        const bool wanted = numbers.empty() || std::ranges::count(numbers, game.GAME_ID) > 0;
        goesOn = goesOn && (!wanted || !goOn || goOn());
        if (wanted && goesOn) text += PgnOfGame(game, moves, options);
      });
  return read ? std::optional(text) : std::nullopt;
}

}  // namespace pgn
