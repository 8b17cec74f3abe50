// SPDX-License-Identifier: GPL-3.0-or-later
// What the Board window shows while the computer thinks: how far it has come, and a button that
// stops it. In a game against the computer this has the place of the user's comment.
#pragma once

#include <QTimer>

#include "ai/search.h"

class QAbstractButton;
class QLabel;
class QProgressBar;
class QVBoxLayout;
class QWidget;

namespace ui {

class SearchDisplay : public QObject {
  Q_OBJECT

 public:
  /// Makes the controls in the window. The label is the one over the comment. The search must
  /// outlive them.
  SearchDisplay(QWidget& window, QLabel& label, ai::SearchWatch& search);

  /// Puts them into a column of the plain look, where they are the widget SearchPlace.
  void LayOut(QVBoxLayout& column);

  void Show(bool thinking);
  void Cancel() { search_.SearchCancelled = true; }

 private:
  void Advance();

  QWidget& window_;
  QLabel& label_;
  ai::SearchWatch& search_;
  QProgressBar* progress_;
  QAbstractButton* cancel_;
  QTimer clock_;
};

}  // namespace ui
