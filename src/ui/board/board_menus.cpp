// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/board/board_menus.h"

#include <map>
#include <utility>

#include "board/controls.h"

namespace ui {

using namespace Qt::StringLiterals;

namespace {

enum Action {
  View = 0,
  Coordinates = 1,
  Undo = 3,
  Send = 4,
  Resend = 5,
  Surrender = 7,
  OfferDraw = 8,
  Options = 10,
  PrintBoard = 11,
  Close = 12
};

constexpr MenuEntry actionEntries[] = {
    {View, "View from opponent"},
    {Coordinates, "Show coordinates"},
    {2, "-"},
    {Undo, "Undo current move"},
    {Send, "Send new move"},
    {Resend, "Re-send last move"},
    {6, "-"},
    {Surrender, "Surrender game"},
    {OfferDraw, "Offer a draw"},
    {9, "-"},
    {Options, "Options..."},
    {PrintBoard, "Print board state..."},
    {Close, "Close"},
};

enum SetupAction {
  ResetBoard = 3,
  ClearBoard = 4,
  PlaySetup = 6,
  SetupOptions = 8,
  CloseSetup = 9
};

constexpr MenuEntry setupEntries[] = {
    {View, "View from opponent"},
    {Coordinates, "Show coordinates"},
    {2, "-"},
    {ResetBoard, "Reset board"},
    {ClearBoard, "Clear board"},
    {5, "-"},
    {PlaySetup, "Play current setup"},
    {7, "-"},
    {SetupOptions, "Options..."},
    {CloseSetup, "Close"},
};

constexpr MenuEntry palleteEntries[] = {{0, "Remove every piece"}};

using ButtonsOfEntries = std::map<int, int>;

const ButtonsOfEntries actionButtons{
    {View, board::ViewButton},     {Coordinates, board::CoordinatesButton},
    {Undo, board::UndoButton},     {Send, board::SendButton},
    {Resend, board::ResendButton}, {Surrender, board::SurrenderButton},
    {Close, board::CloseButton}};

const ButtonsOfEntries setupButtons{{View, board::ViewButton},
                                    {Coordinates, board::CoordinatesButton},
                                    {ResetBoard, board::ResetSetupButton},
                                    {ClearBoard, board::ClearSetupButton},
                                    {PlaySetup, board::PlaySetupButton},
                                    {CloseSetup, board::CloseButton}};

/// What both of the board's first menus begin with.
void ShowView(IndexedMenu& menu, const board::Game& board) {
  const board::BoardControls controls = board::Controls(board);
  if (!controls.viewIsMine) menu.Entry(View).setText(u"View from me"_s);
  if (board.CoordsVisible) menu.Entry(Coordinates).setText(u"Hide coordinates"_s);
  menu.SetEnabled({View, Coordinates}, controls.viewAndCoordinates);
}

enum History { Hilight = 0, FirstMove = 2, LastMove = 3 };

constexpr MenuEntry historyEntries[] = {
    {Hilight, "Show hilight"}, {1, "-"}, {FirstMove, "First move"}, {LastMove, "Last move"}};

}  // namespace

std::unique_ptr<IndexedMenu> NewActionsMenu(const board::Game& board, BoardActions actions) {
  const board::BoardControls controls = board::Controls(board);
  auto menu = std::make_unique<IndexedMenu>("mnuActionsMenu", actionEntries,
                                            [actions = std::move(actions)](int action) {
                                              if (action == OfferDraw) {
                                                actions.offerDraw();
                                              } else {
                                                actions.click(actionButtons.at(action));
                                              }
                                            });
  ShowView(*menu, board);
  menu->SetEnabled({Undo}, controls.undo);
  menu->SetEnabled({Send}, controls.send);
  menu->SetEnabled({Resend}, controls.resend);
  menu->SetEnabled({Surrender, OfferDraw}, controls.surrender);
  // Until what they lead to is there.
  menu->SetEnabled({Options, PrintBoard}, false);
  return menu;
}

std::unique_ptr<IndexedMenu> NewSetupMenu(const board::Game& board, BoardActions actions) {
  auto menu = std::make_unique<IndexedMenu>(
      "mnuSetupMenu", setupEntries,
      [actions = std::move(actions)](int action) { actions.click(setupButtons.at(action)); });
  ShowView(*menu, board);
  menu->SetEnabled({PlaySetup}, board::Controls(board).playSetup);
  menu->SetEnabled({SetupOptions}, false);
  return menu;
}

std::unique_ptr<IndexedMenu> NewPiecePalleteMenu(const std::function<void()>& remove) {
  return std::make_unique<IndexedMenu>("mnuPiecePalleteMenu", palleteEntries,
                                       [remove](int) { remove(); });
}

std::unique_ptr<IndexedMenu> NewHistoryMenu(const board::Game& board,
                                            const HistoryActions& actions) {
  const board::BoardControls controls = board::Controls(board);
  auto menu = std::make_unique<IndexedMenu>("mnuHistoryMenu", historyEntries,
                                            [actions, last = board.Moves.Count()](int entry) {
                                              if (entry == Hilight) {
                                                actions.toggleHilight();
                                              } else {
                                                actions.select(entry == FirstMove ? 1 : last);
                                              }
                                            });
  if (board.HilightVisible) menu->Entry(Hilight).setText(u"Remove hilight"_s);
  menu->SetEnabled({Hilight}, controls.hilight);
  menu->SetEnabled({FirstMove, LastMove}, controls.firstAndLast);
  return menu;
}

}  // namespace ui
