// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/system_clock.h"

#include <QDate>
#include <QLocale>

#include <ctime>

namespace desktop {

platform::LocalTime SystemClock::Now() {
  const std::time_t now = std::time(nullptr);
  std::tm local{};
  ::localtime_r(&now, &local);
  return {local.tm_year + 1900, local.tm_mon + 1, local.tm_mday, local.tm_hour, local.tm_min};
}

std::string SystemClock::LongDate(const platform::Date& day) {
  const QDate date(day.year, day.month, day.day);
  return QLocale().toString(date, QLocale::LongFormat).toStdString();
}

std::int64_t SystemClock::Seconds() { return std::time(nullptr); }

}  // namespace desktop
