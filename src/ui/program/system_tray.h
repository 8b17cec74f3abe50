// SPDX-License-Identifier: GPL-3.0-or-later
// The hidden window, the first and the last object of the program: it owns the menus, the tray icon
// and the polling timer, and with them all that goes on while no window is open.
#pragma once

#include <QTimer>

#include <functional>

#include "ui/program/program_windows.h"
#include "ui/program/tray_icon.h"
#include "ui/program/tray_menu.h"

namespace ui {

class SystemTray : public QObject {
 public:
  /// Installs itself for its lifetime: the windows, the tray, and the hooks that belong to them.
  /// `changeAccount` begins with the kind of account that is wanted; where that is null, with the
  /// present one.
  using ChangeAccount = std::function<void(const char* wantedKind)>;
  SystemTray(const ChangeAccount& changeAccount, const std::function<void()>& askAboutHeldMails,
             TrayIcon::IsTrayThere isTrayThere = &QSystemTrayIcon::isSystemTrayAvailable);
  ~SystemTray() override;

  ProgramWindows& Windows() { return windows_; }
  TrayIcon& Icon() { return icon_; }
  TrayMenu& Menu() { return menu_; }

  /// The user looks for the program: what is up comes to the front, else the list of games opens.
  void ComeToFront();

 private:
  void LeaveTray();
  void Greet(const ChangeAccount& changeAccount);
  void ShowWelcome(const ChangeAccount& changeAccount);
  void FollowCheckTimer();

  ProgramWindows windows_;
  TrayMenu menu_;
  TrayIcon icon_;
  QTimer checkTimer_;
  QPointer<QWidget> welcome_;
};

}  // namespace ui
