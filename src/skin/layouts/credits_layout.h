// SPDX-License-Identifier: GPL-3.0-or-later
// The skinned credits: a panel over which the names rise.
#pragma once

#include "skin/layouts/layout.h"

namespace ui::layouts {

inline constexpr Control creditsControls[] = {
    {"Caption", Surface::Ornament, {149, 22, 201, 30}, "Credits"},
    {"CreditsText", Surface::Panel, {32, 62, 435, 158}},
    {"OkButton", Surface::Button, {202, 236, 96, 28}},
};

inline constexpr Layout credits{"Credits", {499, 284}, creditsControls};

}  // namespace ui::layouts
