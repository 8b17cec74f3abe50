// SPDX-License-Identifier: GPL-3.0-or-later
// One sentence on how something stands: a remark, work that goes on, success or failure. Success
// and failure differ in sign and colour. The text can be selected and copied.
#pragma once

#include <QStyle>
#include <QWidget>

class QLabel;
class QProgressBar;

namespace ui {

class PlainTextView;

class OutcomeLine : public QWidget {
  Q_OBJECT

 public:
  explicit OutcomeLine(QWidget* parent = nullptr);

  /// Takes no place where the text is blank.
  void ShowRemark(const QString& text);
  void ShowBusy(const QString& text);
  void ShowSuccess(const QString& text);
  void ShowFailure(const QString& text);

 protected:
  void changeEvent(QEvent* event) override;

 private:
  using Colour = QColor (*)(const QPalette& ofWindow);

  void Show(const QString& text, Colour colour);
  void ShowSigned(QStyle::StandardPixmap sign, const QString& text, Colour colour);
  void ColourText();

  QLabel* sign_;
  QProgressBar* busy_;
  PlainTextView* text_;
  Colour colour_ = nullptr;
};

}  // namespace ui
