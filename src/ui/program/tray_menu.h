// SPDX-License-Identifier: GPL-3.0-or-later
// The menu of the tray icon, with the games that wait for somebody's move. What its entries offer
// is worked out whenever it opens; polling skips its ticks while it is on the screen. Some desktops
// draw the menu themselves, so every entry asks once more whether it may act.
#pragma once

#include <QMenu>

#include <cstdint>
#include <functional>

namespace ui {

struct TrayMenuActions {
  std::function<void()> open;
  std::function<void()> newGame;
  std::function<void(std::int32_t gameID)> playGame;
  std::function<void()> retrieve;
  std::function<void()> changeAccount;
  std::function<void()> askAboutHeldMails;
  std::function<void()> openOptions;
  std::function<void()> about;
  std::function<void()> exit;
};

/// `mnuPopup`.
class TrayMenu : public QMenu {
 public:
  explicit TrayMenu(const TrayMenuActions& actions);

  /// `mnuPopupGameList`: what the store holds just now; left as it is while that doesn't change.
  void BuildGames();

  bool OffersOpen() const { return open_->isEnabled(); }

  /// The entries as the state of the program has them; all are off while a dialog or a board holds
  /// polling.
  void Refresh();

 private:
  void showEvent(QShowEvent* event) override;
  void hideEvent(QHideEvent* event) override;
  void AddHelp(const std::function<void()>& about);

  std::function<void(std::int32_t gameID)> playGame_;
  QAction* open_;
  QAction* newGame_;
  QMenu* games_;
  std::string gameFileStamp_;  // of the game file that the games are from
  QAction* retrieve_;
  QAction* deliver_;
  QAction* account_;
  QAction* options_;
  QAction* heldMails_;
  QAction* exit_;
};

}  // namespace ui
