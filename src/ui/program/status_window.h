// SPDX-License-Identifier: GPL-3.0-or-later
// The small popup for long work: a line of text, no buttons, in nobody's way.
#pragma once

#include <QLabel>
#include <QWidget>

namespace ui {

class StatusWindow : public QWidget {
  Q_OBJECT

 public:
  explicit StatusWindow(QWidget* parent = nullptr);

  /// Shows the text at once, without waiting for the event loop.
  void Display(const QString& text);

 protected:
  void closeEvent(QCloseEvent* event) override;

 private:
  void SetSimpleUI();

  QLabel* text_;
};

}  // namespace ui
