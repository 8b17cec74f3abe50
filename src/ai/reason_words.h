// SPDX-License-Identifier: GPL-3.0-or-later
// Reasons as sentences.
#pragma once

#include <string>

#include "ai/reasons.h"

namespace ai {

/// Such as "White's knight on e5 takes Black's pawn on d7."
std::string SentenceFor(const Reason& reason);

}  // namespace ai
