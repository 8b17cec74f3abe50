// SPDX-License-Identifier: GPL-3.0-or-later
#include "skin/system_button.h"

#include <QPainter>

#include <algorithm>
#include <cmath>
#include <utility>

#include "skin/button_parts.h"
#include "skin/caption_colours.h"
#include "skin/patches.h"
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
  const auto cuts = [corner](int from, int to) {
    return Cuts{{0, corner, from - corner, from}, {0, corner, to - corner, to}};
  };
  return Patched(cell, cuts(cell.width(), target.width()), cuts(cell.height(), target.height()));
}

void WashOver(QImage& face, QColor colour) {
  QPainter painter(&face);
  painter.fillRect(face.rect(), colour);
}

void PaintCaption(QPainter& painter, const QRect& button, FaceState state, const QString& text,
                  int textFlags) {
  const TwipRect frame{button.x() * twipsPerPixel, button.y() * twipsPerPixel,
                       button.width() * twipsPerPixel, button.height() * twipsPerPixel};
  const ButtonParts parts = PartsOfButton(frame, painter.fontMetrics().height() * twipsPerPixel,
                                          state == FaceState::Down);
  const std::pair<TwipRect, QColor> labels[] = {
      {parts.Label_2, captionShadow},
      {parts.Label_1, state == FaceState::Disabled ? disabledCaptionColour : captionColour}};
  for (const auto& [label, colour] : labels) {
    painter.setPen(colour);
    constexpr int place = static_cast<int>(Qt::AlignHCenter | Qt::AlignTop);
    painter.drawText(InPixels(label), place | Qt::TextDontClip | textFlags, text);
  }
}

}  // namespace

QImage& ButtonImages() {
  static QImage strip;
  return strip;
}

void PaintSystemButton(QPainter& painter, const QRect& button, FaceState state, const QString& text,
                       int textFlags) {
  const int cell = state == FaceState::Down ? layouts::ButtonDown : layouts::ButtonUp;
  QImage face =
      Stretched(StripCell(ButtonImages(), layouts::systemButtons, cell, 0), button.size());
  if (state == FaceState::Hover) WashOver(face, QColor(255, 255, 255, 90));
  // Paler and flat, and still a light ground for a grey caption.
  if (state == FaceState::Disabled) WashOver(face, QColor(255, 255, 255, 140));
  DrawRounded(painter, button, face);
  PaintCaption(painter, button, state, text, textFlags);
}

void SystemButton::PaintButton(QPainter& painter, const QRect& button) {
  PaintSystemButton(painter, button, CurrentState(), text(), Qt::TextShowMnemonic);
}

void SetButtonEnabled(QWidget& window, const QString& name, bool enabled) {
  if (auto* button = window.findChild<SystemButton*>(name)) button->setEnabled(enabled);
}

}  // namespace ui
