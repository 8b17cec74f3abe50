// SPDX-License-Identifier: GPL-3.0-or-later
// The program from its start to its orderly stop.
#pragma once

#include <functional>
#include <future>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "app/network_watch.h"
#include "contacts/contacts_book.h"
#include "desktop/folders.h"
#include "desktop/instance_channel.h"
#include "desktop/single_instance.h"
#include "post/accounts/mail_account.h"
#include "ui/help/help_window.h"
#include "ui/people/account_dialog.h"
#include "ui/print/desktop_printers.h"
#include "ui/program/qt_message_boxes.h"
#include "ui/program/qt_screen.h"
#include "ui/program/system_tray.h"
#include "ui/program/waiting_windows.h"
#include "wiring/real_seams.h"

namespace app {

class Program {
 public:
  /// The application object must be there already. `instance` is the mark of the only one, where
  /// somebody has looked for it ahead.
  Program(const desktop::Folders& folders, const std::string& commandLine,
          std::unique_ptr<desktop::SingleInstance> instance = {});
  ~Program();
  Program(const Program&) = delete;
  Program& operator=(const Program&) = delete;

  /// Ahead of the start, with the files that the user has given. True where a program that runs
  /// already has taken them over, and this one has nothing to do; without any that one only comes
  /// to the front. Else they wait for the start, and those of later ones come here.
  bool HandOver(const desktop::GivenFiles& files);

  /// The whole start. False where the program must not go on; the user was told then.
  bool Start();

  /// The orderly stop from outside, at any time. What waits for the mail service ends first.
  void End();

  /// The orderly stop where nothing else has stopped the program.
  void Stop();

  ui::SystemTray& Tray() { return *tray_; }
  ui::ProgramWindows& Windows() { return tray_->Windows(); }

 private:
  std::optional<post::AccountAnswer> AskAccount(
      const post::MailAccount& suggestion, ui::AccountErrand errand = ui::AccountErrand::LookOver);
  std::optional<post::AccountAnswer> AskAtLogon(const post::MailAccount& suggestion);

  /// The user's own wish. What he changes is logged on with at once.
  void ChangeAccount(const char* wantedKind);
  /// True where there is another now, or the user has signed in anew.
  bool HasChangedAccount(const char* wantedKind, ui::AccountErrand errand);
  bool ChangeAccountFrom(const post::MailAccount& stored, const char* wantedKind,
                         ui::AccountErrand errand);
  void GiveWaitingMailsTo(const std::string& address, const std::string& oldAddress);

  std::optional<std::string> KeptPassword(const post::MailAccount& account);
  void TestAccount(const post::AccountAnswer& answer, ui::AccountHelp::Told told);
  void SignIn(const post::MailAccount& account, const std::string& name, ui::AccountHelp::Sent sent,
              ui::AccountHelp::SignedIn signedIn);
  void LookUpServers(const post::MailAccount& account, ui::AccountHelp::Found found);

  ui::QtMessageBoxes boxes_;
  contacts::ContactsBook contacts_;
  ui::HelpViewer help_;
  ui::DesktopPrinters printers_;
  std::unique_ptr<wiring::RealSeams> desktop_;
  ui::QtScreen screen_;
  std::unique_ptr<desktop::SingleInstance> instance_;
  std::unique_ptr<ui::SystemTray> tray_;
  std::unique_ptr<desktop::InstanceChannel> channel_;
  ui::WaitingWindows waiting_;
  NetworkWatch network_;
  std::string folderFailure_;    // why no game can be kept, told at the start
  std::string settingsFailure_;  // likewise of the settings
  /// What the account dialog wants to know of the network. Only the last one counts.
  struct Inquiry {
    std::function<void()> hurry;
    std::future<void> end;
  };
  void Inquire(std::function<void()> work, std::function<void()> hurry);
  void HurryInquiries();

  std::vector<Inquiry> inquiries_;  // each is waited for before what it uses goes
};

}  // namespace app
