// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/board/turn_tag.h"

#include <QDateTime>
#include <QLocale>

#include <algorithm>

#include "board/controls.h"
#include "widgets/shown_moment.h"
#include "widgets/shown_text.h"
#include "widgets/tool_tips.h"

namespace ui {

using namespace Qt::StringLiterals;

namespace {

QStringList LinesOf(const board::Game& game) {
  QStringList lines;
  for (const std::string& line : {board::TurnInWords(game), game.Title}) {
    if (!line.empty()) lines << ShownLine(line);
  }
  return lines;
}

QString MailLine(const board::Game& game) {
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
  QStringList lines = LinesOf(game);
  if (game.LastMail != 0) lines << MailLine(game);
  SetText(lines.join(u'\n'));
  SetTip(*this, MailTip(game));
}

void TurnTag::ShowAt(const board::Game& game, QRect place, int highest) {
  const auto top = [&] { return place.bottom() + 1 - heightForWidth(place.width()); };
  Show(game);
  if (top() < highest) SetText(LinesOf(game).join(u'\n'));
  place.setTop(std::min(place.top(), std::max(highest, top())));
  setGeometry(place);
}

}  // namespace ui
