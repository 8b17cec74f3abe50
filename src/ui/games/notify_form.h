// SPDX-License-Identifier: GPL-3.0-or-later
// The dialog that tells of a new move: who has moved in which game, his move and the board behind
// it, what he says, and four ways to go on. After a time-out it answers for a user who isn't there.
#pragma once

#include <QDialog>

#include "platform/windows.h"

class QAbstractButton;
class QLabel;

namespace ui {

class PlainTextView;

class NotifyForm : public QDialog {
  Q_OBJECT

 public:
  explicit NotifyForm(const platform::NewMove& move, QWidget* parent = nullptr);

  /// What the dialog was left with; any way out but a button is "Later".
  platform::NotifyChoice UserChoice = platform::NotifyChoice::Later;

  /// As the button does it.
  void Answer(platform::NotifyChoice choice);

 public Q_SLOTS:
  /// One beat of the time-out; the last one answers "Later".
  void Tick();

 protected:
  void keyPressEvent(QKeyEvent* event) override;

 private:
  void AddButtons(bool isLast);
  void SetSimpleUI();
  void ShowMove(const platform::NewMove& move);
  void ShowBoard(const platform::NewMove& move);
  void StartTicker();

  int ticks_ = 0;
  QLabel* picture_;
  QLabel* heading_;
  QLabel* opponent_;
  QLabel* game_;
  QLabel* lastMove_;
  QLabel* position_;
  PlainTextView* comment_;
  QAbstractButton* play_ = nullptr;
};

/// Runs the dialog in front of all windows. Whoever writes in another program's window writes on
/// there.
platform::NotifyChoice AskAboutNewMove(const platform::NewMove& move);

}  // namespace ui
