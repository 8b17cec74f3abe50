// SPDX-License-Identifier: GPL-3.0-or-later
#include "mail/mail_session.h"

#include <exception>
#include <memory>
#include <string>

#include "mail/move_files.h"
#include "mail/retrieval.h"
#include "mail/status_popup.h"
#include "mail/unsent.h"
#include "platform/messages.h"
#include "platform/polling.h"
#include "platform/process_state.h"
#include "platform/registry.h"
#include "platform/seams.h"

namespace mail {
namespace {

bool SessionIsUp() {
  try {
    return platform::TheSeams().MMess->SessionID() > 0;
  } catch (const std::exception&) {
    return false;
  }
}

/// LogonStatus as this process may see and set it. The system takes the lock from a process that
/// dies: the flag is a crash's only where no living process holds the lock, and while one does, the
/// flag is that process's own. Where there can't be a lock there is just the flag.
class LogonGuard {
 public:
  LogonGuard() {
    try {
      lock_ = platform::TheSeams().files->TryLock(platform::Process().DataPath + "logon.lock");
      another_ = !lock_;
    } catch (const platform::FileError&) {
      // The folder can't be written to.
    }
  }

  bool TellsOfCrash() const { return !another_ && platform::GetLogonStatus(); }

  /// A flag that can't be stored is none, and keeps nobody from his mail.
  void Set(bool inProgress) const {
    if (!another_) platform::SetLogonStatus(inProgress);
  }

 private:
  std::unique_ptr<platform::HeldLock> lock_;
  bool another_ = false;
};

/// The guard stands while this lives: only a process that dies leaves it standing.
class GuardedLogon {
 public:
  GuardedLogon() { guard_.Set(true); }
  ~GuardedLogon() { guard_.Set(false); }
  GuardedLogon(const GuardedLogon&) = delete;
  GuardedLogon& operator=(const GuardedLogon&) = delete;

 private:
  LogonGuard guard_;
};

/// Raises std::exception.
void SignOn() {
  platform::MAPISession& session = *platform::TheSeams().MSess;
  const GuardedLogon guarded;
  session.SignOn();
  platform::TheSeams().MMess->SessionID(session.SessionID());
}

void ReportEarlierCrash() {
  platform::ShowMessage(
      platform::ErrorIcon, "Email logon failer",
      "As some point in the past Tarvolenix crashed while trying to connect to your email system.  "
      "You are now working off-line and will remain so until you choose Logon / Retrieve games "
      "from the system tray menu and successfully connect to your email client.  Please consult "
      "the document FAQ for help.",
      "Ok", {}, false, platform::FailureSound);
}

/// In the mail service's own words, too, where it has any. True where a logon is worth another try.
bool ReportLogonFailure() {
  const std::string problem = platform::TheSeams().MSess->LastProblem();
  platform::Process().RefusalTold = problem;
  return TellOfNetworkError(
      "Tarvolenix failed to connect to your mail service.||Please ensure you are logged onto a "
      "network and running an email client.  Tarvolenix is now running Offline." +
      (problem.empty() ? "" : "||" + problem));
}

void ReportMissingAccount(const std::string& reason) {
  platform::ShowMessage(platform::MailIcon, "Mail account", reason, "Ok", {}, false,
                        platform::FailureSound);
}

}  // namespace

bool TellOfNetworkError(const std::string& text) {
  const auto& signIn = platform::TheSeams().hooks.signIn;
  const char* title = "Network error.";
  if (!signIn || !platform::TheSeams().mailState->Connection().wantsSignIn) {
    platform::ShowMessage(platform::MailIcon, title, text, "Ok", {}, false, platform::FailureSound);
    return false;
  }
  const bool isSettled = platform::AskWithExtra(platform::MailIcon, title, text, "Ok", "Sign in...",
                                                platform::FailureSound);
  return !isSettled && !platform::Process().Stopping && signIn();
}

void ForgetEarlierCrash() { LogonGuard().Set(false); }

void MailLogon(bool showStatus) {
  const platform::PollingHold hold;
  const StatusPopup popup(showStatus);
  platform::ProcessState& process = platform::Process();
  process.Offline = true;
  if (LogonGuard().TellsOfCrash()) {
    ReportEarlierCrash();
    return;
  }
  process.RefusalTold.clear();
  process.OfflineByRefusal = false;
  if (SessionIsUp()) {
    process.Offline = false;
    return;
  }
  if (process.NoNetwork) return;
  popup.Show("Logging on...");
  try {
    SignOn();
    process.Offline = false;
    SendWhatWasNoted();
  } catch (const platform::AccountError& error) {
    if (showStatus && !process.StandAlone) ReportMissingAccount(error.what());
  } catch (const std::exception&) {
    const bool isHeard = showStatus && !process.StandAlone;
    if (isHeard && ReportLogonFailure()) MailLogon(showStatus);
  }
}

void MailLogoff(bool showStatus) {
  const platform::PollingHold hold;
  const StatusPopup popup(showStatus);
  popup.Show("Quiting Tarvolenix...");
  try {
    platform::TheSeams().MSess->SignOff();
  } catch (const std::exception&) {
    // The session ends with the process at the latest.
  }
}

std::vector<MoveArrival> LogonAndCollect(bool importFile, bool showStatus, bool fetchAll) {
  const platform::PollingHold hold;
  MailLogon(showStatus);
  const platform::ProcessState& process = platform::Process();
  if (process.Stopping) return {};
  if (importFile) return ImportMoveFiles(showStatus, true);
  if (!process.Offline) return RetrieveMoveMails(showStatus, fetchAll);
  if (process.StandAlone) return ImportMoveFiles(showStatus, false);
  return {};
}

}  // namespace mail
