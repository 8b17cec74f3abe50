// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/board/trash.h"

#include <QPainter>

#include <algorithm>
#include <utility>

#include "skin/look.h"

namespace ui {

using namespace Qt::StringLiterals;

namespace {

constexpr int margin = 8;
constexpr int largestBin = 48;
constexpr qreal unitsHigh = 24;  // of the drawing below

/// A bin in a box of 24 units each way.
void DrawBin(QPainter& painter, const QColor& colour, bool open) {
  QColor shade = colour;
  shade.setAlpha(60);
  painter.setPen(QPen(colour, 1.6, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
  painter.setBrush(shade);
  painter.drawPolygon(QPolygonF{{5, 8}, {19, 8}, {17.8, 22}, {6.2, 22}});
  for (const auto& [top, bottom] : {std::pair{9.2, 9.6}, {12.0, 12.0}, {14.8, 14.4}}) {
    painter.drawLine(QPointF(top, 11), QPointF(bottom, 19));
  }
  painter.save();
  if (open) {
    painter.translate(3.5, 5.5);
    painter.rotate(-24);
    painter.translate(-3.5, -5.5);
  }
  painter.setBrush(Qt::NoBrush);
  painter.drawLine(QPointF(3.5, 5.5), QPointF(20.5, 5.5));
  painter.drawPolyline(QPolygonF{{9, 5}, {9.8, 2.8}, {14.2, 2.8}, {15, 5}});
  painter.restore();
}

}  // namespace

Trash::Trash(QWidget* parent) : QWidget(parent) {
  setObjectName(u"Trash"_s);
  setAccessibleName(u"Trash"_s);
  setAccessibleDescription(u"Delete takes the piece off the square that the keyboard is on"_s);
  setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
}

void Trash::SetOpen(bool open) {
  if (open == open_) return;
  open_ = open;
  update();
}

QSize Trash::sizeHint() const { return {200, largestBin + 2 * margin}; }

void Trash::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.fillRect(rect(), palette().base());
  if (IsSimpleUI()) {
    painter.setPen(palette().color(QPalette::Mid));
    painter.drawRect(QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5));
  }

  const int bin = std::min(largestBin, height() - 2 * margin);
  painter.save();
  painter.translate(margin, (height() - bin) / 2.0);
  painter.scale(bin / unitsHigh, bin / unitsHigh);
  DrawBin(painter, palette().color(open_ ? QPalette::Highlight : QPalette::Text), open_);
  painter.restore();

  painter.setPen(palette().color(QPalette::Text));
  painter.drawText(rect().adjusted(bin + 2 * margin, 0, -margin, 0),
                   Qt::AlignLeft | Qt::AlignVCenter | Qt::TextWordWrap,
                   u"Drop a piece here to take it off the board"_s);
}

}  // namespace ui
