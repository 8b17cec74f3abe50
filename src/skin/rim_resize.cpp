// SPDX-License-Identifier: GPL-3.0-or-later
#include "skin/rim_resize.h"

#include <QApplication>
#include <QHoverEvent>
#include <QMouseEvent>
#include <QWidget>
#include <QWindow>

#include <algorithm>

#include "skin/layouts/dialog_layout.h"

namespace ui {

namespace {

Qt::CursorShape PointerFor(Qt::Edges edges) {
  if (edges == (Qt::LeftEdge | Qt::TopEdge) || edges == (Qt::RightEdge | Qt::BottomEdge)) {
    return Qt::SizeFDiagCursor;
  }
  if (edges == Qt::LeftEdge || edges == Qt::RightEdge) return Qt::SizeHorCursor;
  if (edges == Qt::TopEdge || edges == Qt::BottomEdge) return Qt::SizeVerCursor;
  return Qt::SizeBDiagCursor;
}

}  // namespace

RimResize::RimResize(QWidget& window) : QObject(&window), window_(window) {
  window.setAttribute(Qt::WA_Hover);
  window.setMouseTracking(true);
  window.installEventFilter(this);
}

/// The edges that are pulled at a place of the window; none within the rim.
Qt::Edges RimResize::EdgesAt(QPoint place) const {
  const QRect rect = window_.rect().adjusted(0, layouts::dialogCrestHeight, 0, 0);
  const auto edges = [&](int reach) {
    Qt::Edges near;
    near.setFlag(Qt::LeftEdge, place.x() < reach);
    near.setFlag(Qt::RightEdge, place.x() > rect.right() - reach);
    near.setFlag(Qt::TopEdge, place.y() < rect.top() + reach);
    near.setFlag(Qt::BottomEdge, place.y() > rect.bottom() - reach);
    return near;
  };
  return edges(layouts::dialogFrame) ? edges(layouts::dialogPull) : Qt::Edges();
}

void RimResize::ShowPointer(Qt::Edges edges) {
  if (edges) {
    window_.setCursor(PointerFor(edges));
  } else {
    window_.unsetCursor();
  }
}

bool RimResize::eventFilter(QObject*, QEvent* event) {
  switch (event->type()) {
    case QEvent::HoverMove:
      if (!grip_) ShowPointer(EdgesAt(static_cast<QHoverEvent&>(*event).position().toPoint()));
      return false;
    case QEvent::HoverLeave:
      ShowPointer({});
      return false;
    case QEvent::MouseButtonPress: {
      const auto& mouse = static_cast<const QMouseEvent&>(*event);
      const Qt::Edges edges = EdgesAt(mouse.position().toPoint());
      if (mouse.button() != Qt::LeftButton || !edges) return false;
      grip_ = {edges, mouse.globalPosition().toPoint(), window_.geometry()};
      return true;
    }
    case QEvent::MouseMove:
      if (grip_) Pull(static_cast<const QMouseEvent&>(*event).globalPosition().toPoint());
      return grip_.has_value();
    case QEvent::MouseButtonRelease:
      grip_.reset();
      byDesktop_ = false;
      return false;
    default:
      return false;
  }
}

/// As with a move, a mere tap begins nothing.
void RimResize::Pull(QPoint pointer) {
  const QPoint way = pointer - grip_->pressedAt;
  if (byDesktop_ || way.manhattanLength() < QApplication::startDragDistance()) return;
  byDesktop_ = window_.geometry() == grip_->before &&
               window_.windowHandle()->startSystemResize(grip_->edges);
  if (byDesktop_) return;
  const QSize smallest = window_.minimumSizeHint().expandedTo(window_.minimumSize());
  QRect pulled = grip_->before;
  if (grip_->edges.testFlag(Qt::LeftEdge)) {
    pulled.setLeft(std::min(pulled.left() + way.x(), pulled.right() + 1 - smallest.width()));
  }
  if (grip_->edges.testFlag(Qt::TopEdge)) {
    pulled.setTop(std::min(pulled.top() + way.y(), pulled.bottom() + 1 - smallest.height()));
  }
  if (grip_->edges.testFlag(Qt::RightEdge)) {
    pulled.setWidth(std::max(pulled.width() + way.x(), smallest.width()));
  }
  if (grip_->edges.testFlag(Qt::BottomEdge)) {
    pulled.setHeight(std::max(pulled.height() + way.y(), smallest.height()));
  }
  window_.setGeometry(pulled);
}

}  // namespace ui
