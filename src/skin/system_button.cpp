// SPDX-License-Identifier: GPL-3.0-or-later
#include "skin/system_button.h"

#include <QPainter>

#include <algorithm>
#include <array>
#include <cmath>
#include <utility>

#include "skin/button_parts.h"
#include "skin/caption_colours.h"
#include "skin/strip_cell.h"
#include "skin/window_region.h"

namespace ui {
namespace {

QRectF InPixels(const TwipRect& rect) {
  constexpr qreal twips = twipsPerPixel;
  return {rect.left / twips, rect.top / twips, rect.width / twips, rect.height / twips};
}

/// A cell in another size: its corners keep theirs, what lies between them is stretched.
QImage Stretched(const QImage& cell, QSize size) {
  const qreal scale = 1.0 * cell.width() / layouts::systemButtons.cell.width;
  const QSize target(static_cast<int>(std::lround(size.width() * scale)),
                     static_cast<int>(std::lround(size.height() * scale)));
  const int corner = std::min({static_cast<int>(std::lround(layouts::systemButtonCorner * scale)),
                               (cell.width() - 1) / 2, (cell.height() - 1) / 2, target.width() / 2,
                               target.height() / 2});
  const auto cuts = [corner](int length) { return std::array{0, corner, length - corner, length}; };
  const auto fromX = cuts(cell.width()), fromY = cuts(cell.height());
  const auto toX = cuts(target.width()), toY = cuts(target.height());
  QImage stretched(target, QImage::Format_RGB32);
  QPainter painter(&stretched);
  for (std::size_t y = 0; y < 3; ++y) {
    for (std::size_t x = 0; x < 3; ++x) {
      const QRect from(QPoint(fromX[x], fromY[y]), QPoint(fromX[x + 1] - 1, fromY[y + 1] - 1));
      const QRect to(QPoint(toX[x], toY[y]), QPoint(toX[x + 1] - 1, toY[y + 1] - 1));
      if (to.isEmpty()) continue;
      painter.drawImage(to.topLeft(), cell.copy(from).scaled(to.size(), Qt::IgnoreAspectRatio,
                                                             Qt::SmoothTransformation));
    }
  }
  return stretched;
}

void WashOver(QImage& face, QColor colour) {
  QPainter painter(&face);
  painter.fillRect(face.rect(), colour);
}

}  // namespace

QImage& ButtonImages() {
  static QImage strip;
  return strip;
}

void SystemButton::PaintButton(QPainter& painter, const QRect& button) {
  const State state = CurrentState();
  const int cell = state == State::Down ? layouts::ButtonDown : layouts::ButtonUp;
  QImage face =
      Stretched(StripCell(ButtonImages(), layouts::systemButtons, cell, 0), button.size());
  if (state == State::Hover) WashOver(face, QColor(255, 255, 255, 90));
  // Paler and flat, and still a light ground for a grey caption.
  if (state == State::Disabled) WashOver(face, QColor(255, 255, 255, 140));
  DrawRounded(painter, button, face);
  PaintCaption(painter, button);
}

void SystemButton::PaintCaption(QPainter& painter, const QRect& button) const {
  const TwipRect frame{button.x() * twipsPerPixel, button.y() * twipsPerPixel,
                       button.width() * twipsPerPixel, button.height() * twipsPerPixel};
  const ButtonParts parts = PartsOfButton(frame, fontMetrics().height() * twipsPerPixel, isDown());
  const std::pair<TwipRect, QColor> labels[] = {
      {parts.Label_2, captionShadow},
      {parts.Label_1, isEnabled() ? captionColour : disabledCaptionColour}};
  for (const auto& [label, colour] : labels) {
    painter.setPen(colour);
    painter.drawText(InPixels(label), Qt::AlignHCenter | Qt::AlignTop | Qt::TextDontClip, text());
  }
}

void SetButtonEnabled(QWidget& window, const QString& name, bool enabled) {
  if (auto* button = window.findChild<SystemButton*>(name)) button->setEnabled(enabled);
}

}  // namespace ui
