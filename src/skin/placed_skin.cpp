// SPDX-License-Identifier: GPL-3.0-or-later
#include "skin/placed_skin.h"

#include <QFontInfo>
#include <QFrame>
#include <QPainter>

#include <algorithm>

#include "platform/text_fields.h"
#include "skin/layouts/skin_table.h"
#include "skin/skin_button.h"
#include "skin/window_region.h"
#include "widgets/plain_text_view.h"

namespace ui {

using layouts::Surface;

namespace {

/// The places are pixels, and so is the text that must fit into them: as large as the desktop's
/// own, but never below nine points or beyond what there is room for.
constexpr int smallestText = 12;
constexpr int largestText = 13;
constexpr int panelMargin = 4;
constexpr int panelMarginUpright = 2;

QRect InQt(const layouts::Rect& rect) { return {rect.x, rect.y, rect.width, rect.height}; }

QWidget* FindControl(const QWidget& window, std::string_view name) {
  return window.findChild<QWidget*>(QString::fromUtf8(name.data(), qsizetype(name.size())));
}

/// What a picture is on the whole.
QColor GroundOf(const QImage& picture) {
  return picture.scaled(1, 1, Qt::IgnoreAspectRatio, Qt::SmoothTransformation).pixelColor(0, 0);
}

/// For a window without a chart of text colours: light on a dark picture, dark on a light one, with
/// a touch of the picture's own colour.
QColor LegibleOn(const QColor& ground) {
  constexpr float light = 0.9F, dark = 0.1F;
  return QColor::fromHslF(std::max(0.0F, ground.hslHueF()), ground.hslSaturationF(),
                          qGray(ground.rgb()) < 128 ? light : dark);
}

/// Gives each control of a list its own colours; the window may lack some.
template <typename Colours>
void ForEachControl(const QWidget& window, std::string_view controls,
                    const std::vector<Colours>& colours, void (*give)(QWidget&, const Colours&)) {
  platform::FieldWalk rows(controls, ';');
  for (const Colours& own : colours) {
    const std::string_view row = rows.Next();
    platform::FieldWalk names(row, ',');
    for (int i = platform::CountFields(row, ','); i > 0; --i) {
      if (QWidget* control = FindControl(window, names.Next())) give(*control, own);
    }
  }
}

}  // namespace

PlacedSkin::PlacedSkin(QWidget& window, const layouts::Layout& layout, bool composited)
    : WindowSkin(window, layout.window, layout.draggable, composited), layout_(layout) {
  window.setFixedSize(layout.size.width, layout.size.height);
  TakeShape(OutlinePolygon(layout.window), MakeWindowRegion(layout.window, 1, 1, 0, 0));
  PlaceControls();
}

void PlacedSkin::PlaceControls() {
  QFont font = Window().font();
  font.setPixelSize(std::clamp(QFontInfo(font).pixelSize(), smallestText, largestText));
  Window().setFont(font);
  for (const layouts::Control& control : layout_.controls) {
    QWidget* widget = FindControl(Window(), control.name);
    if (!widget) continue;
    // Of those on a page, too, the place is told in the window; the page has its own by then.
    const QRect place =
        InQt(control.rect).translated(-widget->parentWidget()->mapTo(&Window(), QPoint()));
    if (auto* button = qobject_cast<SkinButton*>(widget)) {
      button->PlaceAt(place);
    } else {
      widget->setGeometry(place);
    }
    // The background draws the recess in which a field or a list lies.
    if (control.surface == Surface::Field || control.surface == Surface::Grid) {
      if (auto* frame = qobject_cast<QFrame*>(widget)) frame->setFrameShape(QFrame::NoFrame);
    }
    // A text is part of the surface by which the window is dragged.
    if (auto* text = qobject_cast<PlainTextView*>(widget)) {
      text->BecomeSurface();
      if (control.surface == Surface::Panel) text->SetMargins(panelMargin, panelMarginUpright);
    }
  }
}

void PlacedSkin::Colour() {
  const SkinRow* row = FindSkinRow(layout_.window);
  const SkinPictures& pictures = Pictures();
  QWidget& window = Window();
  QPalette palette = window.palette();
  const QColor ground = GroundOf(pictures.background);
  const QColor text =
      pictures.textColours.empty() ? LegibleOn(ground) : pictures.textColours.front();
  palette.setColor(QPalette::WindowText, text);
  // Without a list's colours the desktop's own accent would show, which suits no skin.
  const bool hasGrid = !pictures.gridColours.empty();
  palette.setColor(QPalette::Highlight, hasGrid ? pictures.gridColours.front().BackColorSel : text);
  palette.setColor(QPalette::HighlightedText,
                   hasGrid ? pictures.gridColours.front().ForeColorSel : ground);
  palette.setColor(QPalette::Shadow, QColor(0, 0, 0, 0x80));  // fits every background
  window.setPalette(palette);
  ForEachControl(window, row->textControls, pictures.textColours, ColourText);
  ForEachControl(window, row->fieldControls, pictures.fieldColours, ColourField);
  ForEachControl(window, row->gridControls, pictures.gridColours, ColourGrid);
  ForEachControl(window, row->tabPages, pictures.tabColours, ColourPage);
}

namespace {

/// The accent, where it stands out from the ground nearly as the texts do.
QColor FocusColour(const QPalette& palette) {
  const QColor accent = palette.color(QPalette::Highlight);
  const QColor text = palette.color(QPalette::WindowText);
  return std::abs(qGray(accent.rgb()) - qGray(text.rgb())) < 110 ? accent : text;
}

}  // namespace

/// Buttons and the board show their focus themselves.
void PlacedSkin::PaintOnGround(QPainter& painter) const {
  const QWidget* focused = Window().focusWidget();
  if (!focused || !focused->hasFocus()) return;
  for (const layouts::Control& control : layout_.controls) {
    if (control.surface != Surface::Field && control.surface != Surface::Grid &&
        control.surface != Surface::Panel) {
      continue;
    }
    if (FindControl(Window(), control.name) != focused) continue;
    painter.setBrush(Qt::NoBrush);
    painter.setPen(QPen(FocusColour(Window().palette()), 1));
    painter.drawRect(QRectF(InQt(control.rect)).adjusted(-1.5, -1.5, 1.5, 1.5));
  }
}

}  // namespace ui
