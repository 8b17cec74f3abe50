// SPDX-License-Identifier: GPL-3.0-or-later
// The verbs that make moves in the user's games.
#include "cli/game_argument.h"
#include "cli/mail_service.h"
#include "cli/played_board.h"
#include "cli/verbs.h"
#include "mail/character_count.h"
#include "mail/move_mail.h"
#include "platform/process_state.h"
#include "rules/board_text.h"

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
  }
}

/// Where nothing is to be sent, nobody needs to be reached for a move to be allowed.
void PrepareSending(bool send) {
  if (send) {
    LogOn();
  } else {
    platform::Process().StandAlone = true;
  }
}

/// Saves the pending move, and sends it where asked. False where either failed.
bool SaveAndSend(PlayedBoard& played, bool send) {
  if (!played.logic.SaveMove()) return false;
  return !send || SendGame(played.logic.SavedGameID);
}

}  // namespace

bool New(const Call& call) {
  CheckTexts(call.arguments);
  const bool send = call.arguments.Has("--send");
  PrepareSending(send);
  platform::ProcessState& process = platform::Process();
  process.NewGame = {call.arguments.Value("--name"), call.arguments.Value("--opponent"),
                     call.arguments.Value("--email")};
  process.SetupGame = call.arguments.Has("--board");
  if (process.SetupGame) {
    rules::ThePosition().BoardState = rules::ReadBoardText(call.arguments.Value("--board"));
  }
  PlayedBoard played(call.messages);
  OpenGame(-1, played, call.messages);
  played.logic.PlayerComment = call.arguments.Value("--comment");
  const std::string move = call.arguments.Value("--move");
  if (!played.Play(move)) {
    throw Refusal("The move " + move + " was refused: " +
                  call.messages.TakeSentence("there is none of your pieces on its square."));
  }
  if (!SaveAndSend(played, send)) {
    throw Refusal(call.messages.TakeSentence("The move could not be saved or sent."));
  }
  JsonObject()
      .Add("game", played.logic.SavedGameID)
      .Add("text", played.logic.Moves.Last().MoveText)
      .Add("status", int{played.logic.GameStatus})
      .Print();
  return true;
}

bool Move(const Call& call) {
  CheckTexts(call.arguments);
  const store::GameRecord game = GameArgument(call.arguments);
  const bool send = call.arguments.Has("--send");
  PrepareSending(send);
  PlayedBoard played(call.messages);
  OpenGame(game.GAME_ID, played, call.messages);
  played.logic.PlayerComment = call.arguments.Value("--comment");
  const bool ok = played.Play(call.arguments.Others()[1]) && SaveAndSend(played, send);
  JsonObject answer;
  answer.Add("game", game.GAME_ID).Add("ok", ok);
  if (ok) {
    answer.Add("text", played.logic.Moves.Last().MoveText)
        .Add("status", int{played.logic.GameStatus});
  }
  answer.Add("messages", call.messages.Take()).Print();
  return ok;
}

}  // namespace cli
