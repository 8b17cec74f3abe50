// SPDX-License-Identifier: GPL-3.0-or-later
// The skinned notification of a new move: who has moved in which game, his move and the board
// behind it, what he says, and what to do about it.
#pragma once

#include "skin/layouts/layout.h"

namespace ui::layouts {

inline constexpr Control notifyFormControls[] = {
    {"MessageIcon", Surface::Picture, {26, 23, 48, 48}},
    {"Label3", Surface::Label, {90, 20, 346, 18}},
    {"OpName", Surface::Label, {90, 38, 346, 18}},
    {"GameName", Surface::Label, {90, 56, 346, 18}},
    {"LastMove", Surface::Label, {90, 74, 346, 18}},
    {"MoveComment", Surface::Panel, {30, 100, 400, 42}},
    {"LaterButton", Surface::Button, {26, 154, 96, 28}},
    {"GameListButton", Surface::Button, {130, 154, 96, 28}},
    {"NextButton", Surface::Button, {234, 154, 96, 28}},
    {"PlayButton", Surface::Button, {338, 154, 96, 28}},
    {"Position", Surface::Picture, {448, 22, 160, 160}},
};

inline constexpr Layout notifyForm{"NotifyForm", {634, 206}, notifyFormControls};

}  // namespace ui::layouts
