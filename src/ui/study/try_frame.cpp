// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/study/try_frame.h"

#include <QFontInfo>
#include <QPainter>
#include <QResizeEvent>

#include <algorithm>

#include "ui/board/board_picture.h"

namespace ui {

using namespace Qt::StringLiterals;

namespace {

// Like nothing in any of the looks, and dark enough for white letters.
constexpr QRgb frameColour = 0xff1b6d92;
constexpr QRgb lineColour = 0xff8fd3f0;
constexpr int bandPadding = 6;
constexpr int overlap = 14;  // of the caption's band and the board's own margin
constexpr int roundness = 6;

}  // namespace

TryFrame::TryFrame(BoardPicture& picture, int width, const QString& caption, QWidget* parent)
    : QWidget(parent), picture_(picture), caption_(new QLabel(caption, this)), width_(width) {
  picture_.setParent(this);
  caption_->setObjectName(u"TryCaption"_s);
  caption_->setAlignment(Qt::AlignCenter);
  setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
  const int side = picture_.minimumWidth();
  setMinimumSize(side, side + BandHeight());
  // Caption and coordinates stand on the frame.
  QPalette onFrame;
  onFrame.setColor(QPalette::WindowText, Qt::white);
  setPalette(onFrame);
}

int TryFrame::BandHeight() const { return fontMetrics().height() + 2 * bandPadding; }

/// Large letters beside a small board become smaller.
void TryFrame::FitCaption(int width) {
  QFont bold = font();
  bold.setBold(true);
  const int wanted = QFontMetrics(bold).horizontalAdvance(caption_->text());
  if (wanted > width) bold.setPixelSize(QFontInfo(bold).pixelSize() * width / wanted);
  caption_->setFont(bold);
}

QSize TryFrame::sizeHint() const { return {width_, width_ + BandHeight() - overlap}; }

/// The board's own margin is part of the frame.
void TryFrame::resizeEvent(QResizeEvent* event) {
  QWidget::resizeEvent(event);
  const int side = std::min(width(), height() - BandHeight() + overlap);
  const int left = (width() - side) / 2;
  FitCaption(side - 2 * bandPadding);
  caption_->setGeometry(left, 0, side, BandHeight());
  picture_.setGeometry(left, BandHeight() - overlap, side, side);
}

void TryFrame::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setBrush(QColor::fromRgb(frameColour));
  painter.setPen(QPen(QColor::fromRgb(lineColour), 2));
  const QRectF frame = caption_->geometry().united(picture_.geometry());
  painter.drawRoundedRect(frame.adjusted(1, 1, -1, -1), roundness, roundness);
}

}  // namespace ui
