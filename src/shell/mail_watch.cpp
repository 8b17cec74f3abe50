// SPDX-License-Identifier: GPL-3.0-or-later
#include "shell/mail_watch.h"

#include <algorithm>
#include <exception>
#include <optional>
#include <utility>
#include <vector>

#include "mail/games_locked.h"
#include "mail/mail_memory.h"
#include "mail/mail_session.h"
#include "mail/sending.h"
#include "mail/undelivered.h"
#include "mail/unsent.h"
#include "platform/conversions.h"
#include "platform/messages.h"
#include "platform/polling.h"
#include "platform/process_state.h"
#include "platform/seams.h"
#include "shell/polling_loop.h"
#include "shell/tray_status.h"
#include "store/queries.h"

namespace shell {

using platform::MailConnection;
using platform::MailLink;
using platform::MailOnItsWay;
using platform::MailStage;
using platform::Process;

namespace {

platform::MailState& State() { return *platform::TheSeams().mailState; }

/// Such as "14:05", of a moment given in seconds since 1970.
std::string TimeOfDay(std::int64_t seconds) {
  constexpr std::int64_t minutesOfDay = 1440;
  platform::Clock& clock = *platform::TheSeams().clock;
  const platform::LocalTime now = clock.Now();
  const std::int64_t ahead = (seconds - clock.Seconds()) / 60;
  const std::int64_t minutes = (now.hour * 60 + now.minute + ahead) % minutesOfDay;
  const auto minute = static_cast<int>((minutes + minutesOfDay) % minutesOfDay);
  return platform::ZeroFilled(minute / 60, 2) + ':' + platform::ZeroFilled(minute % 60, 2);
}

std::string NextTryText(std::int64_t nextTry) {
  return nextTry == 0 ? "" : ", next try " + TimeOfDay(nextTry);
}

bool Waits(const MailOnItsWay& mail) {
  return mail.stage == MailStage::Waiting || mail.stage == MailStage::Perhaps;
}

std::string Because(const std::string& reason) { return reason.empty() ? "." : ": " + reason; }

std::string TextOf(const MailOnItsWay& mail) {
  switch (mail.stage) {
    case MailStage::Sending:
      return "The move is on its way.";
    case MailStage::Waiting:
      return "The move waits to be sent" + NextTryText(mail.nextTry) + Because(mail.reason);
    case MailStage::Perhaps:
      return "The move may have been sent; to be sure it is sent once more" +
             NextTryText(mail.nextTry) + Because(mail.reason);
    default:
      return "The move could not be sent" + Because(mail.reason);
  }
}

GameMail::Kind KindOf(MailStage stage) {
  if (stage == MailStage::Failed) return GameMail::Failed;
  return stage == MailStage::Sending ? GameMail::OnItsWay : GameMail::Waiting;
}

std::string CountText(std::ptrdiff_t count, const char* one, const char* many) {
  return count == 1 ? std::string("1 mail ") + one : std::to_string(count) + " mails " + many;
}

/// The next look of a tick may find the way open, too.
std::int64_t NextTryOf(const MailConnection& connection) {
  const platform::PollingTimer& timer = Process().CheckTimer;
  const std::int64_t look = connection.triedAt + timer.Interval / 1000;
  const bool looks = timer.Interval > 0 && connection.triedAt != 0 &&
                     look >= platform::TheSeams().clock->Seconds();
  if (!looks) return connection.nextTry;
  return connection.nextTry == 0 ? look : std::min(look, connection.nextTry);
}

std::optional<store::GameRecord> GameOf(const std::string& thread) {
  store::GameRecords games;
  if (thread.empty() || !store::SelectGames(games, {})) return std::nullopt;
  const auto found = std::find_if(games.begin(), games.end(), [&thread](const auto& game) {
    return mail::ThreadOf(game) == thread;
  });
  return found == games.end() ? std::nullopt : std::optional(*found);
}

const MailOnItsWay* MailOf(const store::GameRecord& game, const std::vector<MailOnItsWay>& mails) {
  const std::string thread = mail::ThreadOf(game);
  const auto found = std::find_if(mails.begin(), mails.end(),
                                  [&thread](const auto& mail) { return mail.thread == thread; });
  return found == mails.end() ? nullptr : &*found;
}

void TellOfFailure(const MailOnItsWay& failed) {
  const auto game = GameOf(failed.thread);
  const std::string what =
      game ? "Your move in the game \"" + game->GAME_NAME + "\" with " + game->GAME_OPPONENTS_NAME
           : "A move";
  const std::string text = what + " could not be sent to " + failed.to + ".||" + failed.reason;
  if (!game) {
    platform::ShowMessage(platform::MailIcon, "Move not sent", text, "OK", {}, false,
                          platform::FailureSound);
    return;
  }
  const bool waits = platform::AskWithExtra(
      platform::MailIcon, "Move not sent",
      text + "||You can also try again, or change the address later, from the Game menu.", "Later",
      "Change address", platform::FailureSound);
  if (!waits && !Process().Stopping) ChangeAddress(game->GAME_ID);
}

/// True where the user has signed in anew.
bool TellOfRefusal(const std::string& reason) {
  Process().RefusalTold = reason;
  return mail::TellOfNetworkError(reason +
                                  "||Tarvolenix is now running Offline until you mend your mail "
                                  "account, or choose Logon / Retrieve games.");
}

bool IsUntoldRefusal(const MailConnection& connection) {
  return connection.link == MailLink::Refused && Process().RefusalTold != connection.reason;
}

bool IsUntoldFailure(const MailOnItsWay& mail) {
  return mail.stage == MailStage::Failed && !mail.isTold;
}

bool IsAnyOnItsWay() {
  const auto mails = State().OnItsWay();
  return std::any_of(mails.begin(), mails.end(),
                     [](const auto& mail) { return mail.stage == MailStage::Sending; });
}

bool HasTrouble() {
  const auto mails = State().OnItsWay();
  return IsUntoldRefusal(State().Connection()) ||
         std::any_of(mails.begin(), mails.end(), IsUntoldFailure);
}

/// What is refused keeps the program off line, until it is taken again. True where that changed.
bool FollowRefusal() {
  platform::ProcessState& process = Process();
  const bool before = process.Offline;
  const MailLink link = State().Connection().link;
  if (link == MailLink::Refused) {
    process.Offline = process.OfflineByRefusal = true;
  } else if (process.OfflineByRefusal && link == MailLink::Connected && !IsAnyOnItsWay()) {
    process.Offline = process.OfflineByRefusal = false;
    process.RefusalTold.clear();
  }
  return process.Offline != before;
}

/// True where the user has signed in anew.
bool TellOfWhatIsNew() {
  const platform::PollingHold hold;
  const MailConnection connection = State().Connection();
  const bool hasSignedIn = IsUntoldRefusal(connection) && TellOfRefusal(connection.reason);
  for (const MailOnItsWay& mail : State().OnItsWay()) {
    if (Process().Stopping) return false;
    if (!IsUntoldFailure(mail)) continue;
    State().NoteTold(mail.thread);
    TellOfFailure(mail);
  }
  return hasSignedIn && !Process().Stopping;
}

void ReportAddressNotStored(const std::string& cause) {
  platform::ShowMessage(platform::DatabaseIcon, "Change address",
                        platform::WithCause("The new address can't be stored.", cause), "OK", {},
                        false, platform::FailureSound);
}

}  // namespace

GameMails::GameMails() {
  try {
    for (const auto& [thread, reason] : mail::LoadMailMemory().undelivered) {
      byThread_[thread] = {GameMail::Failed, "The move could not be delivered" + Because(reason)};
    }
  } catch (const std::exception&) {
    // a note, and no reason to show no list
  }
  for (const MailOnItsWay& mail : State().OnItsWay()) {
    if (!mail.thread.empty()) byThread_[mail.thread] = {KindOf(mail.stage), TextOf(mail)};
  }
}

const GameMail* GameMails::Of(const store::GameRecord& game) const {
  if (byThread_.empty() || game.GAME_VS_COMPUTER) return nullptr;
  const auto found = byThread_.find(mail::ThreadOf(game));
  return found == byThread_.end() ? nullptr : &found->second;
}

std::string MailLine() {
  const MailConnection connection = State().Connection();
  if (connection.link == MailLink::Waiting) {
    return "Waiting for the network since " + TimeOfDay(connection.since) +
           NextTryText(NextTryOf(connection));
  }
  if (connection.link == MailLink::Refused) return "The mail server refuses the account";
  const auto mails = State().OnItsWay();
  const auto waiting = std::count_if(mails.begin(), mails.end(), Waits);
  if (waiting > 0) return CountText(waiting, "is waiting", "are waiting");
  const auto failed = std::count_if(
      mails.begin(), mails.end(), [](const auto& mail) { return mail.stage == MailStage::Failed; });
  return failed == 0 ? "" : CountText(failed, "could not be sent", "could not be sent");
}

bool MayDeliverNow() {
  const auto mails = State().OnItsWay();
  return State().Connection().link != MailLink::None &&
         std::any_of(mails.begin(), mails.end(), Waits);
}

void DeliverNow() { State().DeliverNow(); }

void FollowMails() {
  if (Process().Stopping) return;
  platform::Windows& windows = *platform::TheSeams().windows;
  const bool goesOnOrOffLine = FollowRefusal();
  UpdateTrayStatus(platform::TrayOperation::Modify);
  if (goesOnOrOffLine && Process().GameListOpen) {
    windows.FillGameList(windows.SelectedGame());
  } else {
    windows.ShowMails();
  }
  TellOfMailTrouble();
}

void TellOfMailTrouble() {
  if (Process().Stopping || Process().CheckTimerHeld || !Process().StartupComplete) return;
  // The end of a hold leads here again.
  if (HasTrouble() && TellOfWhatIsNew()) RetrieveByHand();
}

bool MayTryAgain(const store::GameRecord& game) {
  if (game.GAME_VS_COMPUTER || Process().Offline) return false;
  const auto mails = State().OnItsWay();
  const MailOnItsWay* mail = MailOf(game, mails);
  return mail ? mail->stage != MailStage::Sending
              : mail::UndeliveredReason(mail::ThreadOf(game)).has_value();
}

void TryAgainToSend(std::int32_t gameID) {
  std::optional<store::GameRecord> game;
  if (!store::FindGame(game, gameID) || !game) return;
  const auto mails = State().OnItsWay();
  const MailOnItsWay* waiting = MailOf(*game, mails);
  if (waiting && Waits(*waiting)) {
    State().DeliverNow();  // the same mail: it may have been sent already
  } else {
    mail::SendMoveMail(gameID);
  }
}

void ChangeAddress(std::int32_t gameID) {
  const platform::PollingHold hold;
  std::optional<store::GameRecord> game;
  if (!store::FindGame(game, gameID) || !game) return;
  const auto address = platform::TheSeams().windows->AskAddress(game->GAME_OPPONENTS_NAME,
                                                                game->GAME_OPPONENTS_EMAIL);
  if (!address || Process().Stopping || *address == game->GAME_OPPONENTS_EMAIL) return;
  const auto mails = State().OnItsWay();
  const bool sends = MailOf(*game, mails) || mail::UndeliveredReason(mail::ThreadOf(*game));
  try {
    mail::ChangeOpponentsAddress(*game, *address);
  } catch (const std::exception& failure) {
    return ReportAddressNotStored(mail::FileCause(failure));
  }
  if (!sends) return;
  if (Process().Offline) {
    mail::SendWithNextLogon(gameID);
  } else {
    mail::SendMoveMail(gameID);
  }
}

}  // namespace shell
