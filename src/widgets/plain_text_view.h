// SPDX-License-Identifier: GPL-3.0-or-later
// A label for text that comes from people: never read as markup, broken anywhere where a word is
// longer than the line, as high as its text, to be selected with the mouse.
#pragma once

#include <QTextEdit>

namespace ui {

class PlainTextView : public QTextEdit {
  Q_OBJECT

 public:
  explicit PlainTextView(QWidget* parent = nullptr);

  void SetText(const QString& text);

  /// Beyond that many lines it scrolls.
  void SetMostLines(int lines);

  /// From now on it is a part of the window's surface: nothing is selected, and the window gets
  /// the mouse's buttons.
  void BecomeSurface();

  /// Room round the text, in pixels.
  void SetMargins(int sideways, int upright);

  bool hasHeightForWidth() const override { return true; }
  int heightForWidth(int width) const override;
  QSize sizeHint() const override;
  QSize minimumSizeHint() const override;

 private:
  void ChooseFocus();
  void KeepMargins();

  int sideways_ = 0, upright_ = 0;
};

}  // namespace ui
