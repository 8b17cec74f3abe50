// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/program/qt_message_boxes.h"

#include <QApplication>
#include <QMessageBox>

#include "ui/program/msg_form.h"
#include "widgets/cut_text.h"
#include "widgets/pointers.h"
#include "widgets/shown_text.h"

namespace ui {

using namespace Qt::StringLiterals;

bool QtMessageBoxes::Ask(const platform::Message& message) {
  // The arrow shows even where the caller waits under the busy pointer.
  const OtherPointer arrow(Qt::ArrowCursor);
  MsgForm dialog(message, QApplication::activeWindow());
  return dialog.exec() == QDialog::Accepted;
}

void QtMessageBoxes::ShowStatus(const std::string& text) {
  if (!status_) status_ = new StatusWindow(QApplication::activeWindow());
  status_->Display(Shown(text));
}

void QtMessageBoxes::HideStatus() { delete status_; }

void QtMessageBoxes::PlainBox(platform::PlainIcon icon, const std::string& title,
                              const std::string& text) {
  const OtherPointer arrow(Qt::ArrowCursor);
  const bool warns = icon == platform::PlainIcon::Warning;
  QMessageBox box(warns ? QMessageBox::Warning : QMessageBox::Critical, Shown(title), {},
                  QMessageBox::Ok);
  box.setTextFormat(Qt::PlainText);
  box.setText(Breakable(Shown(text)));
  box.exec();
}

}  // namespace ui
