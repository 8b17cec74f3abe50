// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/program/system_tray.h"

#include <QApplication>
#include <QThread>

#include <utility>

#include "platform/process_state.h"
#include "platform/registry.h"
#include "platform/seams.h"
#include "platform/setting_variables.h"
#include "shell/game_list.h"
#include "shell/mail_watch.h"
#include "shell/playing.h"
#include "shell/polling_loop.h"
#include "shell/settings.h"
#include "shell/shut_down.h"
#include "shell/start_up.h"
#include "shell/tray_status.h"
#include "store/queries.h"
#include "ui/games/welcome.h"
#include "widgets/front_window.h"
#include "widgets/pointers.h"

namespace ui {

using platform::Process;

namespace {

constexpr const char* localKind = "Post";
constexpr const char* usualKind = "Imap";

/// False, too, where they can't be read.
bool HasNoGames() {
  store::GameRecords games;
  return store::SelectGames(games, {}) && games.empty();
}

/// Whether the account is one of the way that begins with `kind`: a post office's or a mailbox's.
bool HasAccountFor(const std::string& kind) {
  const auto kept = platform::ReadRegistry(platform::mailSection, "MailKind");
  const bool isLocal = platform::ReturnValue(kept, localKind) == localKind;
  return shell::HasMailAccount() && isLocal == (kind == localKind);
}

/// Asks for an account of that way where there is none, and logs on. False where nobody can be
/// played with on it yet.
bool PrepareForMail(const SystemTray::ChangeAccount& changeAccount, const char* kind) {
  if (!HasAccountFor(kind)) {
    changeAccount(kind);
  } else if (!shell::MayStartMailGame()) {
    shell::RetrieveByHand();
  }
  return shell::MayStartMailGame() && (HasAccountFor(kind) || Process().StandAlone);
}

/// Once: whoever knows the program has chosen since. Answers whether he is one.
bool ExplainToNewcomer() {
  const auto greeted = platform::ReadRegistry(platform::productSection, shell::greeted);
  if (platform::ReturnValue(greeted, "True") == "True") return false;
  platform::WriteRegistry(platform::productSection, shell::greeted, "True");
  platform::Settings().Verbose = true;
  return true;
}

TrayMenuActions ActionsOf(ProgramWindows& windows, const std::function<void()>& changeAccount,
                          const std::function<void()>& askAboutHeldMails) {
  return {.open = [] { shell::ShowGameList(); },
          .newGame = [] { shell::StartNewGame({}); },
          .playGame = [](std::int32_t gameID) { shell::OpenGameFromTray(gameID); },
          .retrieve = [] { shell::RetrieveByHand(); },
          .changeAccount = changeAccount,
          .askAboutHeldMails = askAboutHeldMails,
          .openOptions = [&windows] { windows.OpenOptions(); },
          .about = [&windows] { windows.ShowAbout(); },
          .exit = [] { shell::ExitProgram(); }};
}

}  // namespace

SystemTray::SystemTray(const ChangeAccount& changeAccount,
                       const std::function<void()>& askAboutHeldMails,
                       TrayIcon::IsTrayThere isTrayThere)
    : windows_([changeAccount] { changeAccount(nullptr); }, askAboutHeldMails),
      menu_(ActionsOf(
          windows_, [changeAccount] { changeAccount(nullptr); }, askAboutHeldMails)),
      icon_(menu_, std::move(isTrayThere)) {
  setObjectName(QStringLiteral("SystemTray"));
  platform::Seams& seams = platform::TheSeams();
  seams.windows = &windows_;
  seams.tray = &icon_;
  seams.hooks.busyPointer = ShowBusyPointer;
  seams.hooks.checkTimerChanged = [this] { FollowCheckTimer(); };
  seams.hooks.handedOver = [this, changeAccount] { Greet(changeAccount); };
  // Not quit(), which any window may refuse.
  seams.hooks.stopped = [] {
    if (QThread::currentThread()->loopLevel() > 0) QCoreApplication::exit(0);
  };
  connect(&checkTimer_, &QTimer::timeout, this, &shell::CheckTimerTick);
  connect(&icon_, &TrayIcon::Opened, this, &SystemTray::ComeToFront);
  connect(&icon_, &TrayIcon::Missing, this, &SystemTray::LeaveTray);
  connect(&icon_, &TrayIcon::Come, this, &shell::TrayHasCome);
}

SystemTray::~SystemTray() {
  platform::Seams& seams = platform::TheSeams();
  seams.windows = &platform::noWindows;
  seams.tray = &platform::noTray;
  seams.hooks = {};
}

/// Shows a user without any game how to come by one. Who has just said where his mail lies is asked
/// for his opponent first.
void SystemTray::Greet(const ChangeAccount& changeAccount) {
  if (!HasNoGames() || welcome_) return;
  if (!ExplainToNewcomer() || !shell::HasMailAccount() || !shell::MayStartMailGame()) {
    return ShowWelcome(changeAccount);
  }
  // Behind the start, which a question would hold up.
  QTimer::singleShot(0, this, [this, changeAccount] {
    if (Process().CheckTimerHeld || Process().Stopping) return;
    shell::StartNewGame({.fromGameList = Process().GameListOpen});
    const bool hasBegun = Process().BoardOpen || !HasNoGames();
    if (!hasBegun && !welcome_ && !Process().Stopping) ShowWelcome(changeAccount);
  });
}

void SystemTray::ShowWelcome(const ChangeAccount& changeAccount) {
  const auto byMail = [changeAccount](const char* kind) {
    return [changeAccount, kind] {
      if (Process().CheckTimerHeld) return;
      if (!PrepareForMail(changeAccount, kind)) return;
      // What has come in may have been opened.
      if (Process().CheckTimerHeld || !HasNoGames()) return;
      shell::StartNewGame({.fromGameList = Process().GameListOpen});
    };
  };
  welcome_ = new Welcome(
      {.againstTheComputer =
           [] {
             if (Process().CheckTimerHeld) return;
             shell::StartNewGame({.againstComputer = true, .fromGameList = Process().GameListOpen});
           },
       .onThisMachine = byMail(localKind),
       .byMail = byMail(usualKind)});
  welcome_->setAttribute(Qt::WA_DeleteOnClose);
  ShowInTheMiddle(*welcome_);
  BringToFront(*welcome_);
}

/// What is up already is to be seen, and finished first; so is what a newcomer chooses.
void SystemTray::LeaveTray() {
  if (!icon_.IsMissing()) return;
  if (Process().CheckTimerHeld || welcome_ || QApplication::activeModalWidget()) {
    QTimer::singleShot(500, this, &SystemTray::LeaveTray);
    return;
  }
  shell::LiveWithoutTray();
}

void SystemTray::ComeToFront() {
  if (Process().CheckTimerHeld) {
    BringActiveWindowToFront();
    QApplication::beep();
    return;
  }
  menu_.Refresh();
  if (menu_.OffersOpen()) {
    shell::ShowGameList();
  } else {
    BringActiveWindowToFront();
  }
}

void SystemTray::FollowCheckTimer() {
  const platform::PollingTimer& timer = Process().CheckTimer;
  if (timer.Enabled && timer.Interval > 0) {
    checkTimer_.start(timer.Interval);
  } else {
    checkTimer_.stop();
  }
  // What couldn't be told while something else was up.
  if (timer.Enabled) QTimer::singleShot(0, this, &shell::TellOfMailTrouble);
}

}  // namespace ui
