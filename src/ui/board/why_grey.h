// SPDX-License-Identifier: GPL-3.0-or-later
// What a button or menu entry of the board waits for while it is grey, in one sentence.
#pragma once

#include "board/game.h"

namespace ui {

inline constexpr const char* whyNoHistory = "Works once a move has been made.";
inline constexpr const char* whyNoWay = "Works once two moves have been made.";

/// Of a button of the action bar, as it is meant now; for one that isn't grey it means nothing.
const char* WhyGrey(const board::Game& game, int button);

}  // namespace ui
