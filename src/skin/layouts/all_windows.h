// SPDX-License-Identifier: GPL-3.0-or-later
// Every shaped window. Those without controls here are plain surfaces so far.
#pragma once

#include "skin/layouts/about_box_layout.h"
#include "skin/layouts/board_layout.h"
#include "skin/layouts/choose_opponent_layout.h"
#include "skin/layouts/credits_layout.h"
#include "skin/layouts/dialog_layout.h"
#include "skin/layouts/exchange_pawn_layout.h"
#include "skin/layouts/game_interface_layout.h"
#include "skin/layouts/held_mail_form_layout.h"
#include "skin/layouts/msg_form_layout.h"
#include "skin/layouts/new_game_info_layout.h"
#include "skin/layouts/notify_form_layout.h"
#include "skin/layouts/options_page_layout.h"
#include "skin/layouts/select_printer_layout.h"
#include "skin/layouts/select_sound_layout.h"
#include "skin/layouts/setup_warning_layout.h"
#include "skin/layouts/status_window_layout.h"

namespace ui::layouts {

inline constexpr Layout allWindows[] = {
    statusWindow, notifyForm,    selectSound,  chooseOpponent, exchangePawn,  credits,
    newGameInfo,  optionsPage,   board,        setupWarning,   selectPrinter, aboutBox,
    msgForm,      gameInterface, heldMailForm, heldMailNote,   dialog,
};

}  // namespace ui::layouts
