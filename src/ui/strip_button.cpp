// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/strip_button.h"

#include <QPainter>

#include "ui/caption_colours.h"
#include "ui/strip_cell.h"

namespace ui {

StripButton::StripButton(const QString& name, const layouts::Strip& shape, int row, QWidget* window)
    : SkinButton(name, window), shape_(shape), row_(row) {}

void StripButton::SetStrip(const QImage& strip) {
  strip_ = strip;
  update();
}

void StripButton::PaintButton(QPainter& painter, const QRect& button) {
  const State state = CurrentState();
  const int column = static_cast<int>(state);  // in the order of ToolbarColumn
  DrawRounded(painter, button, StripCell(strip_, shape_, column, row_));
  const layouts::Rect& caption = layouts::toolCaption;
  QRect place =
      QRect(caption.x, caption.y, caption.width, caption.height).translated(button.topLeft());
  if (state == State::Down) place.translate(1, 1);
  painter.setPen(isEnabled() ? captionColour : disabledCaptionColour);
  painter.drawText(place, Qt::AlignCenter | Qt::TextDontClip, text());
}

}  // namespace ui
