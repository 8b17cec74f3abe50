// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/program.h"

#include <QApplication>
#include <QIcon>

#include <optional>
#include <utility>

#include "desktop/folders.h"
#include "mail/mail_session.h"
#include "platform/desktop.h"
#include "platform/messages.h"
#include "platform/process_state.h"
#include "platform/setting_variables.h"
#include "shell/settings.h"
#include "store/saving.h"
#include "ui/account_dialog.h"
#include "ui/program_pictures.h"

namespace app {

using platform::Process;

namespace {

std::optional<desktop::MailAccount> AskAccount(const desktop::MailAccount& suggestion) {
  const auto answer =
      ui::AskForAccount({suggestion.MyName, suggestion.MyAddress, suggestion.PostFolder});
  if (!answer) return std::nullopt;
  desktop::MailAccount account = suggestion;
  account.MyName = answer->name;
  account.MyAddress = answer->address;
  account.PostFolder = answer->postFolder;
  return account;
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
  desktop_ = std::make_unique<desktop::RealDesktop>(programFolder, AskAccount);
  platform::TheDesktop().messageBoxes = &boxes_;
  windows_ = std::make_unique<ui::GameWindows>();
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

void Program::Stop() {
  if (Process().ShuttingDown) return;
  store::BackupDatabase();
  mail::MailLogoff(true);
  if (Process().StartupComplete) shell::SaveSettings();
}

}  // namespace app
