// SPDX-License-Identifier: GPL-3.0-or-later
#include "skin/dialog_skin.h"

#include <QEvent>
#include <QLayout>
#include <QPainter>

#include <cmath>
#include <utility>

#include "skin/dialog_colours.h"
#include "skin/layouts/dialog_layout.h"
#include "skin/layouts/outlines.h"
#include "skin/patches.h"
#include "skin/rim_resize.h"

namespace ui {

namespace {

using layouts::dialogCorner;
using layouts::dialogCrest;
using layouts::dialogFrame;

constexpr QMargins frame(dialogFrame, layouts::dialogHead, dialogFrame, dialogFrame);
constexpr qreal titleSize = 1.15;  // of the text's

// The rows of the dialogs' charts.
enum TextRows { TitleRow, TextRow };
enum FieldRows { FieldRow, PageRow, LinkRow };

bool HasFixedSize(const QWidget& window) {
  const bool byLayout =
      window.layout() && window.layout()->sizeConstraint() == QLayout::SetFixedSize;
  return byLayout || window.minimumSize() == window.maximumSize();
}

QPolygonF OutlineFor(QSize size) {
  QPolygonF outline;
  for (const layouts::Point& point : layouts::DialogOutline({size.width(), size.height()})) {
    outline << QPointF(point.x, point.y);
  }
  return outline;
}

/// Corners and crest keep their size, told in pixels of each side.
Cuts CutsOf(int drawn, int from, int to, qreal ratio, bool hasCrest) {
  const auto cuts = [hasCrest](int length, qreal scale) {
    const int corner = static_cast<int>(std::lround(dialogCorner * scale));
    const int half = static_cast<int>(std::lround(dialogCrest * scale / 2));
    if (!hasCrest) return std::vector{0, corner, length - corner, length};
    return std::vector{0, corner, length / 2 - half, length / 2 + half, length - corner, length};
  };
  return {cuts(from, 1.0 * from / drawn), cuts(to, ratio)};
}

}  // namespace

DialogSkin::DialogSkin(QWidget& dialog, bool composited)
    : WindowSkin(dialog, layouts::dialog.window, true, composited) {
  const bool isFixed = HasFixedSize(dialog);
  dialog.setContentsMargins(frame);
  if (!isFixed) {
    if (!dialog.testAttribute(Qt::WA_Resized)) dialog.adjustSize();
    dialog.resize(dialog.size().grownBy(frame));
    new RimResize(dialog);  // the dialog's own
  }
  Reshape();
}

void DialogSkin::Reshape() {
  const QPolygonF outline = OutlineFor(Window().size());
  TakeShape(outline, {outline.toPolygon(), Qt::OddEvenFill});
}

void DialogSkin::Colour() {
  const SkinPictures& pictures = Pictures();
  const FieldColours& link = pictures.fieldColours[LinkRow];
  ColourDialog(Window(),
               {pictures.background.scaled(1, 1, Qt::IgnoreAspectRatio, Qt::SmoothTransformation)
                    .pixelColor(0, 0),
                pictures.textColours[TextRow], pictures.fieldColours[FieldRow],
                pictures.fieldColours[PageRow], link.ForeColor, pictures.gridColours.front()});
}

/// A skin without a picture for dialogs has a plain colour instead.
bool DialogSkin::HasPicture() const { return Pictures().background.width() > 1; }

QImage DialogSkin::Ground(QSize pixels) const {
  if (!HasPicture()) return WindowSkin::Ground(pixels);
  const QImage& picture = Pictures().background;
  const qreal ratio = 1.0 * pixels.width() / Window().width();
  const layouts::Size& drawn = layouts::dialog.size;
  return Patched(picture, CutsOf(drawn.width, picture.width(), pixels.width(), ratio, true),
                 CutsOf(drawn.height, picture.height(), pixels.height(), ratio, false));
}

void DialogSkin::PaintOnGround(QPainter& painter) const {
  if (!HasPicture()) {
    painter.setPen(Between(Window().palette().color(QPalette::Window), TitleColour()));
    painter.setBrush(Qt::NoBrush);
    painter.drawPolygon(OutlineFor(Window().size()));
  }
  PaintTitle(painter);
}

QColor DialogSkin::TitleColour() const {
  return Pictures().textColours.empty() ? Window().palette().color(QPalette::WindowText)
                                        : Pictures().textColours[TitleRow];
}

void DialogSkin::PaintTitle(QPainter& painter) const {
  const layouts::Rect place = layouts::TitlePlaceOf({Window().width(), Window().height()});
  QFont font = Window().font();
  font.setBold(true);
  font.setPointSizeF(font.pointSizeF() * titleSize);
  painter.setFont(font);
  const QString title = painter.fontMetrics().elidedText(Window().windowTitle(), Qt::ElideRight,
                                                         place.width - place.height);
  const QRect rect(place.x, place.y, place.width, place.height);
  for (const auto& [where, colour] :
       {std::pair{rect.translated(1, 1), QColor(0, 0, 0, 0x80)}, std::pair{rect, TitleColour()}}) {
    painter.setPen(colour);
    painter.drawText(where, Qt::AlignCenter | Qt::TextDontClip, title);
  }
}

bool DialogSkin::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() == QEvent::Resize) Reshape();
  if (event->type() == QEvent::WindowTitleChange) Window().update();
  return WindowSkin::eventFilter(watched, event);
}

}  // namespace ui
