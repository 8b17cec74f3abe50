// SPDX-License-Identifier: GPL-3.0-or-later
#include "mail/sending.h"

#include <optional>
#include <stdexcept>
#include <string>
#include <utility>

#include "mail/arrivals.h"
#include "mail/games_locked.h"
#include "mail/mail_memory.h"
#include "mail/move_mail.h"
#include "mail/undelivered.h"
#include "platform/messages.h"
#include "platform/polling.h"
#include "platform/seams.h"
#include "store/queries.h"
#include "store/saving.h"

namespace mail {
namespace {

/// A move is never lost for its dress.
platform::MovePage PageOf(std::int32_t gameID) {
  try {
    return platform::TheSeams().movePages->PageOf(gameID);
  } catch (const std::exception&) {
    return {};
  }
}

void Compose(const OutgoingGame& game) {
  platform::MAPIMessages& messages = *platform::TheSeams().MMess;
  messages.MsgIndex(-1);
  // The address book and an earlier mail leave their recipients in the buffer.
  while (messages.RecipCount() > 0) {
    messages.RecipIndex(0);
    messages.DeleteRecipient();
  }
  const store::GameRecord& record = game.record;
  messages.RecipIndex(0);
  messages.RecipAddress(record.GAME_OPPONENTS_EMAIL);
  messages.RecipDisplayName(record.GAME_HOST ? record.GAME_BLACK_NAME : record.GAME_WHITE_NAME);
  messages.RecipType(1);
  messages.MsgThread(ThreadOf(record));
  messages.MsgSubject(BuildMailSubject(game.moves));
  messages.MsgNoteText(BuildMailBody(record, game.moves));
  messages.MsgPage(PageOf(record.GAME_ID));
}

}  // namespace

std::string ThreadOf(const store::GameRecord& record) {
  const std::int32_t hostsID = record.GAME_HOST ? record.GAME_ID : record.GAME_OPPONENTS_ID;
  std::string thread = record.GAME_DATESTAMP;
  return thread.append("-").append(std::to_string(hostsID));
}

OutgoingGame LoadOutgoingGame(std::int32_t gameID) {
  std::optional<store::GameRecord> record;
  OutgoingGame game;
  if (!store::FindGame(record, gameID) || !record || !store::SelectMoves(game.moves, gameID) ||
      game.moves.empty()) {
    throw std::runtime_error("no moves of game " + std::to_string(gameID));
  }
  game.record = std::move(*record);
  return game;
}

void ReportTransmissionError(const std::string& cause) {
  platform::ShowMessage(
      platform::MailIcon, "Transmission error.",
      platform::WithCause("Tarvolenix was unable to send your chess move.||Please re-open the game "
                          "and re-send it.",
                          cause),
      "OK", {}, false, platform::FailureSound);
}

bool SendMoveMail(std::int32_t gameID) {
  const platform::PollingHold hold;
  std::string thread;
  try {
    const OutgoingGame game = LoadOutgoingGame(gameID);
    thread = ThreadOf(game.record);
    Compose(game);
    platform::TheSeams().MMess->Send();
  } catch (const platform::MailError&) {
    ReportTransmissionError(platform::TheSeams().MSess->LastProblem());
    return false;
  } catch (const std::exception& error) {
    ReportTransmissionError(FileCause(error));
    return false;
  }
  ForgetUndelivered(thread);
  NoteDeparture(thread);
  // The mail is on its way: a failing backup, which is silent everywhere, doesn't unsend it.
  store::BackupDatabase();
  return true;
}

void ChangeOpponentsAddress(store::GameRecord game, const std::string& address) {
  WithGamesLocked([&] {
    MailMemory memory = LoadMailMemory();
    memory.Remember(game.GAME_OPPONENTS_EMAIL, game, true);
    SaveMailMemory(memory);
    game.GAME_OPPONENTS_EMAIL = address;
    if (!store::SaveGame(game, {})) throw StoreFailure("the game can't be saved");
  });
}

}  // namespace mail
