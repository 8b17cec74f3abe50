// SPDX-License-Identifier: GPL-3.0-or-later
#include "widgets/cut_text.h"

#include <QAbstractItemView>
#include <QHelpEvent>
#include <QLabel>
#include <QRegularExpression>
#include <QTextDocument>

#include "platform/setting_variables.h"
#include "widgets/placed_tip.h"
#include "widgets/typed_text.h"

namespace ui {

using namespace Qt::StringLiterals;

namespace {

constexpr int longestTip = 1000;

}  // namespace

void ShowLine(QLabel& label, const QString& line, int width) {
  const QString fitting = label.fontMetrics().elidedText(line, Qt::ElideRight, width);
  label.setText(fitting);
  if (fitting != line) label.setToolTip(WholeAsTip(line));
}

QString WholeAsTip(const QString& text) {
  return Qt::convertFromPlainText(Breakable(Cut(text, longestTip)));
}

QString Cut(const QString& text, int longest) {
  const QString beginning = FirstCharacters(text, longest);
  return beginning == text ? text : beginning + u'…';
}

QString Breakable(QString text) {
  // Forty letters with their marks; behind them a space without width.
  static const QRegularExpression longWordPart(u"((?:\\S\\p{M}*+){40})"_s);
  return text.replace(longWordPart, u"\\1\u200B"_s);
}

void ShowCellTip(QAbstractItemView& view, const QRect& cell, const QString& text, QPoint place) {
  QWidget& rows = *view.viewport();
  rows.setMouseTracking(true);  // to learn that the cell isn't pointed at any more
  ShowTip(
      rows, WholeAsTip(text), [&](QSize) { return rows.mapToGlobal(place); }, cell);
}

bool ShowCutCell(QAbstractItemView& view, const QHelpEvent& help) {
  const QModelIndex index = view.indexAt(help.pos());
  if (!platform::Settings().ShowToolTips || !index.isValid()) return false;
  const QString text = index.data().toString();
  const QRect cell = view.visualRect(index);
  if (text.isEmpty() || view.sizeHintForIndex(index).width() <= cell.width()) return false;
  ShowCellTip(view, cell, text, cell.topLeft());
  return true;
}

}  // namespace ui
