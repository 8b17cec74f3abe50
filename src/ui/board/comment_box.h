// SPDX-License-Identifier: GPL-3.0-or-later
// The box for the comment that goes with a move: several lines to the eye, one to the game file.
// A link in it gets a word of warning beside the box, once.
#pragma once

#include <QPlainTextEdit>

namespace ui {

class CommentBox : public QPlainTextEdit {
  Q_OBJECT

 public:
  static constexpr int longestComment = 200;  ///< characters

  explicit CommentBox(QWidget* parent = nullptr);

  QSize sizeHint() const override;
  QSize minimumSizeHint() const override;

 Q_SIGNALS:
  /// The user has turned to another control of the window.
  void Left();

 protected:
  bool event(QEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void inputMethodEvent(QInputMethodEvent* event) override;
  void insertFromMimeData(const QMimeData* source) override;
  void focusOutEvent(QFocusEvent* event) override;

 private:
  QString Fitting(const QString& text) const;
  void Insert(const QString& text);
  void WarnOfLink();

  bool hasLink_ = false;
};

}  // namespace ui
