// SPDX-License-Identifier: GPL-3.0-or-later
// The choice of one opponent among the people picked in the address book. A choice is its only
// exit; the first one stands until another is made.
#pragma once

#include <QDialog>

class QAbstractButton;
class QComboBox;

namespace ui {

class ChooseOpponent : public QDialog {
  Q_OBJECT

 public:
  explicit ChooseOpponent(const QStringList& opponents, QWidget* parent = nullptr);

  /// Runs the dialog; the place in the list, from 0.
  int Choose();

 protected:
  void keyPressEvent(QKeyEvent* event) override;

 private:
  void SetSimpleUI();

  QComboBox* OppList_;
  QAbstractButton* ok_;
};

}  // namespace ui
