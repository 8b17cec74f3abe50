// SPDX-License-Identifier: GPL-3.0-or-later
#include "widgets/placed_tip.h"

#include <QAbstractScrollArea>
#include <QAccessible>
#include <QApplication>
#include <QLabel>
#include <QLineEdit>
#include <QMouseEvent>
#include <QScreen>
#include <QStyleOptionFrame>
#include <QStylePainter>
#include <QTimer>
#include <QToolTip>

#include <algorithm>
#include <chrono>

namespace ui {

namespace {

using namespace std::chrono_literals;

constexpr int gap = 2;

QRect InGlobal(const QWidget& widget) { return {widget.mapToGlobal(QPoint(0, 0)), widget.size()}; }

/// Looks as the toolkit's own. The pointer goes through it, and so leaves nothing for it.
class PlacedTip : public QLabel {
 public:
  PlacedTip(QWidget& owner, const QString& text, const QRect& during)
      : QLabel(text, &owner, Qt::ToolTip | Qt::WindowTransparentForInput), during_(during) {
    setObjectName(QStringLiteral("PlacedTip"));
    setAttribute(Qt::WA_DeleteOnClose);
    setAttribute(Qt::WA_ShowWithoutActivating);
    setPalette(QToolTip::palette());
    setForegroundRole(QPalette::ToolTipText);
    setBackgroundRole(QPalette::ToolTipBase);
    setFont(QToolTip::font());
    setMargin(1 + style()->pixelMetric(QStyle::PM_ToolTipLabelFrameWidth, nullptr, this));
    setWordWrap(Qt::mightBeRichText(text));
    adjustSize();
    qApp->installEventFilter(this);
    QTimer::singleShot(10s, this, &QWidget::close);
  }

 protected:
  void paintEvent(QPaintEvent* event) override {
    QStylePainter painter(this);
    QStyleOptionFrame frame;
    frame.initFrom(this);
    painter.drawPrimitive(QStyle::PE_PanelTipLabel, frame);
    QLabel::paintEvent(event);
  }

  bool eventFilter(QObject* watched, QEvent* event) override {
    if (EndsIt(watched, *event)) close();
    return QLabel::eventFilter(watched, event);
  }

 private:
  bool EndsIt(const QObject* watched, const QEvent& event) const {
    switch (event.type()) {
      case QEvent::FocusIn:
      case QEvent::FocusOut:
      case QEvent::MouseButtonPress:
      case QEvent::Wheel:
      case QEvent::WindowDeactivate:
        return true;
      case QEvent::Hide:
        return watched == parent();
      case QEvent::KeyPress:
        return !during_.isNull();
      case QEvent::Leave:
        return watched == parent() && !during_.isNull();
      case QEvent::MouseMove:
        return watched == parent() && !during_.isNull() &&
               !during_.contains(static_cast<const QMouseEvent&>(event).position().toPoint());
      default:
        return false;
    }
  }

  const QRect during_;
};

QRect MovedInto(const QRect& room, QRect tip) {
  tip.moveRight(std::min(tip.right(), room.right()));
  tip.moveBottom(std::min(tip.bottom(), room.bottom()));
  tip.moveLeft(std::max(tip.left(), room.left()));
  tip.moveTop(std::max(tip.top(), room.top()));
  return tip;
}

bool IsField(const QWidget* widget) {
  return qobject_cast<const QLineEdit*>(widget) || qobject_cast<const QAbstractScrollArea*>(widget);
}

bool CoversField(const QWidget& window, const QRect& tip) {
  const auto widgets = window.findChildren<QWidget*>();
  return std::ranges::any_of(widgets, [&tip](const QWidget* widget) {
    return IsField(widget) && widget->isVisible() && InGlobal(*widget).intersects(tip);
  });
}

/// Below the field or above it, else at the foot or the head of the window.
QPoint PlaceBeside(const QWidget& field, QSize tip) {
  const QRect own = InGlobal(field), window = field.window()->frameGeometry();
  const QRect screen = field.screen()->availableGeometry();
  const int heights[] = {own.bottom() + gap, own.top() - gap - tip.height(), window.bottom() + gap,
                         window.top() - gap - tip.height()};
  for (const int y : heights) {
    const QRect place = MovedInto(screen, {QPoint(own.left(), y), tip});
    if (!CoversField(*field.window(), place)) return place.topLeft();
  }
  return {own.left(), heights[0]};
}

}  // namespace

QWidget& ShowTip(QWidget& owner, const QString& text, const TipPlace& place, const QRect& during) {
  for (QWidget* window : QApplication::topLevelWidgets()) {
    if (window->objectName() == QLatin1StringView("PlacedTip")) window->close();
  }
  auto* tip = new PlacedTip(owner, text, during);
  tip->move(
      MovedInto(owner.screen()->availableGeometry(), {place(tip->size()), tip->size()}).topLeft());
  tip->show();
  return *tip;
}

void TellBeside(QWidget& field, const QString& line) {
  QWidget& tip = ShowTip(field, line, [&field](QSize size) { return PlaceBeside(field, size); });
  QAccessibleEvent alert(&tip, QAccessible::Alert);
  QAccessible::updateAccessibility(&alert);
}

}  // namespace ui
