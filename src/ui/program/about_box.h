// SPDX-License-Identifier: GPL-3.0-or-later
// What the program is, which version of it this is, and where to turn to.
#pragma once

#include <QDialog>

class QAbstractButton;

namespace ui {

class AboutBox : public QDialog {
  Q_OBJECT

 public:
  explicit AboutBox(QWidget* parent = nullptr);

 private:
  void SetSimpleUI();

  QAbstractButton* credits_;
  QAbstractButton* ok_;
};

}  // namespace ui
