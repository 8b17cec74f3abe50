// SPDX-License-Identifier: GPL-3.0-or-later
#include "widgets/rising_text.h"

#include <QKeyEvent>
#include <QPainter>
#include <QWheelEvent>

#include <algorithm>
#include <utility>

namespace ui {

namespace {

constexpr int beatMilliseconds = 40;
constexpr int firstOffset = -32;
constexpr int fadeHeight = 28;

QString TextOf(const std::vector<RisingLine>& lines) {
  QString text;
  for (const RisingLine& line : lines) text += line.text + QLatin1Char('\n');
  return text;
}

}  // namespace

RisingText::RisingText(std::vector<RisingLine> lines, QWidget* parent)
    : QWidget(parent), lines_(std::move(lines)), offset_(firstOffset) {
  setFocusPolicy(Qt::StrongFocus);
  setAccessibleName(TextOf(lines_));
  connect(&timer_, &QTimer::timeout, this, &RisingText::Rise);
  timer_.start(beatMilliseconds);
}

int RisingText::LineHeight() const { return fontMetrics().lineSpacing() + 2; }

int RisingText::TextHeight() const { return LineHeight() * static_cast<int>(lines_.size()); }

void RisingText::Rise() {
  if (!isStopped_ && !underMouse()) MoveBy(1);
}

/// What has left at one edge comes in again at the other.
void RisingText::MoveBy(int pixels) {
  offset_ += pixels;
  if (offset_ > TextHeight()) offset_ = -height();
  if (offset_ < -height()) offset_ = TextHeight();
  update();
}

void RisingText::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  const int lineHeight = LineHeight();
  for (std::size_t i = 0; i < lines_.size(); ++i) {
    const int top = static_cast<int>(i) * lineHeight - offset_;
    if (top <= -lineHeight || top >= height()) continue;
    const int toEdge = std::min(top + lineHeight, height() - top);
    painter.setOpacity(std::clamp(1.0 * toEdge / fadeHeight, 0.0, 1.0));
    WriteLine(painter, lines_[i], {0, top, width(), lineHeight});
  }
}

void RisingText::WriteLine(QPainter& painter, const RisingLine& line, const QRect& place) const {
  QFont font = this->font();
  font.setBold(line.isHeading);
  painter.setFont(font);
  if (pictureColour_.isValid()) {
    painter.setPen(QColor(0, 0, 0, 0x70));
    for (const QPoint& by : {QPoint(-1, 0), QPoint(1, 0), QPoint(0, -1), QPoint(0, 1)}) {
      painter.drawText(place.translated(by), Qt::AlignCenter, line.text);
    }
  }
  painter.setPen(pictureColour_.isValid() ? pictureColour_ : palette().color(QPalette::WindowText));
  painter.drawText(place, Qt::AlignCenter, line.text);
}

void RisingText::keyPressEvent(QKeyEvent* event) {
  const std::pair<int, int> moves[] = {
      {Qt::Key_Up, -LineHeight()}, {Qt::Key_Down, LineHeight()},
      {Qt::Key_PageUp, -height()}, {Qt::Key_PageDown, height()},
      {Qt::Key_Home, -offset_},    {Qt::Key_End, TextHeight() - height() - offset_}};
  for (const auto& [key, pixels] : moves) {
    if (event->key() != key) continue;
    isStopped_ = true;  // whoever moves it wants to read
    return MoveBy(pixels);
  }
  if (event->key() == Qt::Key_Space) {
    isStopped_ = !isStopped_;
  } else {
    QWidget::keyPressEvent(event);
  }
}

void RisingText::wheelEvent(QWheelEvent* event) { MoveBy(-event->angleDelta().y() / 3); }

}  // namespace ui
