// SPDX-License-Identifier: GPL-3.0-or-later
#include "skin_background.h"

#include "skin/layouts/board_layout.h"
#include "skin/layouts/outlines.h"
#include "skin_surface.h"

namespace art {

using namespace Qt::StringLiterals;

namespace {

using ui::layouts::Control;
using ui::layouts::Layout;
using ui::layouts::Surface;

constexpr double kPanelMargin = 6;
constexpr double kRailMargin = 3;
constexpr double kLetterMargin = 6;

QRectF RectOf(const ui::layouts::Rect& rect) {
  return {double(rect.x), double(rect.y), double(rect.width), double(rect.height)};
}

QRectF Grown(const QRectF& rect, double by) { return rect.adjusted(-by, -by, by, by); }

void DrawControl(SkinSurface& surface, const Control& control) {
  const QRectF rect = RectOf(control.rect);
  switch (control.surface) {
    case Surface::Panel:
      surface.LetInPanel(Grown(rect, kPanelMargin));
      break;
    case Surface::Field:
    case Surface::Grid:
      surface.SinkWell(rect);
      break;
    case Surface::Board:
      surface.FrameBoard(RectOf(control.rect.Grown(-ui::layouts::boardBand)),
                         static_cast<float>(ui::layouts::boardBand));
      break;
    case Surface::Ornament:
      surface.InlayText(QString::fromUtf8(control.text.data(), qsizetype(control.text.size())),
                        rect.adjusted(0, kLetterMargin, 0, -kLetterMargin));
      break;
    case Surface::Picture:
      if (control.name.starts_with("PieceButton")) surface.InlaySquare(rect);
      break;
    case Surface::Label:
    case Surface::Button:
    case Surface::Tool:
    case Surface::Occasion:
      break;  // the program draws it, on the bare surface
  }
}

// The rectangle of all buttons of the window's own strip; empty without any.
QRectF RailOf(const Layout& layout) {
  QRectF rail;
  for (const Control& control : layout.controls) {
    if (control.surface == Surface::Tool) rail |= RectOf(control.rect);
  }
  return rail;
}

}  // namespace

QImage PaintBackground(const SkinParameters& skin, const Layout& layout) {
  const QSize size(layout.size.width, layout.size.height);
  const OutlineShape outline(ui::layouts::OutlineOf(layout.window), size.width() * kSkinScale,
                             size.height() * kSkinScale, static_cast<float>(kSkinScale));
  SkinSurface surface(skin, size);
  surface.Lay();
  surface.RaiseRim(outline);
  const QRectF rail = RailOf(layout);
  if (!rail.isEmpty()) surface.SinkRail(Grown(rail, kRailMargin));
  for (const Control& control : layout.controls) DrawControl(surface, control);
  if (layout.controls.empty()) {
    surface.Engrave(RectOf(ui::layouts::TitlePlaceOf(layout.size)), 13);
  }
  return surface.Picture();
}

}  // namespace art
