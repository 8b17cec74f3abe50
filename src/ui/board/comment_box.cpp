// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/board/comment_box.h"

#include <QFocusEvent>
#include <QInputMethodEvent>
#include <QKeyEvent>
#include <QMimeData>

#include <algorithm>
#include <utility>

#include "widgets/placed_tip.h"
#include "widgets/typed_text.h"

namespace ui {

using namespace Qt::StringLiterals;

namespace {

constexpr int visibleLines = 3;

bool IsText(const QString& typed) {
  return !typed.isEmpty() && typed.at(0).category() != QChar::Other_Control;
}

}  // namespace

CommentBox::CommentBox(QWidget* parent) : QPlainTextEdit(parent) {
  setObjectName(u"PlayerComment"_s);
  setAccessibleName(u"Type a comment here"_s);
  setPlaceholderText(u"Type a comment here"_s);
  setTabChangesFocus(true);
  setWordWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
  setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
  connect(this, &QPlainTextEdit::textChanged, this, &CommentBox::WarnOfLink);
}

/// Filters replace links by longer ones of their own, and what is too long is cut.
void CommentBox::WarnOfLink() {
  const bool hasLink = toPlainText().contains(u"://"_s);
  if (std::exchange(hasLink_, hasLink) || !hasLink) return;
  TellBeside(*this, u"Mail filters may change links, so a link may not arrive as you type it."_s);
}

QSize CommentBox::sizeHint() const {
  const int edges = 2 * (frameWidth() + static_cast<int>(document()->documentMargin()));
  return {200, visibleLines * fontMetrics().lineSpacing() + edges};
}

QSize CommentBox::minimumSizeHint() const { return {80, sizeHint().height()}; }

/// As much of the text as may come in at the cursor.
QString CommentBox::Fitting(const QString& text) const {
  const int kept = CountCharacters(toPlainText()) - CountCharacters(textCursor().selectedText());
  return FirstCharacters(FitForFields(text), std::max(0, longestComment - kept));
}

/// With nothing to undo here the key is the window's.
bool CommentBox::event(QEvent* event) {
  if (event->type() == QEvent::ShortcutOverride && !document()->isUndoAvailable() &&
      static_cast<QKeyEvent*>(event)->matches(QKeySequence::Undo)) {
    event->ignore();
    return true;
  }
  return QPlainTextEdit::event(event);
}

void CommentBox::keyPressEvent(QKeyEvent* event) {
  const bool breaksLine = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
  const QString typed = event->text();
  if (breaksLine || (IsText(typed) && Fitting(typed) != typed)) {
    event->accept();
    if (!breaksLine) Insert(typed);
    return;
  }
  QPlainTextEdit::keyPressEvent(event);
}

void CommentBox::inputMethodEvent(QInputMethodEvent* event) {
  QInputMethodEvent fitting(event->preeditString(), event->attributes());
  fitting.setCommitString(Fitting(event->commitString()), event->replacementStart(),
                          event->replacementLength());
  QPlainTextEdit::inputMethodEvent(&fitting);
  if (event->commitString().contains(u'|')) TellOfReplacedBar(*this);
  event->setAccepted(fitting.isAccepted());
}

void CommentBox::insertFromMimeData(const QMimeData* source) { Insert(source->text()); }

void CommentBox::Insert(const QString& text) {
  const QString fitting = Fitting(text);
  textCursor().insertText(fitting);
  if (text.contains(u'|') && !fitting.isEmpty()) TellOfReplacedBar(*this);
}

void CommentBox::focusOutEvent(QFocusEvent* event) {
  QPlainTextEdit::focusOutEvent(event);
  if (event->reason() != Qt::PopupFocusReason && event->reason() != Qt::ActiveWindowFocusReason) {
    Q_EMIT Left();
  }
}

}  // namespace ui
