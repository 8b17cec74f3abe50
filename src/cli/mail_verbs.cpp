// SPDX-License-Identifier: GPL-3.0-or-later
// The verbs of mails and move files.
#include "cli/delivery_states.h"
#include "cli/game_argument.h"
#include "cli/mail_service.h"
#include "cli/verbs.h"
#include "mail/mail_session.h"
#include "mail/move_files.h"
#include "mail/move_text_check.h"
#include "mail/retrieval.h"
#include "mail/sending.h"
#include "platform/messages.h"
#include "platform/process_state.h"
#include "platform/seams.h"

namespace cli {

namespace {

/// Runs a logon because the user asked for it, whatever became of the one before. One that comes
/// back has crashed nothing: the windows, which share the settings, needn't warn of it.
template <typename Work>
auto WithoutLogonGuard(const Work& work) {
  struct Cleared {
    Cleared() { mail::ForgetEarlierCrash(); }
    ~Cleared() { mail::ForgetEarlierCrash(); }
  } const cleared;
  return work();
}

/// Nothing of a mail that the user has refused for good.
void PrintHeld(const mail::MoveArrival& arrival) {
  if (arrival.held.empty() && !arrival.isDropped) return;
  JsonObject()
      .Add("held", arrival.isDropped ? Json{"null"} : Json{Quoted(arrival.held)})
      .Add("game", arrival.gameID)
      .Add("from", arrival.from)
      .Add("why", mail::NameOf(arrival.why))
      .Print();
}

}  // namespace

void LogOn() {
  WithoutLogonGuard([] { mail::MailLogon(true); });
}

Sending SendGame(const store::GameRecord& game) {
  if (platform::Process().Offline) {
    platform::ShowMessage(platform::MailIcon, "Network error.",
                          "The move was not sent: there is no connection to your mail service.",
                          "OK");
    return {false, "failed", {}};
  }
  if (!mail::SendMoveMail(game.GAME_ID)) return {false, "failed", {}};
  AwaitDelivery();
  const std::string thread = mail::ThreadOf(game);
  for (const auto& mail : platform::TheSeams().mailState->OnItsWay()) {
    if (mail.thread != thread) continue;
    const bool isFailed = mail.stage == platform::MailStage::Failed;
    if (isFailed) platform::TheSeams().mailState->NoteTold(thread);
    const bool isUnknown = mail.stage == platform::MailStage::Sending;
    return {!isFailed, isUnknown ? "waiting" : NameOf(mail.stage), mail.reason};
  }
  return {true, "sent", {}};
}

void AddSending(JsonObject& answer, const Sending& sending) {
  answer.Add("state", sending.state);
  if (!sending.reason.empty()) answer.Add("reason", sending.reason);
}

std::string WhyNotSent(const std::string& what, const Sending& sending,
                       CollectedMessages& messages) {
  if (!sending.reason.empty()) return what + ' ' + sending.reason;
  return WithServiceReason(messages.TakeSentence(what));
}

std::string WithServiceReason(const std::string& said) {
  const std::string reason = platform::TheSeams().MSess->LastProblem();
  const bool isNews = !reason.empty() && said.find(reason) == std::string::npos;
  return isNews ? said + ' ' + reason : said;
}

bool Check(const Call& call) {
  std::string refused;
  std::string unreadable;
  for (const std::string& file : call.arguments.Others()) {
    int stage = 0;
    bool read = true;
    try {
      const std::string text = platform::TheSeams().files->Read(file);
      stage = mail::CheckMoveText(mail::ExtractMoveText(text));
    } catch (const platform::FileError&) {
      read = false;
      unreadable += (unreadable.empty() ? "" : ", ") + file;
    }
    const bool ok = read && stage == 0;
    if (read && !ok) refused += (refused.empty() ? "" : ", ") + file;
    JsonObject().Add("file", file).Add("ok", ok).Add("stage", stage).Print();
  }
  if (!unreadable.empty()) throw Refusal("Can't be read: " + unreadable + ".");
  if (!refused.empty()) throw Refusal("Not a move as it should be: " + refused + ".");
  return true;
}

bool Import(const Call& call) {
  bool allOk = true;
  std::string failed;
  for (const std::string& file : call.arguments.Others()) {
    const mail::MoveArrival arrival = mail::ImportPickedFile(file, false);
    JsonObject()
        .Add("file", file)
        .Add("ok", arrival.ok)
        .Add("game", arrival.gameID)
        .Add("changed", arrival.changed)
        .Add("stage", arrival.stage)
        .Print();
    const std::string said = call.messages.TakeSentence({});
    if (!arrival.ok)
      failed.append(failed.empty() ? "" : " ").append(file).append(": ").append(said);
    allOk = allOk && arrival.ok;
  }
  if (!allOk) throw Refusal(failed);
  return true;
}

bool Export(const Call& call) {
  const store::GameRecord game = GameArgument(call.arguments);
  std::string file;
  if (!mail::ExportMoveFile(game.GAME_ID, &file)) {
    throw Refusal(call.messages.TakeSentence("The move file can't be written."));
  }
  JsonObject().Add("file", file).Print();
  return true;
}

bool Send(const Call& call) {
  const store::GameRecord game = GameArgument(call.arguments);
  LogOn();
  const Sending sending = SendGame(game);
  JsonObject answer;
  answer.Add("game", game.GAME_ID).Add("ok", sending.ok).Add("to", game.GAME_OPPONENTS_EMAIL);
  AddSending(answer, sending);
  answer.Print();
  if (!sending.ok) throw Refusal(WhyNotSent("The move was not sent.", sending, call.messages));
  return true;
}

bool Retrieve(const Call& call) {
  const bool all = call.arguments.Has("--all");
  const auto arrivals =
      WithoutLogonGuard([all] { return mail::LogonAndCollect(false, true, all); });
  AwaitDelivery();
  bool allOk = !platform::Process().Offline;
  for (const mail::MoveArrival& arrival : arrivals) {
    if (arrival.why != mail::Objection::None) {
      PrintHeld(arrival);
      continue;
    }
    JsonObject()
        .Add("game", arrival.gameID)
        .Add("changed", arrival.changed)
        .Add("ok", arrival.ok)
        .Add("stage", arrival.stage)
        .Add("from", arrival.from)
        .Print();
    allOk = allOk && arrival.ok;
  }
  if (!allOk || !call.messages.Empty()) {
    throw Refusal(WithServiceReason(call.messages.TakeSentence("The mailbox can't be reached.")));
  }
  return true;
}

}  // namespace cli
