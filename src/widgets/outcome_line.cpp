// SPDX-License-Identifier: GPL-3.0-or-later
#include "widgets/outcome_line.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPainter>
#include <QPainterPath>
#include <QProgressBar>

#include "widgets/plain_text_view.h"

namespace ui {

using namespace Qt::StringLiterals;

namespace {

constexpr int signSize = 20;
constexpr int mostLines = 8;

bool IsDark(const QPalette& palette) { return palette.color(QPalette::Window).lightness() < 128; }

QColor Green(const QPalette& palette) { return IsDark(palette) ? 0x6fcf7f : 0x1a6b2f; }
QColor Red(const QPalette& palette) { return IsDark(palette) ? 0xff8a80 : 0xb3201a; }

/// A filled circle with a tick or a cross in it, on a grid of 20 by 20.
QPixmap Sign(bool success, const QColor& colour, const QColor& ground, qreal ratio) {
  QPixmap picture(QSize(signSize, signSize) * ratio);
  picture.setDevicePixelRatio(ratio);
  picture.fill(Qt::transparent);
  QPainter painter(&picture);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(Qt::NoPen);
  painter.setBrush(colour);
  painter.drawEllipse(QRectF(1, 1, 18, 18));
  painter.setPen(QPen(ground, 2.2, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
  painter.setBrush(Qt::NoBrush);
  if (success) {
    painter.drawPolyline(QPolygonF({{5.8, 10.4}, {8.8, 13.4}, {14.2, 7}}));
  } else {
    painter.drawLine(QPointF(6.8, 6.8), QPointF(13.2, 13.2));
    painter.drawLine(QPointF(13.2, 6.8), QPointF(6.8, 13.2));
  }
  return picture;
}

}  // namespace

OutcomeLine::OutcomeLine(QWidget* parent)
    : QWidget(parent), sign_(new QLabel), busy_(new QProgressBar), text_(new PlainTextView) {
  text_->setObjectName(u"OutcomeText"_s);
  text_->SetMostLines(mostLines);
  busy_->setRange(0, 0);
  busy_->setTextVisible(false);
  busy_->setFixedSize(64, 12);
  auto* layout = new QHBoxLayout(this);
  layout->setContentsMargins({});
  layout->setSpacing(8);
  layout->addWidget(sign_, 0, Qt::AlignTop);
  layout->addWidget(busy_, 0, Qt::AlignVCenter);
  layout->addWidget(text_, 1);
  ShowRemark({});
}

void OutcomeLine::Show(const QString& text, const QColor& colour) {
  QPalette palette = text_->palette();
  palette.setColor(QPalette::Text, colour);
  text_->setPalette(palette);
  text_->SetText(text);
  setVisible(!text.isEmpty());
}

void OutcomeLine::ShowRemark(const QString& text) {
  sign_->hide();
  busy_->hide();
  Show(text, palette().color(QPalette::WindowText));
}

void OutcomeLine::ShowBusy(const QString& text) {
  ShowRemark(text);
  busy_->show();
}

void OutcomeLine::ShowSuccess(const QString& text) {
  const QColor green = Green(palette());
  ShowRemark({});
  sign_->setPixmap(Sign(true, green, palette().color(QPalette::Window), devicePixelRatioF()));
  sign_->show();
  Show(text, green);
}

void OutcomeLine::ShowFailure(const QString& text) {
  const QColor red = Red(palette());
  ShowRemark({});
  sign_->setPixmap(Sign(false, red, palette().color(QPalette::Window), devicePixelRatioF()));
  sign_->show();
  Show(text, red);
}

}  // namespace ui
