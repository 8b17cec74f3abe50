// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/status_window.h"

#include <QCloseEvent>
#include <QHBoxLayout>

namespace ui {

using namespace Qt::StringLiterals;

StatusWindow::StatusWindow(QWidget* parent)
    : QWidget(parent, Qt::Dialog | Qt::CustomizeWindowHint | Qt::WindowTitleHint),
      text_(new QLabel) {
  setObjectName(u"StatusWindow"_s);
  setWindowTitle(u"Tarvolenix"_s);
  setAttribute(Qt::WA_ShowWithoutActivating);
  text_->setObjectName(u"StatusText"_s);
  text_->setTextFormat(Qt::PlainText);
  text_->setAlignment(Qt::AlignCenter);
  text_->setMinimumWidth(240);
  auto* layout = new QHBoxLayout(this);
  layout->setContentsMargins(32, 24, 32, 24);
  layout->addWidget(text_);
}

void StatusWindow::Display(const QString& text) {
  text_->setText(text);
  adjustSize();
  if (const QWidget* parent = parentWidget()) {
    move(parent->frameGeometry().center() - rect().center());
  }
  show();
  repaint();
}

void StatusWindow::closeEvent(QCloseEvent* event) {
  // Only the work that put it up takes it down.
  if (event->spontaneous()) event->ignore();
}

}  // namespace ui
