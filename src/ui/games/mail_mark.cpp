// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/games/mail_mark.h"

#include <QPainter>
#include <QPixmap>

namespace ui {
namespace {

constexpr qreal share = 0.62;  ///< of the picture's width

void DrawClock(QPainter& painter) {
  painter.setPen(QPen(QColor(40, 40, 40), 0.12));
  painter.setBrush(QColor(255, 232, 140));
  painter.drawEllipse(QRectF(0.08, 0.08, 0.84, 0.84));
  painter.setPen(QPen(QColor(40, 40, 40), 0.13, Qt::SolidLine, Qt::RoundCap));
  painter.drawLine(QPointF(0.5, 0.5), QPointF(0.5, 0.24));
  painter.drawLine(QPointF(0.5, 0.5), QPointF(0.7, 0.6));
}

void DrawExclamation(QPainter& painter) {
  painter.setPen(QPen(Qt::white, 0.1));
  painter.setBrush(QColor(200, 24, 24));
  painter.drawEllipse(QRectF(0.05, 0.05, 0.9, 0.9));
  painter.setPen(QPen(Qt::white, 0.16, Qt::SolidLine, Qt::RoundCap));
  painter.drawLine(QPointF(0.5, 0.26), QPointF(0.5, 0.54));
  painter.drawPoint(QPointF(0.5, 0.74));
}

/// Without a picture of the game's own the mark stands alone.
QPixmap Marked(QPixmap picture, int width, shell::GameMail::Kind kind) {
  if (picture.isNull()) {
    picture = QPixmap(width, width);
    picture.fill(Qt::transparent);
  }
  QPainter painter(&picture);
  painter.setRenderHint(QPainter::Antialiasing);
  const qreal size = width * share;
  painter.translate(picture.width() - size, picture.height() - size);
  painter.scale(size, size);
  if (kind == shell::GameMail::Failed) {
    DrawExclamation(painter);
  } else {
    DrawClock(painter);
  }
  return picture;
}

}  // namespace

QIcon WithMailMark(const QIcon& picture, shell::GameMail::Kind kind) {
  if (kind == shell::GameMail::OnItsWay) return picture;
  QList<QSize> sizes = picture.availableSizes();
  if (sizes.isEmpty()) sizes = {{16, 16}, {32, 32}};
  QIcon marked;
  for (const QSize& size : sizes) {
    const QPixmap pixmap = Marked(picture.pixmap(size, 1.0), size.width(), kind);
    for (const auto mode : {QIcon::Normal, QIcon::Selected}) marked.addPixmap(pixmap, mode);
  }
  return marked;
}

}  // namespace ui
