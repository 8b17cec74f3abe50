// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/program/status_window.h"

#include <QCloseEvent>
#include <QHBoxLayout>
#include <QScreen>

#include "skin/layouts/status_window_layout.h"
#include "skin/look.h"

namespace ui {

using namespace Qt::StringLiterals;

StatusWindow::StatusWindow(QWidget* parent)
    : QWidget(parent, Qt::Dialog | Qt::CustomizeWindowHint | Qt::WindowTitleHint),
      text_(new QLabel(this)) {
  setObjectName(u"StatusWindow"_s);
  setWindowTitle(u"Tarvolenix"_s);
  setAttribute(Qt::WA_ShowWithoutActivating);
  text_->setObjectName(u"StatusText"_s);
  text_->setTextFormat(Qt::PlainText);
  text_->setAlignment(Qt::AlignCenter);
  TakeLook(*this, layouts::statusWindow, [this] { SetSimpleUI(); });
}

void StatusWindow::SetSimpleUI() {
  text_->setMinimumWidth(240);
  auto* layout = new QHBoxLayout(this);
  layout->setContentsMargins(32, 24, 32, 24);
  layout->addWidget(text_);
}

void StatusWindow::Display(const QString& text) {
  text_->setText(text);
  adjustSize();
  const QWidget* parent = parentWidget();
  const QRect middle = parent ? parent->frameGeometry() : screen()->availableGeometry();
  move(middle.center() - rect().center());
  show();
  repaint();
}

void StatusWindow::closeEvent(QCloseEvent* event) {
  // Only the work that put it up takes it down.
  if (event->spontaneous()) event->ignore();
}

}  // namespace ui
