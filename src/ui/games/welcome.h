// SPDX-License-Identifier: GPL-3.0-or-later
// What a player sees who has no game yet: three ways to one, each a click away, and whether the
// program shall explain the moves that it refuses.
#pragma once

#include <QDialog>

#include <functional>

namespace ui {

struct WaysToAGame {
  std::function<void()> againstTheComputer;
  std::function<void()> onThisMachine;  ///< by the local post office
  std::function<void()> byMail;         ///< by the user's own mailbox
};

class Welcome : public QDialog {
  Q_OBJECT

 public:
  /// A way that is chosen is taken behind the window's end.
  explicit Welcome(WaysToAGame ways, QWidget* parent = nullptr);

 private:
  QWidget* NewPage();
  QWidget* NewWay(const char* name, const char* title, const char* text, const QIcon& picture,
                  std::function<void()> way);

  WaysToAGame ways_;
};

}  // namespace ui
