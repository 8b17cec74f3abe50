// SPDX-License-Identifier: GPL-3.0-or-later
// The skinned options: a row of tabs, and below it the page of one of them, which covers the
// window's picture.
#pragma once

#include "skin/layouts/layout.h"

namespace ui::layouts {

inline constexpr Rect optionsPanel{24, 60, 480, 248};

inline constexpr Control optionsPageControls[] = {
    {"Tabset1", Surface::Button, {24, 25, 72, 28}},
    {"Tabset2", Surface::Button, {100, 25, 96, 28}},
    {"Tabset3", Surface::Button, {200, 25, 80, 28}},
    {"Tabset4", Surface::Button, {284, 25, 84, 28}},
    {"Tabset5", Surface::Button, {372, 25, 72, 28}},
    {"Tabset6", Surface::Button, {448, 25, 56, 28}},

    {"Page_1", Surface::Grid, optionsPanel},
    {"Page_2", Surface::Occasion, optionsPanel},
    {"Page_3", Surface::Occasion, optionsPanel},
    {"Page_4", Surface::Occasion, optionsPanel},
    {"Page_5", Surface::Occasion, optionsPanel},
    {"Page_6", Surface::Occasion, optionsPanel},

    {"HelpButton", Surface::Button, {24, 316, 28, 28}},
    {"OkButton", Surface::Button, {200, 316, 96, 28}},
    {"CancelButton", Surface::Button, {304, 316, 96, 28}},
    {"ApplyButton", Surface::Button, {408, 316, 96, 28}},

    // General.
    {"Label1", Surface::Label, {36, 70, 290, 26}},
    {"opSysTrayTimerCombo", Surface::Occasion, {408, 70, 84, 26}},
    {"vsCSearchDepth_L", Surface::Label, {36, 102, 150, 26}},
    {"vsCSearchDepth", Surface::Occasion, {292, 102, 200, 26}},
    {"opDisplaySplash", Surface::Occasion, {36, 132, 20, 21}},
    {"opDisplaySplash_L", Surface::Label, {60, 132, 204, 21}},
    {"opVerbose", Surface::Occasion, {36, 153, 20, 21}},
    {"opVerbose_L", Surface::Label, {60, 153, 204, 21}},
    {"opShowToolTips", Surface::Occasion, {36, 174, 20, 21}},
    {"opShowToolTips_L", Surface::Label, {60, 174, 204, 21}},
    {"opDefaultView", Surface::Occasion, {36, 195, 20, 21}},
    {"opDefaultView_L", Surface::Label, {60, 195, 204, 21}},
    {"opShowMoves", Surface::Occasion, {36, 216, 20, 21}},
    {"opShowMoves_L", Surface::Label, {60, 216, 204, 21}},
    {"opSimpleUI", Surface::Occasion, {36, 237, 20, 21}},
    {"opSimpleUI_L", Surface::Label, {60, 237, 204, 21}},
    {"opSystrayStartup", Surface::Occasion, {36, 258, 20, 21}},
    {"opSystrayStartup_L", Surface::Label, {60, 258, 270, 21}},
    {"opSessionStart", Surface::Occasion, {36, 279, 20, 21}},
    {"opSessionStart_L", Surface::Label, {60, 279, 270, 21}},
    {"Label2", Surface::Label, {264, 128, 232, 20}},
    {"opIconList", Surface::Occasion, {264, 149, 232, 108}},

    // Notification.
    {"opNotifySound", Surface::Occasion, {36, 68, 20, 22}},
    {"opNotifySound_L", Surface::Label, {60, 68, 420, 22}},
    {"opBrowseSound", Surface::Button, {60, 92, 96, 28}},
    {"opNotificationSound", Surface::Label, {168, 92, 324, 28}},
    {"opNotifyDialog", Surface::Occasion, {36, 124, 20, 22}},
    {"opNotifyDialog_L", Surface::Label, {60, 124, 420, 22}},
    {"Label4", Surface::Label, {60, 148, 200, 26}},
    {"opTimeoutCombo", Surface::Occasion, {264, 148, 140, 26}},
    {"opNotifyDesktop", Surface::Occasion, {36, 178, 20, 22}},
    {"opNotifyDesktop_L", Surface::Label, {60, 178, 420, 22}},
    {"opComputerGames", Surface::Occasion, {36, 206, 20, 22}},
    {"opComputerGames_L", Surface::Label, {60, 206, 420, 22}},
    {"opGamePreview", Surface::Occasion, {36, 230, 20, 22}},
    {"opGamePreview_L", Surface::Label, {60, 230, 420, 22}},
    {"opAskSurrender", Surface::Occasion, {36, 254, 20, 22}},
    {"opAskSurrender_L", Surface::Label, {60, 254, 420, 22}},
    {"opWhyInMailGames", Surface::Occasion, {36, 278, 20, 22}},
    {"opWhyInMailGames_L", Surface::Label, {60, 278, 340, 22}},

    // Chess set.
    {"Label8", Surface::Label, {36, 68, 190, 20}},
    {"opChessSet", Surface::Occasion, {36, 90, 200, 62}},
    {"Label9", Surface::Label, {36, 158, 200, 20}},
    {"opChessBoard", Surface::Occasion, {36, 180, 200, 62}},
    {"opCoordinates", Surface::Occasion, {36, 250, 20, 24}},
    {"opCoordinates_L", Surface::Label, {60, 250, 184, 24}},
    {"opPairs", Surface::Occasion, {36, 276, 20, 24}},
    {"opPairs_L", Surface::Label, {60, 276, 184, 24}},
    {"pCBoard", Surface::Occasion, {252, 72, 224, 224}},

    // Heuristics.
    {"opHeuristicsList", Surface::Occasion, {36, 70, 456, 172}},
    {"opHeuristicSlider", Surface::Occasion, {36, 248, 456, 28}},
    {"HLabelLow", Surface::Label, {36, 278, 150, 20}},
    {"HLabelDontCare", Surface::Label, {189, 278, 150, 20}},
    {"HLabelHigh", Surface::Label, {342, 278, 150, 20}},

    // Saved AI.
    {"Label13", Surface::Label, {36, 68, 340, 20}},
    {"opSavedAIFiles", Surface::Occasion, {36, 90, 348, 142}},
    {"LoadAI", Surface::Button, {396, 90, 96, 28}},
    {"DeleteAI", Surface::Button, {396, 126, 96, 28}},
    {"AIDefault", Surface::Button, {396, 204, 96, 28}},
    {"Label11", Surface::Label, {36, 242, 340, 20}},
    {"opSaveAIName", Surface::Occasion, {36, 266, 348, 28}},
    {"SaveAI", Surface::Button, {396, 266, 96, 28}},

    // Skins.
    {"SkinsList_L", Surface::Label, {36, 68, 200, 20}},
    {"opSkinsList", Surface::Occasion, {36, 90, 220, 138}},
    {"opWindowSize_L", Surface::Label, {36, 240, 200, 20}},
    {"opWindowSize", Surface::Occasion, {36, 264, 220, 28}},
    {"SkinPreview_L", Surface::Label, {284, 68, 200, 20}},
    {"PreviewBoard", Surface::Occasion, {284, 90, 164, 126}},
    {"PreviewInterface", Surface::Occasion, {284, 222, 164, 76}},
};

inline constexpr Layout optionsPage{"OptionsPage", {528, 359}, optionsPageControls};

}  // namespace ui::layouts
