// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/board/link_button.h"

#include <QKeyEvent>
#include <QPainter>

namespace ui {

namespace {
constexpr int marginSideways = 4;
constexpr int marginUpright = 3;
}  // namespace

LinkButton::LinkButton(const QString& name, const QString& caption, QWidget* parent,
                       Qt::Alignment side)
    : QAbstractButton(parent), side_(side) {
  setObjectName(name);
  setText(caption);
  setCursor(Qt::PointingHandCursor);
  setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
}

QSize LinkButton::sizeHint() const {
  return fontMetrics().size(Qt::TextShowMnemonic, text()) +
         2 * QSize(marginSideways, marginUpright);
}

void LinkButton::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  painter.setPen(
      palette().color(isEnabled() ? QPalette::Active : QPalette::Disabled, QPalette::WindowText));
  QFont underlined = font();
  underlined.setUnderline(true);
  painter.setFont(underlined);
  const QRect place = rect().adjusted(marginSideways, 0, -marginSideways, 0);
  painter.drawText(place, side_ | Qt::AlignVCenter, text());
  if (!hasFocus()) return;
  painter.setPen(palette().color(QPalette::Highlight));
  painter.drawRect(rect().adjusted(0, 0, -1, -1));
}

/// Enter presses it, as it does all buttons of the board.
void LinkButton::keyPressEvent(QKeyEvent* event) {
  if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) return click();
  QAbstractButton::keyPressEvent(event);
}

}  // namespace ui
