// SPDX-License-Identifier: GPL-3.0-or-later
// The skinned new game dialog: the title of the game and the opponent, with the address book behind
// the button beside his name.
#pragma once

#include "skin/layouts/layout.h"

namespace ui::layouts {

inline constexpr Control newGameInfoControls[] = {
    {"Label3", Surface::Label, {22, 26, 307, 20}},
    {"Game_name_L", Surface::Label, {22, 58, 120, 28}},
    {"Game_name", Surface::Field, {146, 58, 182, 28}},
    {"Game_opponents_name_L", Surface::Label, {22, 94, 120, 28}},
    {"Game_opponents_name", Surface::Field, {146, 94, 146, 28}},
    {"Resolve", Surface::Button, {300, 94, 28, 28}},
    {"Game_opponents_email_L", Surface::Label, {22, 130, 120, 28}},
    {"Game_opponents_email", Surface::Field, {146, 130, 182, 28}},
    {"CancelButton", Surface::Button, {128, 180, 96, 28}},
    {"OkButton", Surface::Button, {232, 180, 96, 28}},
};

inline constexpr Layout newGameInfo{"NewGameInfo", {351, 232}, newGameInfoControls};

}  // namespace ui::layouts
