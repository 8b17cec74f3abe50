// SPDX-License-Identifier: GPL-3.0-or-later
#include "skin/window_skin.h"

#include <QApplication>
#include <QMouseEvent>
#include <QPainter>
#include <QScreen>
#include <QTimer>
#include <QWindow>

#include <algorithm>
#include <utility>

#include "widgets/window_places.h"

namespace ui {

WindowSkin::WindowSkin(QWidget& window, std::string_view name, bool draggable, bool composited)
    : QObject(&window), window_(window), name_(name), draggable_(draggable) {
  window.setWindowFlag(Qt::FramelessWindowHint);
  window.setAttribute(Qt::WA_TranslucentBackground, composited);
  window.installEventFilter(this);
  // The ring round the focus is the window's own picture.
  connect(qApp, &QApplication::focusChanged, &window, qOverload<>(&QWidget::update));
}

WindowSkin* WindowSkin::Of(const QWidget& window) {
  return window.findChild<WindowSkin*>(QString(), Qt::FindDirectChildrenOnly);
}

void WindowSkin::TakeShape(const QPolygonF& outline, const QRegion& mask) {
  outline_ = outline;
  if (!window_.testAttribute(Qt::WA_TranslucentBackground)) window_.setMask(mask);
}

void WindowSkin::Wear(SkinPictures pictures) {
  pictures_ = std::move(pictures);
  ground_ = {};
  Colour();
  window_.update();
  Q_EMIT Worn();
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
    case QEvent::WindowActivate:
    case QEvent::LayoutRequest:
      KeepPlace(window_);
      return false;
    case QEvent::MouseButtonPress: {
      const auto& mouse = static_cast<const QMouseEvent&>(*event);
      if (draggable_ && mouse.button() == Qt::LeftButton) {
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

QImage WindowSkin::Ground(QSize pixels) const {
  return pictures_.background.scaled(pixels, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
}

void WindowSkin::Paint() {
  const qreal ratio = window_.devicePixelRatioF();
  const QSize pixels = (QSizeF(window_.size()) * ratio).toSize();
  if (ground_.size() != pixels && !pictures_.background.isNull()) {
    ground_ = QPixmap::fromImage(Ground(pixels));
    ground_.setDevicePixelRatio(ratio);
  }
  QPainter painter(&window_);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(Qt::NoPen);
  painter.setBrush(ground_.isNull() ? window_.palette().window() : QBrush(ground_));
  // A mask cuts whole pixels and takes none that is half outside.
  if (window_.testAttribute(Qt::WA_TranslucentBackground)) {
    painter.drawPolygon(outline_);
  } else {
    painter.drawRect(window_.rect());
  }
  PaintOnGround(painter);
}

}  // namespace ui
