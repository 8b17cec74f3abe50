// SPDX-License-Identifier: GPL-3.0-or-later
// What the players do. Anna plays White and wins in four moves; what each does beside moving goes
// another way through the program every time.
#pragma once

#include <vector>

#include "demo/steps.h"

namespace demo {

std::vector<Step> AnnasPart(const Steps& steps);
std::vector<Step> BobsPart(const Steps& steps);

/// Somebody looks at a game that is over, in the plain look.
std::vector<Step> PlainPart(const Steps& steps);

}  // namespace demo
