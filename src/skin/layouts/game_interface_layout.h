// SPDX-License-Identifier: GPL-3.0-or-later
// The skinned game list: the four buttons of the toolbar, the name, the window's own buttons and
// the menus above, the grid of games below in the whole width.
#pragma once

#include "skin/layouts/layout.h"

namespace ui::layouts {

inline constexpr Control gameInterfaceControls[] = {
    {"Toolbar1_1", Surface::Tool, {29, 30, 72, 48}},
    {"Toolbar1_2", Surface::Tool, {109, 30, 72, 48}},
    {"Toolbar1_3", Surface::Tool, {189, 30, 72, 48}},
    {"Toolbar1_4", Surface::Tool, {269, 30, 72, 48}},

    {"TVLogo", Surface::Picture, {517, 20, 32, 32}},
    {"Wordmark", Surface::Ornament, {557, 20, 104, 32}, "Tarvolenix"},
    {"HelpButton", Surface::Button, {753, 22, 28, 28}},
    {"MinimiseButton", Surface::Button, {789, 22, 28, 28}},
    {"HideButton", Surface::Button, {825, 22, 28, 28}},

    {"FileMenuButton", Surface::Button, {517, 58, 78, 28}},
    {"SortMenuButton", Surface::Button, {603, 58, 78, 28}},
    {"GameMenuButton", Surface::Button, {689, 58, 78, 28}},
    {"HelpMenuButton", Surface::Button, {775, 58, 78, 28}},

    // Seen only where there is something to tell.
    {"MailLine", Surface::Occasion, {29, 80, 484, 15}},

    // What to do where there is no game yet may stand in the place of the grid.
    {"GameList", Surface::Grid, {27, 98, 825, 218}},
};

inline constexpr Layout gameInterface{"GameInterface", {879, 341}, gameInterfaceControls};

}  // namespace ui::layouts
