// SPDX-License-Identifier: GPL-3.0-or-later
// What the Board window shows of a game against the computer in the place of the user's comment:
// how far the computer has come with its thoughts, and a button that stops it; else whose turn it
// is, and what he can do.
#pragma once

#include <QTimer>

#include "board/game.h"

class QAbstractButton;
class QLabel;
class QProgressBar;
class QWidget;

namespace ui {

class SearchDisplay : public QObject {
  Q_OBJECT

 public:
  /// Makes the controls in the window. The label is the one over the comment. The board must
  /// outlive them.
  SearchDisplay(QWidget& window, QLabel& label, board::Game& board);

  /// In the plain look: the widget SearchPlace, with all of them.
  QWidget* NewPlace();

  void SetToolTips();
  void Refresh();
  void Cancel() { board_.Search.SearchCancelled = true; }

 private:
  void Advance();

  QWidget& window_;
  QLabel& label_;
  board::Game& board_;
  QLabel* hint_;
  QProgressBar* progress_;
  QAbstractButton* cancel_;
  QTimer clock_;
};

}  // namespace ui
