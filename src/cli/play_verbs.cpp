// SPDX-License-Identifier: GPL-3.0-or-later
// The verbs that make moves in the user's games.
#include <optional>

#include "board/saving.h"
#include "cli/game_argument.h"
#include "cli/mail_service.h"
#include "cli/played_board.h"
#include "cli/verbs.h"
#include "mail/character_count.h"
#include "mail/move_mail.h"
#include "mail/unsent.h"
#include "pgn/fen.h"
#include "platform/process_state.h"
#include "platform/utf8.h"
#include "rules/board_text.h"
#include "store/queries.h"

namespace cli {
namespace {

struct TextLimit {
  const char* option;
  std::size_t longest;  ///< characters
  bool mayBeEmpty;
};

constexpr TextLimit textLimits[] = {{"--name", 50, false},
                                    {"--opponent", 50, true},
                                    {"--email", 255, false},
                                    {"--comment", 200, true}};

/// What is typed here becomes fields of the game file and of a mail, which know no escapes.
void CheckTexts(const Arguments& arguments) {
  for (const TextLimit& limit : textLimits) {
    if (!arguments.Has(limit.option)) continue;
    const std::string text = arguments.Value(limit.option);
    const std::string name = limit.option;
    if (text.empty() && !limit.mayBeEmpty) throw Refusal("The text of " + name + " is empty.");
    if (mail::CharacterCount(text) > limit.longest) {
      throw Refusal("The text of " + name + " is longer than " + std::to_string(limit.longest) +
                    " characters.");
    }
    if (text.find('|') != std::string::npos || mail::StripReservedText(text) != text) {
      throw Refusal("The text of " + name +
                    " holds a \"|\", a control character or a marker of move mails, which can't "
                    "stand there.");
    }
    if (!platform::IsUtf8(text)) throw Refusal("The text of " + name + " is no UTF-8.");
  }
}

/// A start position that a game can be played from.
std::string CheckedBoard(const std::string& text) {
  const rules::BoardSquares squares = rules::ReadBoardText(text);
  const bool oneKingEach = std::popcount(squares.Of(rules::WhiteKing)) == 1 &&
                           std::popcount(squares.Of(rules::BlackKing)) == 1;
  if (rules::WriteBoardText(squares) != text || !oneKingEach) {
    throw Refusal(
        "The text of --board is no position with a king on each side: eight groups of "
        "sixteen digits joined by \";\", row 1 first.");
  }
  return text;
}

/// The board of a FEN that a game can begin with.
std::string BoardOfFen(const std::string& text) {
  const pgn::FenReading reading = pgn::ReadFen(text);
  const std::string why = reading.trouble.empty() ? pgn::WhyNoStart(reading) : reading.trouble;
  if (!why.empty()) throw Refusal("The text of --fen was refused: " + why);
  return rules::WriteBoardText(reading.board);
}

/// The board that a new game is to begin with; blank for the normal start.
std::string StartBoard(const Arguments& arguments) {
  if (arguments.Has("--fen") && arguments.Has("--board")) {
    throw UsageError("The options --board and --fen exclude each other.");
  }
  if (arguments.Has("--fen")) return BoardOfFen(arguments.Value("--fen"));
  return arguments.Has("--board") ? CheckedBoard(arguments.Value("--board")) : "";
}

/// Where something is to be sent, nothing is saved that can't be sent.
board::MovesAre PrepareSending(bool send, CollectedMessages& messages) {
  if (!send) return board::MovesAre::StoredOnly;
  LogOn();
  if (platform::Process().Offline) {
    throw Refusal(messages.TakeSentence("There is no connection to your mail service."));
  }
  return board::MovesAre::Sent;
}

/// What became of a move once it was played.
struct Stored {
  bool saved = false;
  std::optional<Sending> sending;  ///< nothing where it wasn't to be sent

  bool IsDone() const { return saved && (!sending || sending->ok); }
};

Stored Store(PlayedBoard& played, bool send) {
  std::optional<mail::SendingNote> note;
  if (send) note.emplace(platform::Process().CurrentGameID);
  if (!board::SaveMove(played.logic)) return {};
  if (!send) return {true, {}};
  std::optional<store::GameRecord> game;
  if (!store::FindGame(game, played.logic.SavedGameID) || !game) return {true, Sending{}};
  return {true, SendGame(*game)};
}

void AddMove(JsonObject& answer, const PlayedBoard& played) {
  answer.Add("text", played.logic.Moves.Last().MoveText)
      .Add("status", int{played.logic.GameStatus});
}

/// Why what was asked wasn't done.
std::string Failure(const Stored& stored, const std::string& what, CollectedMessages& messages) {
  if (!stored.saved) return messages.TakeSentence("The " + what + " could not be saved.");
  return WhyNotSent("The " + what + " was saved, but not sent.", *stored.sending, messages);
}

constexpr const char* emptySquare = "there is none of your pieces on its square.";

}  // namespace

bool New(const Call& call) {
  CheckTexts(call.arguments);
  platform::ProcessState& process = platform::Process();
  const std::string board = StartBoard(call.arguments);
  process.SetupGame = !board.empty();
  const bool send = call.arguments.Has("--send");
  const board::MovesAre moves = PrepareSending(send, call.messages);
  process.NewGame = {call.arguments.Value("--name"), call.arguments.Value("--opponent"),
                     call.arguments.Value("--email")};
  PlayedBoard played(call.messages);
  OpenGame(-1, played, call.messages, moves);
  if (process.SetupGame && !played.BeginFrom(board)) {
    throw Refusal("The position was refused: " + call.messages.TakeSentence({}));
  }
  played.logic.PlayerComment = call.arguments.Value("--comment");
  const std::string move = call.arguments.Value("--move");
  if (!played.Play(move)) {
    throw Refusal("The move " + move + " was refused: " + call.messages.TakeSentence(emptySquare));
  }
  const Stored stored = Store(played, send);
  if (!stored.saved) throw Refusal(Failure(stored, "game", call.messages));
  JsonObject answer;
  answer.Add("game", played.logic.SavedGameID);
  AddMove(answer, played);
  if (stored.sending) AddSending(answer, *stored.sending);
  answer.Print();
  if (!stored.IsDone()) throw Refusal(Failure(stored, "game", call.messages));
  return true;
}

bool Move(const Call& call) {
  CheckTexts(call.arguments);
  const store::GameRecord game = GameArgument(call.arguments);
  const bool send = call.arguments.Has("--send");
  const board::MovesAre moves = PrepareSending(send, call.messages);
  PlayedBoard played(call.messages);
  OpenGame(game.GAME_ID, played, call.messages, moves);
  played.logic.PlayerComment = call.arguments.Value("--comment");
  const std::string& move = call.arguments.Others()[1];
  const bool accepted = played.PlayEntry(move);
  const Stored stored = accepted ? Store(played, send) : Stored{};
  JsonObject answer;
  answer.Add("game", game.GAME_ID).Add("ok", stored.IsDone());
  if (stored.saved) AddMove(answer, played);
  if (stored.sending) AddSending(answer, *stored.sending);
  answer.Add("messages", call.messages.Pairs()).Print();
  if (!accepted) {
    throw Refusal("The move " + move + " was refused: " + call.messages.TakeSentence(emptySquare));
  }
  if (!stored.IsDone()) throw Refusal(Failure(stored, "move", call.messages));
  return true;
}

}  // namespace cli
