// SPDX-License-Identifier: GPL-3.0-or-later
// What the computer opponent wants, as a text out of the settings or a file. What is taken is
// written as it is read; what isn't changes nothing.
#include "ai/heuristics.h"
#include "fuzz/fuzz.h"

void TryInput(std::string_view input) {
  ai::LoadDefaultHeuristics();
  const auto before = ai::Heuristics;
  const bool taken = ai::SetHeuristicsFromText(input);
  const auto after = ai::Heuristics;
  Require(taken || after == before);
  Require(ai::SetHeuristicsFromText(ai::HeuristicsText()) && ai::Heuristics == after);
}
