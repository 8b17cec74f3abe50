// SPDX-License-Identifier: GPL-3.0-or-later
#include "skin/layouts/skin_table.h"

#include <algorithm>
#include <cassert>
#include <iterator>

namespace ui {
namespace {

constexpr SkinRow rows[] = {
    {.window = "AboutBox",
     .background = "About.jpg",
     .textChart = "AboutText.bmp",
     .textControls = "lblTitle;lblVersion;VerNo;CopywriteLabel;Rights_L;lblDescription;Info1;Info2;"
                     "Email;Web1;Web2"},
    {.window = "Board",
     .background = "Board.jpg",
     .strips = "BoardButtons.bmp;BoardSetupButtons.bmp",
     .stripTargets = "ToolbarPics;SetupToolbarPics",
     .textChart = "BoardText.bmp",
     .textControls = "PlayersTag;PlayerComment_L,TurnTag;OpponentComment",
     .fieldChart = "BoardField.bmp",
     .fieldControls = "PlayerComment",
     .gridChart = "BoardGrid.bmp",
     .gridControls = "MoveList"},
    {.window = "ChooseOpponent",
     .background = "ChooseOpponent.jpg",
     .textChart = "ChooseOpponentText.bmp",
     .textControls = "Instructions_L;Label1",
     .fieldChart = "ChooseOpponentField.bmp",
     .fieldControls = "OppList"},
    {.window = "Credits", .background = "Credits.jpg"},
    {.window = "Dialog",
     .background = "Dialog.jpg",
     .textChart = "DialogText.bmp",
     .textControls = "Title;Text",
     .fieldChart = "DialogField.bmp",
     .fieldControls = "Field;Page;Link",
     .gridChart = "DialogGrid.bmp",
     .gridControls = "List",
     .isExtra = true},
    {.window = "ExchangePawn",
     .background = "ExchangePawn.jpg",
     .textChart = "ExchangePawnText.bmp",
     .textControls = "Label1"},
    {.window = "GameInterface",
     .background = "Interface.jpg",
     .strips = "InterfaceButtons.bmp",
     .stripTargets = "InterfaceButtons",
     .gridChart = "InterfaceGrid.bmp",
     .gridControls = "GameList"},
    {.window = "HeldMailForm",
     .background = "HeldMailForm.jpg",
     .textChart = "NotifyFormText.bmp",
     .textControls = "Heading;Sender;Game;Why",
     .gridChart = "InterfaceGrid.bmp",
     .gridControls = "Moves",
     .borrows = true},
    {.window = "HeldMailNote",
     .background = "HeldMailNote.jpg",
     .textChart = "NotifyFormText.bmp",
     .textControls = "Heading;Sender;Game;Why",
     .gridChart = "InterfaceGrid.bmp",
     .gridControls = "Moves",
     .borrows = true},
    {.window = "MsgForm",
     .background = "MsgForm.jpg",
     .textChart = "MsgFormText.bmp",
     .textControls = "FormCaption;Message"},
    {.window = "NewGameInfo",
     .background = "NewGameInfo.jpg",
     .textChart = "NewGameInfoText.bmp",
     .textControls = "Label3",
     .fieldChart = "NewGameInfoField.bmp",
     .fieldControls = "Game_name;Game_opponents_name;Game_opponents_email"},
    {.window = "NotifyForm",
     .background = "NotifyForm.jpg",
     .textChart = "NotifyFormText.bmp",
     .textControls = "Label3;OpName;GameName,LastMove;MoveComment"},
    {.window = "OptionsPage",
     .background = "OptionsPage.jpg",
     .textChart = "OptionsPageText.bmp",
     .textControls =
         "Label1;opDisplaySplash_L;opVerbose_L;opShowToolTips_L;opDefaultView_L,opShowMoves_L;"
         "Label2;"
         "vsCSearchDepth_L;opNotifySound_L;opNotificationSound;opNotifyDialog_L,opComputerGames_L,"
         "opGamePreview_L,opNotifyDesktop_L,opAskSurrender_L,opWhyInMailGames_L;Label4;Label8;"
         "Label9,opCoordinates_L,opPairs_L;HLabelLow;HLabelDontCare;HLabelHigh;Label13;Label11;"
         "SkinsList_L,opWindowSize_L;"
         "SkinPreview_L;"
         "opSimpleUI_L;opSystrayStartup_L,opSessionStart_L",
     .fieldChart = "OptionsPageField.bmp",
     .fieldControls =
         "opSysTrayTimerCombo,opDisplaySplash,opVerbose,opShowToolTips,opDefaultView,opShowMoves,"
         "opSimpleUI,opSystrayStartup,opSessionStart,opCoordinates,opPairs;vsCSearchDepth;"
         "opTimeoutCombo,opNotifySound,opNotifyDialog,"
         "opComputerGames,opGamePreview,opNotifyDesktop,opAskSurrender,opWhyInMailGames,"
         "opWindowSize;opSaveAIName",
     .gridChart = "OptionsPageGrid.bmp",
     .gridControls =
         "opIconList;opChessSet;opChessBoard;opHeuristicsList;opSavedAIFiles;opSkinsList",
     .tabChart = "OptionsPageTabs.bmp",
     .tabPages = "Page_1;Page_2;Page_3;Page_4;Page_5;Page_6"},
    {.window = "SelectPrinter",
     .background = "SelectPrinter.jpg",
     .textChart = "SelectPrinterText.bmp",
     .textControls = "Label3;CurrentPrinter;fTVCols;fTVRows;RowColInstructions"},
    {.window = "SelectSound",
     .background = "SelectSound.jpg",
     .fieldChart = "SelectSoundField.bmp",
     .fieldControls = "DirList;FileList;DriveList"},
    {.window = "SetupWarningForm",
     .background = "SetupWarningForm.jpg",
     .textChart = "SetupWarningFormText.bmp",
     .textControls = "WarningMessage"},
    {.window = "StatusWindow",
     .background = "StatusWindow.jpg",
     .textChart = "StatusWindowText.bmp",
     .textControls = "StatusText"},
    {.window = "SystemTray",
     .background = {},
     .strips = "SystemButtons.bmp",
     .stripTargets = "ButtonImages"},
};

constexpr struct {
  std::string_view target;
  layouts::Strip shape;
} strips[] = {{"ToolbarPics", layouts::toolbarButtons},
              {"SetupToolbarPics", layouts::toolbarButtons},
              {"InterfaceButtons", layouts::interfaceButtons},
              {"ButtonImages", layouts::systemButtons}};

}  // namespace

const SkinRow* FindSkinRow(std::string_view window) {
  const auto* row = std::find_if(std::begin(rows), std::end(rows),
                                 [&](const SkinRow& r) { return r.window == window; });
  return row == std::end(rows) ? nullptr : row;
}

const layouts::Strip& ShapeOfStrip(std::string_view target) {
  const auto* strip = std::find_if(std::begin(strips), std::end(strips),
                                   [&](const auto& s) { return s.target == target; });
  assert(strip != std::end(strips));
  return strip->shape;
}

}  // namespace ui
