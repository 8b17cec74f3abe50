// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/options/motivation_slider.h"

#include <QStyleOptionSlider>
#include <QStylePainter>

#include "skin/look.h"
#include "skin/skin_button.h"

namespace ui {
namespace {

constexpr int farthest = 200;
constexpr int bigStep = 10;
constexpr int grooveHeight = 6;
constexpr int tickHeight = 4;
constexpr int tickGap = 8;
constexpr int thumbWidth = 9;
constexpr int thumbHeight = 16;
constexpr int thumbRadius = 3;

}  // namespace

MotivationSlider::MotivationSlider(QWidget* parent) : QSlider(Qt::Horizontal, parent) {
  setRange(-farthest, farthest);
  setPageStep(bigStep);
  setTickPosition(TicksBelow);
  setTickInterval(farthest);  // the ends, and the middle
}

void MotivationSlider::SetSelection(int start, int length) {
  selStart_ = start;
  selLength_ = length;
  update();
}

/// The middle of the thumb at a value.
int MotivationSlider::PlaceOf(int value) const {
  QStyleOptionSlider option;
  initStyleOption(&option);
  option.sliderPosition = value;
  return style()
      ->subControlRect(QStyle::CC_Slider, &option, QStyle::SC_SliderHandle, this)
      .center()
      .x();
}

QRect MotivationSlider::Stretch() const {
  QStyleOptionSlider option;
  initStyleOption(&option);
  const QRect groove =
      style()->subControlRect(QStyle::CC_Slider, &option, QStyle::SC_SliderGroove, this);
  const int left = PlaceOf(selStart_);
  return {left, groove.center().y() - grooveHeight / 2 + 1,
          selLength_ == 0 ? 0 : PlaceOf(selStart_ + selLength_) - left, grooveHeight};
}

void MotivationSlider::paintEvent(QPaintEvent*) {
  if (IsSimpleUI()) {
    PaintPlain();
  } else {
    PaintSkinned();
  }
}

/// The desktop's own slider, but that it would mark the stretch up to the thumb.
void MotivationSlider::PaintPlain() {
  QStylePainter painter(this);
  QStyleOptionSlider option;
  initStyleOption(&option);
  const QColor mark = palette().color(QPalette::Highlight);
  option.palette.setColor(QPalette::Highlight, palette().color(QPalette::Window));
  option.subControls = QStyle::SC_SliderGroove | QStyle::SC_SliderTickmarks;
  painter.drawComplexControl(QStyle::CC_Slider, option);
  painter.fillRect(Stretch(), mark);
  option.palette = palette();
  option.subControls = QStyle::SC_SliderHandle;
  painter.drawComplexControl(QStyle::CC_Slider, option);
}

/// A groove in the surface, and a thumb of the colour of what is written on it.
void MotivationSlider::PaintSkinned() {
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(Qt::NoPen);
  const QPalette& skin = window()->palette();
  const QRect stretch = Stretch();
  const QRectF groove(0, stretch.y(), width(), grooveHeight);
  painter.setBrush(QColor(0, 0, 0, 0x70));
  painter.drawRoundedRect(groove, grooveHeight / 2.0, grooveHeight / 2.0);
  for (const int value : {minimum(), 0, maximum()}) {
    painter.fillRect(PlaceOf(value), stretch.bottom() + tickGap, 1, tickHeight,
                     skin.color(QPalette::WindowText));
  }
  painter.fillRect(stretch, skin.color(QPalette::Highlight));
  QRectF thumb(0, 0, thumbWidth, thumbHeight);
  thumb.moveCenter(QPointF(PlaceOf(sliderPosition()), groove.center().y()));
  painter.setBrush(skin.color(QPalette::WindowText));
  painter.setPen(QPen(QColor(0, 0, 0, 0xA0), 1));
  painter.drawRoundedRect(thumb, thumbRadius, thumbRadius);
  if (hasFocus()) {
    DrawFocusRing(painter, thumb.toAlignedRect(), thumbRadius, skin.color(QPalette::WindowText));
  }
}

}  // namespace ui
