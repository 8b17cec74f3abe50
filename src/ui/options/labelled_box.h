// SPDX-License-Identifier: GPL-3.0-or-later
// A check box whose caption is a control of its own: a click on it is one on the box.
#pragma once

#include <QCheckBox>
#include <QLabel>

namespace ui {

class LabelledBox : public QCheckBox {
  Q_OBJECT

 public:
  /// The caption's name is the box's with "_L" behind it.
  LabelledBox(const char* name, const char* caption, QWidget* page);

  QLabel& Caption() const { return *caption_; }

  /// Both get the tip.
  void SetTip(const char* tip);

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  QLabel* caption_;
};

}  // namespace ui
