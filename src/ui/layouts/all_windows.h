// SPDX-License-Identifier: GPL-3.0-or-later
// Every shaped window. Those without controls here are plain surfaces so far.
#pragma once

#include "ui/layouts/board.h"
#include "ui/layouts/exchange_pawn.h"
#include "ui/layouts/msg_form.h"
#include "ui/layouts/status_window.h"

namespace ui::layouts {

inline constexpr Layout allWindows[] = {
    statusWindow,
    {"NotifyForm", {460, 185}},
    {"SelectSound", {309, 233}},
    {"ChooseOpponent", {329, 141}},
    exchangePawn,
    {"Credits", {499, 284}},
    {"NewGameInfo", {351, 232}},
    {"OptionsPage", {528, 359}},
    board,
    {"SetupWarningForm", {454, 259}},
    {"SelectPrinter", {351, 191}},
    {"AboutBox", {461, 298}},
    msgForm,
    {"GameInterface", {719, 341}},
};

}  // namespace ui::layouts
