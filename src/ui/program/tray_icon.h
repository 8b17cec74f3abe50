// SPDX-License-Identifier: GPL-3.0-or-later
// The program's icon in the desktop's tray. A tray may come up after the program: it is waited for,
// and where none has come in time, or on a desktop without one, the listener is told, so that the
// program is never invisible. One that comes later still gets the icon.
#pragma once

#include <QIcon>
#include <QObject>
#include <QSystemTrayIcon>
#include <QTimer>

#include <chrono>
#include <functional>
#include <optional>

#include "platform/tray.h"

namespace ui {

class TrayMenu;

class TrayIcon : public QObject, public platform::Tray {
  Q_OBJECT

 public:
  using IsTrayThere = std::function<bool()>;

  static constexpr std::chrono::seconds patience{10};

  explicit TrayIcon(TrayMenu& menu,
                    IsTrayThere isTrayThere = &QSystemTrayIcon::isSystemTrayAvailable);

  void Notify(platform::TrayOperation operation, int picture, const std::string& tip) override;

  void Say(const std::string& text) override;

  void BuildGameMenu() override;

  bool IsMissing() const { return missed_; }
  bool IsShown() const { return icon_ && icon_->isVisible(); }
  QString Tip() const { return tip_; }

  /// On the screen; empty where the desktop doesn't tell.
  QRect Geometry() const { return icon_ ? icon_->geometry() : QRect(); }

 public Q_SLOTS:
  /// One look for the tray, while there is none.
  void Look();

 Q_SIGNALS:
  void Opened();   ///< a double click, or what the desktop has in its place
  void Missing();  ///< there is no tray, after all
  void Come();     ///< there is one, after Missing

 private:
  void Make();
  void Dress();
  void Show();
  void SayUnsaid();

  TrayMenu& menu_;
  IsTrayThere isTrayThere_;
  QIcon picture_;
  QString tip_;
  std::optional<QSystemTrayIcon> icon_;  // from the first tray on
  QTimer looks_;
  std::chrono::milliseconds waited_{0};
  bool missed_ = false;
  QString unsaid_;  // until there is a tray
};

}  // namespace ui
