// SPDX-License-Identifier: GPL-3.0-or-later
// The seam to the time of day.
#pragma once

#include <cstdint>
#include <string>

#include "platform/conversions.h"

namespace platform {

struct LocalTime {
  int year = 0;
  int month = 0;
  int day = 0;
  int hour = 0;
  int minute = 0;
};

class Clock {
 public:
  virtual ~Clock() = default;
  virtual LocalTime Now() = 0;

  /// A day in words, as the user's country writes it.
  virtual std::string LongDate(const Date& day) = 0;

  /// Of the same moment everywhere: seconds since the beginning of 1970, UTC.
  virtual std::int64_t Seconds() = 0;
};

}  // namespace platform
