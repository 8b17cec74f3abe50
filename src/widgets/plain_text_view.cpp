// SPDX-License-Identifier: GPL-3.0-or-later
#include "widgets/plain_text_view.h"

#include <QScrollBar>
#include <QTextDocument>
#include <QTextFrame>

#include <cmath>
#include <memory>

namespace ui {

namespace {
constexpr int usualWidth = 200;
}

PlainTextView::PlainTextView(QWidget* parent) : QTextEdit(parent) {
  setReadOnly(true);
  setAcceptRichText(false);
  setTextInteractionFlags(Qt::TextSelectableByMouse);
  setFocusPolicy(Qt::ClickFocus);
  setFrameShape(QFrame::NoFrame);
  setWordWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
  setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  document()->setDocumentMargin(0);
  viewport()->setAutoFillBackground(false);
  connect(verticalScrollBar(), &QScrollBar::rangeChanged, this, &PlainTextView::ChooseFocus);
  QSizePolicy policy(QSizePolicy::Expanding, QSizePolicy::Minimum);
  policy.setHeightForWidth(true);
  setSizePolicy(policy);
}

/// The keyboard can scroll what is too long, and has no business in the rest.
void PlainTextView::ChooseFocus() {
  const bool scrolls =
      verticalScrollBarPolicy() != Qt::ScrollBarAlwaysOff && verticalScrollBar()->maximum() > 0;
  const bool selects = textInteractionFlags() != Qt::NoTextInteraction;
  const auto byMouse = selects ? Qt::ClickFocus : Qt::NoFocus;
  setFocusPolicy(scrolls ? Qt::FocusPolicy(byMouse | Qt::TabFocus) : byMouse);
}

void PlainTextView::BecomeSurface() {
  setTextInteractionFlags(Qt::NoTextInteraction);
  ChooseFocus();
}

void PlainTextView::SetText(const QString& text) {
  if (text == toPlainText()) return;
  setPlainText(text);
  KeepMargins();
  updateGeometry();
}

void PlainTextView::SetMargins(int sideways, int upright) {
  sideways_ = sideways;
  upright_ = upright;
  KeepMargins();
}

/// A new text forgets them.
void PlainTextView::KeepMargins() {
  QTextFrameFormat format = document()->rootFrame()->frameFormat();
  format.setLeftMargin(sideways_);
  format.setRightMargin(sideways_);
  format.setTopMargin(upright_);
  format.setBottomMargin(upright_);
  document()->rootFrame()->setFrameFormat(format);
}

void PlainTextView::SetMostLines(int lines) {
  setMaximumHeight(lines * fontMetrics().lineSpacing());
  setVerticalScrollBarPolicy(Qt::ScrollBarAsNeeded);
}

int PlainTextView::heightForWidth(int width) const {
  const std::unique_ptr<QTextDocument> copy(document()->clone());
  copy->setTextWidth(width);
  return static_cast<int>(std::ceil(copy->size().height()));
}

QSize PlainTextView::sizeHint() const { return {usualWidth, heightForWidth(usualWidth)}; }

QSize PlainTextView::minimumSizeHint() const { return {80, fontMetrics().lineSpacing()}; }

}  // namespace ui
