// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/board_menus.h"

#include <map>
#include <utility>

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

int ButtonOf(int action) {
  static const std::map<int, int> buttons{
      {View, board::ViewButton},     {Coordinates, board::CoordinatesButton},
      {Undo, board::UndoButton},     {Send, board::SendButton},
      {Resend, board::ResendButton}, {Close, board::CloseButton}};
  return buttons.at(action);
}

enum History { Hilight = 0, FirstMove = 2, LastMove = 3 };

constexpr MenuEntry historyEntries[] = {
    {Hilight, "Show hilight"}, {1, "-"}, {FirstMove, "First move"}, {LastMove, "Last move"}};

}  // namespace

std::unique_ptr<IndexedMenu> NewActionsMenu(const board::Board& board,
                                            std::function<void(int)> click) {
  const board::BoardControls controls = board.Controls();
  auto menu = std::make_unique<IndexedMenu>(
      "mnuActionsMenu", actionEntries,
      [click = std::move(click)](int action) { click(ButtonOf(action)); });
  if (!controls.viewIsMine) menu->Entry(View).setText(u"View from me"_s);
  if (board.CoordsVisible) menu->Entry(Coordinates).setText(u"Hide coordinates"_s);
  menu->SetEnabled({View, Coordinates}, controls.viewAndCoordinates);
  menu->SetEnabled({Undo}, controls.undo);
  menu->SetEnabled({Send}, controls.send);
  menu->SetEnabled({Resend}, controls.resend);
  // Until what they lead to is there.
  menu->SetEnabled({Surrender, OfferDraw, Options, PrintBoard}, false);
  return menu;
}

std::unique_ptr<IndexedMenu> NewHistoryMenu(const board::Board& board,
                                            const HistoryActions& actions) {
  const board::BoardControls controls = board.Controls();
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
