// SPDX-License-Identifier: GPL-3.0-or-later
#include "mail/undelivered.h"

#include <algorithm>
#include <exception>
#include <map>

#include "mail/games_locked.h"
#include "mail/mail_memory.h"
#include "mail/sending.h"
#include "platform/messages.h"
#include "platform/process_state.h"
#include "store/queries.h"

namespace mail {
namespace {

std::optional<store::GameRecord> GameOf(std::string_view thread) {
  store::GameRecords games;
  if (!store::SelectGames(games, "")) throw StoreFailure("the games can't be read");
  const auto found = std::find_if(games.begin(), games.end(), [thread](const auto& game) {
    return !game.GAME_VS_COMPUTER && ThreadOf(game) == thread;
  });
  return found == games.end() ? std::nullopt : std::optional(*found);
}

void Tell(const store::GameRecord& game, const std::string& reason) {
  if (platform::Process().Stopping) return;
  const std::string said = reason.empty() ? "." : ": the mail server says \"" + reason + "\".";
  platform::ShowMessage(platform::MailIcon, "Move not delivered",
                        "Your move in the game \"" + game.GAME_NAME +
                            "\" couldn't be delivered to " + game.GAME_OPPONENTS_EMAIL + said,
                        "OK", {}, false, platform::AttentionSound);
}

}  // namespace

std::optional<std::string> UndeliveredReason(std::string_view thread) {
  try {
    const MailMemory memory = LoadMailMemory();
    const auto found = memory.undelivered.find(thread);
    if (found != memory.undelivered.end()) return found->second;
  } catch (const std::exception&) {
    // a note, and no reason to show no list
  }
  return std::nullopt;
}

bool NoteUndelivered(const platform::Undelivered& report) {
  bool isNews = false;
  WithGamesLocked([&] {
    MailMemory memory = LoadMailMemory();
    isNews = !memory.WasTold(report.messageID) && GameOf(report.thread);
    if (!isNews) return;
    memory.told.push_back(report.messageID);
    memory.undelivered[report.thread] = report.reason;
    SaveMailMemory(memory);
  });
  return isNews;
}

void TellOfUndelivered(const std::vector<platform::Undelivered>& reports) {
  std::map<std::string, std::string> lastReasons;
  for (const auto& report : reports) lastReasons[report.thread] = report.reason;
  for (const auto& [thread, reason] : lastReasons) {
    try {
      if (const auto game = GameOf(thread)) Tell(*game, reason);
    } catch (const std::exception&) {
      // the list of games says it, too
    }
  }
}

void ForgetUndelivered(std::string_view thread) {
  try {
    if (!UndeliveredReason(thread)) return;
    WithGamesLocked([thread] {
      MailMemory memory = LoadMailMemory();
      const auto found = memory.undelivered.find(thread);
      if (found == memory.undelivered.end()) return;
      memory.undelivered.erase(found);
      SaveMailMemory(memory);
    });
  } catch (const std::exception&) {
  }
}

}  // namespace mail
