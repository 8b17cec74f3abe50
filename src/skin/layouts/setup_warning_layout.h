// SPDX-License-Identifier: GPL-3.0-or-later
// The skinned dialog of the warnings about a position: what it is about, the warnings below it, and
// the two ways to go on.
#pragma once

#include "skin/layouts/layout.h"

namespace ui::layouts {

inline constexpr Control setupWarningControls[] = {
    {"MessageIcon", Surface::Picture, {27, 24, 48, 48}},
    {"FormCaption", Surface::Label, {91, 28, 336, 20}},
    {"Instructions_L", Surface::Label, {91, 50, 336, 18}},
    {"WarningMessage", Surface::Panel, {33, 86, 388, 108}},
    {"CancelButton", Surface::Button, {123, 212, 96, 28}},
    {"OkButton", Surface::Button, {235, 212, 96, 28}},
};

inline constexpr Layout setupWarning{"SetupWarningForm", {454, 259}, setupWarningControls};

}  // namespace ui::layouts
