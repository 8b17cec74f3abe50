// SPDX-License-Identifier: GPL-3.0-or-later
#include "widgets/scrolling_page.h"

#include <QEvent>
#include <QLayout>
#include <QScrollBar>

namespace ui {

ScrollingPage::ScrollingPage(QWidget* content) {
  setFrameShape(QFrame::NoFrame);
  setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  setWidgetResizable(true);
  setFocusPolicy(Qt::NoFocus);
  setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
  setWidget(content);
}

void ScrollingPage::Settle() {
  widget()->layout()->activate();
  updateGeometry();
}

int ScrollingPage::heightForWidth(int width) const {
  const QLayout& content = *widget()->layout();
  return content.hasHeightForWidth() ? content.totalHeightForWidth(width)
                                     : content.totalSizeHint().height();
}

QSize ScrollingPage::sizeHint() const { return widget()->sizeHint(); }

QSize ScrollingPage::minimumSizeHint() const {
  return {widget()->minimumSizeHint().width() + verticalScrollBar()->sizeHint().width(), 96};
}

/// A scroll area keeps the changes of its content from the layout around it.
bool ScrollingPage::eventFilter(QObject* object, QEvent* event) {
  if (object == widget() && event->type() == QEvent::LayoutRequest) updateGeometry();
  return QScrollArea::eventFilter(object, event);
}

/// What the user is at stays in sight where the page becomes lower.
void ScrollingPage::resizeEvent(QResizeEvent* event) {
  QScrollArea::resizeEvent(event);
  QWidget* focused = window()->focusWidget();
  if (focused && widget()->isAncestorOf(focused)) ensureWidgetVisible(focused);
}

}  // namespace ui
