// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/board/turn_tag.h"

#include <QDateTime>
#include <QLocale>

#include <algorithm>

#include "board/controls.h"
#include "widgets/cut_text.h"
#include "widgets/shown_moment.h"
#include "widgets/shown_text.h"
#include "widgets/tool_tips.h"

namespace ui {

using namespace Qt::StringLiterals;

namespace {

/// Those that say something.
QString Joined(QStringList lines) {
  lines.removeAll(QString());
  return lines.join(u'\n');
}

QString MailLine(const board::Game& game) {
  if (game.LastMail == 0) return {};
  return u"Mail: "_s + ShownMoment(QDateTime::fromSecsSinceEpoch(game.LastMail));
}

QString MailTip(const board::Game& game) {
  if (game.LastMail == 0) return {};
  const QDateTime came = QDateTime::fromSecsSinceEpoch(game.LastMail);
  return u"The last mail came on %1, %2"_s.arg(
      QLocale().toString(came.date(), QLocale::LongFormat),
      QLocale().toString(came.time(), QLocale::ShortFormat));
}

}  // namespace

TurnTag::TurnTag(QWidget* parent) : PlainTextView(parent) {
  setObjectName(u"TurnTag"_s);
  setAccessibleName(u"Whose turn it is"_s);
}

void TurnTag::Show(const board::Game& game) {
  SetText(Joined({ShownLine(board::TurnInWords(game)), ShownLine(game.Title), MailLine(game)}));
  SetTip(*this, WholeAsTip(Joined({ShownLine(game.Title), MailTip(game)})));
}

void TurnTag::ShowAt(const board::Game& game, QRect place, int highest) {
  const auto top = [&] { return place.bottom() + 1 - heightForWidth(place.width()); };
  const auto cut = [&](const QString& line) {
    return fontMetrics().elidedText(line, Qt::ElideRight, place.width());
  };
  const QString turn = ShownLine(board::TurnInWords(game)), title = ShownLine(game.Title);
  const QString mail = MailLine(game);
  Show(game);
  const QStringList shorter[] = {
      {turn, cut(title), mail}, {cut(turn), cut(title), mail}, {cut(turn), mail}};
  for (const QStringList& lines : shorter) {
    if (top() < highest) SetText(Joined(lines));
  }
  place.setTop(std::min(place.top(), std::max(highest, top())));
  setGeometry(place);
}

}  // namespace ui
