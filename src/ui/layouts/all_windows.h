// SPDX-License-Identifier: GPL-3.0-or-later
// Every shaped window. Those without controls here are plain surfaces so far.
#pragma once

#include "ui/layouts/about_box.h"
#include "ui/layouts/board.h"
#include "ui/layouts/choose_opponent.h"
#include "ui/layouts/credits.h"
#include "ui/layouts/exchange_pawn.h"
#include "ui/layouts/game_interface.h"
#include "ui/layouts/held_mail_form.h"
#include "ui/layouts/msg_form.h"
#include "ui/layouts/new_game_info.h"
#include "ui/layouts/notify_form.h"
#include "ui/layouts/select_sound.h"
#include "ui/layouts/setup_warning.h"
#include "ui/layouts/status_window.h"

namespace ui::layouts {

inline constexpr Layout allWindows[] = {
    statusWindow,
    notifyForm,
    selectSound,
    chooseOpponent,
    exchangePawn,
    credits,
    newGameInfo,
    {"OptionsPage", {528, 359}},
    board,
    setupWarning,
    {"SelectPrinter", {351, 191}},
    aboutBox,
    msgForm,
    gameInterface,
    heldMailForm,
    heldMailNote,
};

}  // namespace ui::layouts
