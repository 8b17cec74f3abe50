// SPDX-License-Identifier: GPL-3.0-or-later
#include "skin/window_skin.h"

#include <QApplication>
#include <QFontInfo>
#include <QMouseEvent>
#include <QPainter>
#include <QScreen>
#include <QTimer>
#include <QWindow>

#include <algorithm>
#include <utility>

#include "platform/text_fields.h"
#include "skin/layouts/skin_table.h"
#include "skin/layouts/strips.h"
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

/// For a window without a chart of text colours: light on a dark picture, dark on a light one, with
/// a touch of the picture's own colour.
QColor LegibleOn(const QImage& picture) {
  const QColor ground =
      picture.scaled(1, 1, Qt::IgnoreAspectRatio, Qt::SmoothTransformation).pixelColor(0, 0);
  constexpr float light = 0.9F, dark = 0.1F;
  return QColor::fromHslF(std::max(0.0F, ground.hslHueF()), ground.hslSaturationF(),
                          qGray(ground.rgb()) < 128 ? light : dark);
}

/// Gives each control of a list its own colours; the window may lack some.
template <typename Colours>
void ForEachControl(const QWidget& window, std::string_view controls,
                    const std::vector<Colours>& colours, void (*give)(QWidget&, const Colours&)) {
  platform::FieldWalk names(controls, ';');
  for (const Colours& own : colours) {
    if (QWidget* control = FindControl(window, names.Next())) give(*control, own);
  }
}

}  // namespace

WindowSkin::WindowSkin(QWidget& window, const layouts::Layout& layout, bool composited)
    : QObject(&window), window_(window), layout_(layout), outline_(OutlinePolygon(layout.window)) {
  ShapeWindow(composited);
  PlaceControls();
  window.installEventFilter(this);
  // The ring round the focus is the window's own picture.
  connect(qApp, &QApplication::focusChanged, &window, qOverload<>(&QWidget::update));
}

WindowSkin* WindowSkin::Of(const QWidget& window) {
  return window.findChild<WindowSkin*>(QString(), Qt::FindDirectChildrenOnly);
}

void WindowSkin::ShapeWindow(bool composited) {
  window_.setWindowFlag(Qt::FramelessWindowHint);
  window_.setFixedSize(layout_.size.width, layout_.size.height);
  if (composited) {
    window_.setAttribute(Qt::WA_TranslucentBackground);
  } else {
    window_.setMask(MakeWindowRegion(layout_.window, 1, 1, 0, 0));
  }
}

void WindowSkin::PlaceControls() {
  QFont font = window_.font();
  font.setPixelSize(std::clamp(QFontInfo(font).pixelSize(), smallestText, largestText));
  window_.setFont(font);
  for (const layouts::Control& control : layout_.controls) {
    QWidget* widget = FindControl(window_, control.name);
    if (!widget) continue;
    if (auto* button = qobject_cast<SkinButton*>(widget)) {
      button->PlaceAt(InQt(control.rect));
    } else {
      widget->setGeometry(InQt(control.rect));
    }
    // A text is part of the surface by which the window is dragged.
    if (auto* text = qobject_cast<PlainTextView*>(widget)) {
      text->BecomeSurface();
      if (control.surface == Surface::Panel) text->SetMargins(panelMargin, panelMarginUpright);
    }
  }
}

void WindowSkin::Wear(SkinPictures pictures) {
  pictures_ = std::move(pictures);
  scaled_ = {};
  Colour();
  window_.update();
  Q_EMIT Worn();
}

void WindowSkin::Colour() {
  const SkinRow* row = FindSkinRow(layout_.window);
  QPalette palette = window_.palette();
  palette.setColor(QPalette::WindowText, pictures_.textColours.empty()
                                             ? LegibleOn(pictures_.background)
                                             : pictures_.textColours.front());
  if (!pictures_.gridColours.empty()) {
    palette.setColor(QPalette::Highlight, pictures_.gridColours.front().BackColorSel);
    palette.setColor(QPalette::HighlightedText, pictures_.gridColours.front().ForeColorSel);
  }
  palette.setColor(QPalette::Shadow, QColor(0, 0, 0, 0x80));  // fits every background
  window_.setPalette(palette);
  ForEachControl(window_, row->textControls, pictures_.textColours, ColourText);
  ForEachControl(window_, row->fieldControls, pictures_.fieldColours, ColourField);
  ForEachControl(window_, row->gridControls, pictures_.gridColours, ColourGrid);
  ForEachControl(window_, row->tabPages, pictures_.tabColours, ColourPage);
}

QImage WindowSkin::Strip(std::string_view target) const {
  const auto strip = pictures_.strips.find(target);
  return strip == pictures_.strips.end() ? QImage() : strip->second;
}

void WindowSkin::Fail() {
  failed_ = true;
  if (!window_.isVisible()) return;
  // One that refuses to close goes away all the same.
  QTimer::singleShot(0, &window_, [&window = window_] {
    if (!window.close()) window.hide();
  });
}

bool WindowSkin::eventFilter(QObject*, QEvent* event) {
  switch (event->type()) {
    case QEvent::Paint:
      Paint();
      return true;
    case QEvent::Show:
      if (failed_) Fail();
      if (!window_.testAttribute(Qt::WA_Moved)) MoveToMiddle();
      return false;
    case QEvent::MouseButtonPress: {
      const auto& mouse = static_cast<const QMouseEvent&>(*event);
      if (layout_.draggable && mouse.button() == Qt::LeftButton) {
        pressedAt_ = mouse.globalPosition().toPoint();
      }
      return false;
    }
    case QEvent::MouseMove:
      MoveWith(static_cast<const QMouseEvent&>(*event).globalPosition().toPoint());
      return false;
    case QEvent::MouseButtonRelease:
      pressedAt_.reset();
      grab_.reset();
      return false;
    default:
      return false;
  }
}

/// Of the window that it belongs to, else of the screen. The toolkit would leave room for a frame.
void WindowSkin::MoveToMiddle() {
  const QWidget* owner = window_.parentWidget();
  const QRect screen = window_.screen()->availableGeometry();
  QRect place({}, window_.size());
  place.moveCenter(owner ? owner->window()->frameGeometry().center() : screen.center());
  window_.move(
      std::clamp(place.x(), screen.x(), std::max(screen.x(), screen.right() + 1 - place.width())),
      std::clamp(place.y(), screen.y(),
                 std::max(screen.y(), screen.bottom() + 1 - place.height())));
}

/// A desktop that is told of a move when the button is up again would let the window stick to the
/// pointer, so a mere tap doesn't begin one.
void WindowSkin::MoveWith(QPoint pointer) {
  if (pressedAt_ &&
      (pointer - *pressedAt_).manhattanLength() >= QApplication::startDragDistance()) {
    const QPoint begin = *std::exchange(pressedAt_, std::nullopt);
    if (!window_.windowHandle()->startSystemMove()) grab_ = begin - window_.pos();
  }
  if (grab_) window_.move(pointer - *grab_);
}

void WindowSkin::Paint() {
  const qreal ratio = window_.devicePixelRatioF();
  const QSize pixels = (QSizeF(window_.size()) * ratio).toSize();
  if (scaled_.size() != pixels && !pictures_.background.isNull()) {
    scaled_ = QPixmap::fromImage(
        pictures_.background.scaled(pixels, Qt::IgnoreAspectRatio, Qt::SmoothTransformation));
    scaled_.setDevicePixelRatio(ratio);
  }
  QPainter painter(&window_);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(Qt::NoPen);
  painter.setBrush(scaled_.isNull() ? window_.palette().window() : QBrush(scaled_));
  // A mask cuts whole pixels and takes none that is half outside.
  if (window_.testAttribute(Qt::WA_TranslucentBackground)) {
    painter.drawPolygon(outline_);
  } else {
    painter.drawRect(window_.rect());
  }
  PaintFocus(painter);
}

/// Buttons and the board show their focus themselves.
void WindowSkin::PaintFocus(QPainter& painter) const {
  const QWidget* focused = window_.focusWidget();
  if (!focused || !focused->hasFocus()) return;
  for (const layouts::Control& control : layout_.controls) {
    if (control.surface != Surface::Field && control.surface != Surface::Grid &&
        control.surface != Surface::Panel) {
      continue;
    }
    if (FindControl(window_, control.name) != focused) continue;
    DrawFocusRing(painter, InQt(control.rect), 0, window_.palette().color(QPalette::WindowText));
  }
}

}  // namespace ui
