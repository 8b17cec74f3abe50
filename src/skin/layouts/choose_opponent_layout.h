// SPDX-License-Identifier: GPL-3.0-or-later
// The skinned choice of one opponent among several: a text of two lines, and a list that opens.
#pragma once

#include "skin/layouts/layout.h"

namespace ui::layouts {

inline constexpr Control chooseOpponentControls[] = {
    {"Instructions_L", Surface::Label, {22, 24, 285, 36}},
    {"Label1", Surface::Label, {22, 66, 181, 18}},
    {"OppList", Surface::Field, {22, 88, 181, 28}},
    {"OkButton", Surface::Button, {211, 88, 96, 28}},
};

inline constexpr Layout chooseOpponent{"ChooseOpponent", {329, 141}, chooseOpponentControls};

}  // namespace ui::layouts
