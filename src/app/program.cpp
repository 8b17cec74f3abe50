// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/program.h"

#include <QApplication>
#include <QIcon>
#include <QTimer>

#include <optional>

#include "desktop/folders.h"
#include "desktop/mail_text.h"
#include "desktop/post_office.h"
#include "mail/mail_session.h"
#include "platform/desktop.h"
#include "platform/messages.h"
#include "platform/polling.h"
#include "platform/process_state.h"
#include "platform/registry.h"
#include "platform/setting_variables.h"
#include "shell/settings.h"
#include "store/saving.h"
#include "ui/account_dialog.h"
#include "ui/program_pictures.h"

namespace app {

using platform::Process;

namespace {

bool IsPostAddress(const std::string& address) {
  return desktop::IsMailAddress(desktop::LocalAddress(address));
}

std::optional<desktop::MailAccount> AskAccount(const desktop::MailAccount& suggestion) {
  const auto answer = ui::AskForAccount(
      {suggestion.MyName, suggestion.MyAddress, suggestion.PostFolder}, IsPostAddress);
  if (!answer) return std::nullopt;
  desktop::MailAccount account = suggestion;
  account.MailKind = "Post";  // the dialog offers no other
  account.MyName = answer->name;
  account.MyAddress = answer->address;
  account.PostFolder = answer->postFolder;
  return account;
}

bool IsSame(const desktop::MailAccount& a, const desktop::MailAccount& b) {
  return a.MailKind == b.MailKind && a.MyName == b.MyName && a.MyAddress == b.MyAddress &&
         a.PostFolder == b.PostFolder;
}

void SetUpFolders() {
  const std::string dataFolder = desktop::DataFolderFor(Process().ProgramFolder);
  desktop::PrepareDataFolder(Process().ProgramFolder, dataFolder);
  Process().DataPath = dataFolder + "Data/";
}

}  // namespace

Program::Program(const std::string& programFolder, const std::string& commandLine) {
  // Windows come and go before the last one: the program ends when it is told to.
  QApplication::setQuitOnLastWindowClosed(false);
  platform::SetupGlobalVariables(programFolder, commandLine);
  SetUpFolders();
  desktop_ = std::make_unique<desktop::RealDesktop>(
      programFolder, [this](const auto& suggestion) { return AskAtLogon(suggestion); });
  platform::TheDesktop().messageBoxes = &boxes_;
  windows_ = std::make_unique<ui::GameWindows>();
  QObject::connect(windows_.get(), &ui::GameWindows::AccountWanted, windows_.get(),
                   [this] { ChangeAccount(); });
  QApplication::setWindowIcon(QIcon(ui::ProgramPicturePath(QStringLiteral("tarvolenix.png"))));
}

Program::~Program() = default;

bool Program::Start() {
  shell::UpgradeSettings();
  if (!shell::LoadSettings()) {
    platform::ShowMessage(platform::ErrorIcon, "Initialisation error",
                          "An unknown error caused Tarvolenix to fail to load.||If this persists, "
                          "try reinstalling.",
                          "Ok", {}, false, platform::FailureSound);
    Process().ShuttingDown = true;
    return false;
  }
  // There is no other look yet; what is stored stays as the user left it.
  platform::Settings().SimpleUI = true;
  mail::LogonAndCollect(false, false, true);
  windows_->Begin();
  Process().StartupComplete = true;
  return true;
}

std::optional<desktop::MailAccount> Program::AskAtLogon(const desktop::MailAccount& suggestion) {
  auto account = AskAccount(suggestion);
  if (!account) {
    // The logon fails and leaves its guard standing, as after a crash; but nothing crashed.
    QTimer::singleShot(0, windows_.get(), [] { platform::SetLogonStatus(false); });
  }
  return account;
}

void Program::ChangeAccount() {
  const platform::PollingHold hold;
  const desktop::MailAccount stored = desktop::LoadMailAccount();
  const auto account = AskAccount(desktop::WithLoginName(stored));
  if (!account || IsSame(*account, stored)) return;
  if (!desktop::SaveMailAccount(*account)) {
    platform::ShowMessage(platform::ErrorIcon, "Mail account", "Your mail account can't be stored.",
                          "Ok", {}, false, platform::FailureSound);
    return;
  }
  // The next logon is the new account's.
  mail::MailLogoff(false);
  Process().Offline = true;
  windows_->ShowGameList(windows_->GameList()->SelectedGame());
}

void Program::Stop() {
  if (Process().ShuttingDown) return;
  store::BackupDatabase();
  mail::MailLogoff(true);
  if (Process().StartupComplete) shell::SaveSettings();
}

}  // namespace app
