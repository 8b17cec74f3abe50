// SPDX-License-Identifier: GPL-3.0-or-later
// A fuzz target is what it does with one input, and what it requires of the outcome beyond not
// crashing.
#pragma once

#include <cstdlib>
#include <string>
#include <string_view>

void TryInput(std::string_view input);

inline void Require(bool holds) {
  if (!holds) std::abort();
}
