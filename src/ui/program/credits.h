// SPDX-License-Identifier: GPL-3.0-or-later
// Who and what has a part in the program, in lines that rise slowly, again and again.
#pragma once

#include <QDialog>

class QAbstractButton;
class QScrollArea;

namespace ui {

class Credits : public QDialog {
  Q_OBJECT

 public:
  explicit Credits(QWidget* parent = nullptr);

 protected:
  void showEvent(QShowEvent* event) override;

 private:
  void SetSimpleUI();
  void Rise();

  QScrollArea* page_;
  QAbstractButton* ok_;
};

}  // namespace ui
