// SPDX-License-Identifier: GPL-3.0-or-later
// A moment as the user's country writes it, short and to the minute.
#pragma once

#include <QDateTime>
#include <QLocale>

namespace ui {

inline QString ShownMoment(const QDateTime& moment) {
  const QLocale locale;
  QString time = locale.timeFormat(QLocale::ShortFormat);
  time.remove(QLatin1StringView(":ss"));
  return locale.toString(moment.date(), QLocale::ShortFormat) + u' ' +
         locale.toString(moment.time(), time);
}

}  // namespace ui
