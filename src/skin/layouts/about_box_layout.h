// SPDX-License-Identifier: GPL-3.0-or-later
// The skinned about window: what the program is, on a panel what it is for, and where to turn to.
#pragma once

#include "skin/layouts/layout.h"

namespace ui::layouts {

inline constexpr Control aboutBoxControls[] = {
    {"ProgramIcon", Surface::Picture, {28, 32, 64, 64}},
    {"lblTitle", Surface::Label, {108, 26, 325, 26}},
    {"lblVersion", Surface::Label, {108, 52, 56, 18}},
    {"VerNo", Surface::Label, {168, 52, 265, 18}},
    {"CopywriteLabel", Surface::Label, {108, 70, 325, 18}},
    {"Rights_L", Surface::Label, {108, 88, 325, 18}},
    {"lblDescription", Surface::Panel, {30, 122, 401, 42}},
    {"Info1", Surface::Label, {28, 178, 180, 18}},
    {"Email", Surface::Label, {216, 178, 217, 18}},
    {"Info2", Surface::Label, {28, 200, 180, 18}},
    {"Web1", Surface::Label, {216, 200, 217, 18}},
    {"Web2", Surface::Label, {216, 220, 217, 18}},
    {"CreditsButton", Surface::Button, {127, 248, 96, 28}},
    {"OkButton", Surface::Button, {239, 248, 96, 28}},
};

inline constexpr Layout aboutBox{"AboutBox", {461, 298}, aboutBoxControls};

}  // namespace ui::layouts
