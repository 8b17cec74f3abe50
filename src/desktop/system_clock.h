// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/clock.h"

namespace desktop {

/// The machine's own time of day, in its own zone.
class SystemClock : public platform::Clock {
 public:
  platform::LocalTime Now() override;
  std::string LongDate(const platform::Date& day) override;
  std::int64_t Seconds() override;
};

}  // namespace desktop
