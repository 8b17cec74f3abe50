// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/program/tray_icon.h"

#include <utility>

#include "platform/setting_variables.h"
#include "skin/program_pictures.h"
#include "ui/program/tray_menu.h"
#include "widgets/shown_text.h"

namespace ui {

using platform::TrayOperation;
using namespace std::chrono_literals;
using namespace Qt::StringLiterals;

namespace {

constexpr std::chrono::milliseconds lookEvery = 250ms;
constexpr std::chrono::milliseconds lateLookEvery = 3s;
constexpr std::chrono::milliseconds placing = 1s;  ///< until the tray has given an icon its place

}  // namespace

TrayIcon::TrayIcon(TrayMenu& menu, IsTrayThere isTrayThere)
    : menu_(menu), isTrayThere_(std::move(isTrayThere)) {
  connect(&looks_, &QTimer::timeout, this, &TrayIcon::Look);
}

/// The toolkit settles with its first icon, for good, on which of two ways it looks for a tray:
/// over the bus only where one is there already.
void TrayIcon::Make() {
  icon_.emplace();
  Dress();
  icon_->setContextMenu(&menu_);
  connect(&*icon_, &QSystemTrayIcon::activated, this, [this](auto reason) {
    // Some desktops send no double click.
    if (reason == QSystemTrayIcon::DoubleClick || reason == QSystemTrayIcon::Trigger) {
      Q_EMIT Opened();
    }
  });
}

void TrayIcon::Dress() {
  icon_->setIcon(picture_);
  icon_->setToolTip(tip_);
}

void TrayIcon::BuildGameMenu() {
  if (platform::Settings().SystrayStartup) menu_.BuildGames();
}

void TrayIcon::Notify(TrayOperation operation, int picture, const std::string& tip) {
  if (operation == TrayOperation::Delete) {
    looks_.stop();
    if (icon_) icon_->hide();
    return;
  }
  picture_ = TrayPicture(picture);
  tip_ = Shown(tip);
  if (icon_) Dress();
  if (operation != TrayOperation::Add || IsShown()) return;
  waited_ = 0ms;
  if (isTrayThere_()) {
    Show();
  } else {
    looks_.start(lookEvery);
  }
}

void TrayIcon::Say(const std::string& text) {
  unsaid_ = Shown(text);
  if (IsShown()) QTimer::singleShot(placing, this, &TrayIcon::SayUnsaid);
}

void TrayIcon::SayUnsaid() {
  if (unsaid_.isEmpty() || !IsShown()) return;
  icon_->showMessage(u"Tarvolenix"_s, std::exchange(unsaid_, {}), picture_);
}

/// A tray that goes away again would take the program's only sign with it.
void TrayIcon::Show() {
  if (!icon_) Make();
  icon_->show();
  looks_.start(lateLookEvery);
  QTimer::singleShot(placing, this, &TrayIcon::SayUnsaid);
}

void TrayIcon::Look() {
  if (isTrayThere_()) {
    waited_ = 0ms;
    if (!IsShown()) Show();
    if (std::exchange(missed_, false)) Q_EMIT Come();
    return;
  }
  waited_ += looks_.intervalAsDuration();
  if (missed_ || waited_ < patience) return;
  missed_ = true;
  looks_.setInterval(lateLookEvery);
  Q_EMIT Missing();
}

}  // namespace ui
