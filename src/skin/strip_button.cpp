// SPDX-License-Identifier: GPL-3.0-or-later
#include "skin/strip_button.h"

#include <QPainter>

#include "skin/caption_colours.h"
#include "skin/strip_cell.h"

namespace ui {

StripButton::StripButton(const QString& name, const layouts::Strip& shape, int row, QWidget* window)
    : SkinButton(name, window), shape_(shape), row_(row) {}

void StripButton::SetStrip(const QImage& strip) {
  strip_ = strip;
  update();
}

/// A strip without a column for the hover shows the button up.
int StripButton::ColumnOf(State state) const {
  const int column = static_cast<int>(state);  // in the order of ToolbarColumn
  const bool hasHover = shape_.columns > layouts::InterfaceDisabled + 1;
  return hasHover || state == State::Up ? column : column - 1;
}

void StripButton::PaintButton(QPainter& painter, const QRect& button) {
  const State state = CurrentState();
  DrawRounded(painter, button, StripCell(strip_, shape_, ColumnOf(state), row_));
  const layouts::Rect& caption = layouts::toolCaption;
  QRect place =
      QRect(caption.x, caption.y, caption.width, caption.height).translated(button.topLeft());
  if (state == State::Down) place.translate(1, 1);
  painter.setPen(isEnabled() ? captionColour : disabledCaptionColour);
  painter.drawText(place, Qt::AlignCenter | Qt::TextDontClip, text());
}

}  // namespace ui
