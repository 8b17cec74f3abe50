// SPDX-License-Identifier: GPL-3.0-or-later
// The content of a game file, its good lines apart from the damaged ones.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "store/repair.h"

namespace store {

struct SortedContent {
  std::string goodLines;
  int games = 0;
  std::vector<DamagedLine> damaged;
};

SortedContent SortOut(std::string_view content);

}  // namespace store
