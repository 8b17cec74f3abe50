// SPDX-License-Identifier: GPL-3.0-or-later
// The skinned message dialog. With one button that button stands in the middle of the span that the
// two together cover.
#pragma once

#include "skin/layouts/layout.h"

namespace ui::layouts {

inline constexpr Control msgFormControls[] = {
    {"MessageIcon", Surface::Picture, {27, 36, 48, 48}},
    {"FormCaption", Surface::Label, {91, 34, 344, 20}},
    {"Message", Surface::Panel, {91, 62, 344, 102}},
    {"CancelButton", Surface::Button, {127, 182, 96, 28}},
    {"OkButton", Surface::Button, {239, 182, 96, 28}},
};

inline constexpr Layout msgForm{"MsgForm", {462, 232}, msgFormControls};

}  // namespace ui::layouts
