// SPDX-License-Identifier: GPL-3.0-or-later
// The program from its start to its orderly stop.
#pragma once

#include <future>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "desktop/account_check.h"
#include "desktop/mail_account.h"
#include "desktop/real_desktop.h"
#include "ui/account_dialog.h"
#include "ui/game_windows.h"
#include "ui/qt_message_boxes.h"

namespace app {

class Program {
 public:
  /// A program that lives in `programFolder`. The application object must be there already.
  Program(const std::string& programFolder, const std::string& commandLine);
  ~Program();
  Program(const Program&) = delete;
  Program& operator=(const Program&) = delete;

  /// Reads the settings, collects what has arrived, and opens the first window. False where the
  /// program must not go on; the user was told then.
  bool Start();

  /// Logs off and saves the settings. Does nothing behind a failed start.
  void Stop();

  ui::GameWindows& Windows() { return *windows_; }

 private:
  std::optional<desktop::AccountAnswer> AskAccount(const desktop::MailAccount& suggestion);
  std::optional<desktop::AccountAnswer> AskAtLogon(const desktop::MailAccount& suggestion);

  /// The user's own wish; what he changes counts from the next logon on.
  void ChangeAccount();

  std::optional<std::string> KeptPassword(const desktop::MailAccount& account);
  void TestAccount(const desktop::AccountAnswer& answer, ui::AccountHelp::Told told);

  ui::QtMessageBoxes boxes_;
  std::unique_ptr<desktop::RealDesktop> desktop_;
  std::unique_ptr<ui::GameWindows> windows_;
  struct AccountTest {
    std::shared_ptr<desktop::AccountCheck> check;
    std::future<void> end;
  };
  void HurryTests();

  std::vector<AccountTest> tests_;  // each is waited for before what it uses goes
};

}  // namespace app
