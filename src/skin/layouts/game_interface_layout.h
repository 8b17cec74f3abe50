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

    {"TVLogo", Surface::Picture, {357, 20, 32, 32}},
    {"Wordmark", Surface::Ornament, {397, 20, 104, 32}, "Tarvolenix"},
    {"HelpButton", Surface::Button, {593, 22, 28, 28}},
    {"MinimiseButton", Surface::Button, {629, 22, 28, 28}},
    {"HideButton", Surface::Button, {665, 22, 28, 28}},

    {"FileMenuButton", Surface::Button, {357, 58, 78, 28}},
    {"SortMenuButton", Surface::Button, {443, 58, 78, 28}},
    {"GameMenuButton", Surface::Button, {529, 58, 78, 28}},
    {"HelpMenuButton", Surface::Button, {615, 58, 78, 28}},

    // Seen only where there is something to tell.
    {"MailLine", Surface::Occasion, {29, 80, 324, 15}},

    // What to do where there is no game yet may stand in the place of the grid.
    {"GameList", Surface::Grid, {27, 98, 665, 218}},
};

inline constexpr Layout gameInterface{"GameInterface", {719, 341}, gameInterfaceControls};

}  // namespace ui::layouts
