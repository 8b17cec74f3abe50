// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/study/lines_view.h"

#include <QKeyEvent>
#include <QScrollBar>

#include "skin/skin_colours.h"
#include "widgets/shown_text.h"

namespace ui {

using namespace Qt::StringLiterals;
using study::VariationTree;

namespace {

QString Block(const QString& words, int indent) {
  return u"<p style='margin:3px 0 3px %1px'>%2</p>"_s.arg(indent).arg(words);
}

}  // namespace

QString NumberBefore(const VariationTree& tree, VariationTree::Node node) {
  const pgn::Turn& turn = tree.TurnAt(tree.ParentOf(node));
  return QString::number(turn.number) + (turn.side == rules::White ? u"."_s : u"..."_s);
}

LinesView::LinesView(const VariationTree& tree, QWidget* parent)
    : QTextBrowser(parent), tree_(tree) {
  setObjectName(u"TriedLines"_s);
  setAccessibleName(u"The game, and what was tried"_s);
  // With its keys one goes through the moves; Tab would else stop at each of them.
  setTextInteractionFlags(Qt::LinksAccessibleByMouse);
  setFocusPolicy(Qt::StrongFocus);
  setOpenLinks(false);
  connect(this, &QTextBrowser::anchorClicked, this,
          [this](const QUrl& link) { Q_EMIT Chosen(link.fragment().toULongLong()); });
}

QString LinesView::MoveHtml(Node node, bool numbered) const {
  const bool white = tree_.TurnAt(tree_.ParentOf(node)).side == rules::White;
  const QString number = numbered || white ? NumberBefore(tree_, node) + u"\u00a0"_s : QString();
  const QColor text = palette().color(QPalette::Text);
  // What was played is there to be found by; what was tried is what one looks for.
  const QColor quiet = Between(text, Between(text, palette().color(QPalette::Base)));
  const bool here = node == tree_.Cursor();
  const QString style = here ? u"color:%1; background-color:%2"_s.arg(
                                   palette().color(QPalette::HighlightedText).name(),
                                   palette().color(QPalette::Highlight).name())
                             : u"color:%1"_s.arg((tree_.WasPlayed(node) ? quiet : text).name());
  return u"<a href='#%1' style='text-decoration:none; %2'>%3%4</a> "_s.arg(node).arg(
      style, number, Shown(tree_.Written(node)).toHtmlEscaped());
}

/// A tried line with what was tried instead of its moves in parentheses.
QString LinesView::LineHtml(Node node, bool numbered) const {
  QString html = MoveHtml(node, numbered);
  for (auto next = tree_.TriedAfter(node); !next.empty(); next = tree_.TriedAfter(next.front())) {
    html += MoveHtml(next.front(), next.size() > 1 && html.endsWith(u")"_s));
    for (auto other = next.begin() + 1; other != next.end(); ++other) {
      html += u"("_s + LineHtml(*other, true).trimmed() + u") "_s;
    }
  }
  return html;
}

/// What was tried from a position of the game, a block each.
QString LinesView::BlocksHtml(Node node) const {
  QString html;
  for (const Node tried : tree_.TriedAfter(node)) {
    const bool then = tree_.WasThoughtThen(tried);
    html += Block((then ? u"<i>thought then:</i> "_s : QString()) + LineHtml(tried, true),
                  then ? 20 : 0);
  }
  return html;
}

QString LinesView::TreeHtml() const {
  QString html;
  QString played;  // since the last block
  Node node = VariationTree::start;
  while (node != tree_.Present()) {
    const Node next = tree_.ChildrenOf(node).front();
    played += MoveHtml(next, played.isEmpty());
    if (const QString blocks = BlocksHtml(node); !blocks.isEmpty()) {
      html += Block(played, 0) + blocks;
      played.clear();
    }
    node = next;
  }
  if (!played.isEmpty()) html += Block(played, 0);
  const QString ahead = BlocksHtml(node);
  return html + (ahead.isEmpty() ? QString() : u"<hr>"_s + ahead);
}

void LinesView::Refresh() {
  const int scrolled = verticalScrollBar()->value();
  setHtml(TreeHtml());
  verticalScrollBar()->setValue(scrolled);
  // The move in view, and some of what is below it.
  const QString anchor = u"#%1"_s.arg(tree_.Cursor());
  for (QTextBlock block = document()->begin(); block.isValid(); block = block.next()) {
    for (auto part = block.begin(); !part.atEnd(); ++part) {
      if (part.fragment().charFormat().anchorHref() != anchor) continue;
      QTextCursor at(document());
      at.setPosition(part.fragment().position());
      setTextCursor(at);
      return ensureCursorVisible();
    }
  }
}

/// All keys are the window's, which goes through the moves with them.
void LinesView::keyPressEvent(QKeyEvent* event) { event->ignore(); }

void LinesView::changeEvent(QEvent* event) {
  QTextBrowser::changeEvent(event);
  if (event->type() == QEvent::PaletteChange) Refresh();
}

}  // namespace ui
