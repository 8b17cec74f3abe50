// SPDX-License-Identifier: GPL-3.0-or-later
// Who and what has a part in the program, in lines that rise.
#pragma once

#include <QDialog>

class QAbstractButton;

namespace ui {

class RisingText;

class Credits : public QDialog {
  Q_OBJECT

 public:
  explicit Credits(QWidget* parent = nullptr);

 private:
  void SetSimpleUI();

  RisingText* text_;
  QAbstractButton* ok_;
};

}  // namespace ui
