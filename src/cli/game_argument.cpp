// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/game_argument.h"

#include <limits>
#include <optional>

#include "board/history.h"
#include "platform/process_state.h"
#include "store/queries.h"
#include "store/repair.h"

namespace cli {

Refusal GameFileRefusal(const std::string& sentence) {
  const std::string unreadable = store::ExamineGameFile().unreadable;
  const std::string cause =
      unreadable.empty() ? store::DamageSentence() : "The cause: " + unreadable + ".";
  return Refusal(cause.empty() ? sentence : sentence + " " + cause);
}

store::GameRecord GameArgument(const Arguments& arguments, std::size_t index) {
  const int gameID = arguments.Number(index, 1, std::numeric_limits<int>::max());
  std::optional<store::GameRecord> game;
  if (!store::FindGame(game, gameID)) {
    throw GameFileRefusal("The game file is damaged or can't be read.");
  }
  if (!game) throw Refusal("There is no game " + std::to_string(gameID) + ".");
  return *game;
}

void OpenGame(std::int32_t gameID, PlayedBoard& played, CollectedMessages& messages,
              board::MovesAre moves) {
  platform::Process().CurrentGameID = gameID;
  board::Form_Load(played.logic, moves);
  if (played.logic.UnloadPending) throw Refusal(messages.TakeSentence("The game can't be opened."));
  // A first press on a marked board would only clean it, and say nothing.
  board::RemoveHilight(played.logic);
}

}  // namespace cli
