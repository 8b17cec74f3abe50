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
int StripButton::ColumnOf(FaceState state) const {
  const int column = static_cast<int>(state);  // in the order of ToolbarColumn
  const bool hasHover = shape_.columns > layouts::InterfaceDisabled + 1;
  return hasHover || state == FaceState::Up ? column : column - 1;
}

/// Lines that share the place stand closer than the font would have them, and smaller.
void StripButton::PaintCaption(QPainter& painter, const QRect& place, const QStringList& lines) {
  const auto count = static_cast<int>(lines.size());
  QFont font = painter.font();
  if (count > 1) font.setPixelSize(place.height() / count);
  for (int i = 0; i < count; ++i) {
    const QString& line = lines.at(i);
    const int excess = QFontMetrics(font).horizontalAdvance(line) - place.width();
    QFont fitting = font;
    if (excess > 0)
      fitting.setLetterSpacing(QFont::AbsoluteSpacing, -excess / static_cast<qreal>(line.size()));
    painter.setFont(fitting);
    const int top = place.height() * i / count;
    painter.drawText(QRect(place.x(), place.y() + top, place.width(), place.height() / count),
                     Qt::AlignCenter | Qt::TextDontClip, line);
  }
}

void StripButton::PaintButton(QPainter& painter, const QRect& button) {
  const FaceState state = CurrentState();
  DrawRounded(painter, button, StripCell(strip_, shape_, ColumnOf(state), row_));
  const layouts::Rect& caption = shape_.caption;
  QRect place =
      QRect(caption.x, caption.y, caption.width, caption.height).translated(button.topLeft());
  if (state == FaceState::Down) place.translate(1, 1);
  painter.setPen(isEnabled() ? captionColour : disabledCaptionColour);
  PaintCaption(painter, place, text().split(u'\n'));
}

}  // namespace ui
