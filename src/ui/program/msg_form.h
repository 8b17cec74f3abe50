// SPDX-License-Identifier: GPL-3.0-or-later
// The one message dialog: a bold caption, the text, an icon, and one or two buttons. It answers for
// itself after a time-out where the message asks for that.
#pragma once

#include <QDialog>

#include "platform/message_boxes.h"

class QAbstractButton;
class QLabel;

namespace ui {

class PlainTextView;

class MsgForm : public QDialog {
  Q_OBJECT

 public:
  explicit MsgForm(const platform::Message& message, QWidget* parent = nullptr);

  /// Escape and the window's close: Cancel where it is offered as such, else OK.
  void reject() override;

 public Q_SLOTS:
  /// One beat of the time-out; the last one cancels.
  void Tick();

 protected:
  void keyPressEvent(QKeyEvent* event) override;

 private:
  void SetSimpleUI();
  void ArrangeSkinned();
  void ArrangeButtons();

  bool escapeCancels_;
  int ticksLeft_;
  QLabel* picture_;
  PlainTextView* caption_;
  PlainTextView* text_;
  QAbstractButton* ok_ = nullptr;
  QAbstractButton* cancel_ = nullptr;  // null where it isn't offered
};

}  // namespace ui
