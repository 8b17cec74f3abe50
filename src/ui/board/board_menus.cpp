// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/board/board_menus.h"

#include "board/controls.h"
#include "widgets/menu_rows.h"

namespace ui {

namespace {

/// What both of the board's first menus begin with.
std::vector<MenuRow> ViewRows(const board::Game& board, const BoardActions& actions) {
  const board::BoardControls controls = board::Controls(board);
  return {{controls.viewIsMine ? "View from opponent" : "View from me",
           actions.Click(board::ViewButton), controls.viewAndCoordinates},
          {board.CoordsVisible ? "Hide coordinates" : "Show coordinates",
           actions.Click(board::CoordinatesButton), controls.viewAndCoordinates},
          {"-"}};
}

MenuRow WithKey(QKeyCombination key, MenuRow row) {
  row.key = key;
  return row;
}

std::vector<MenuRow> Joined(std::vector<MenuRow> rows, const std::vector<MenuRow>& others) {
  rows.insert(rows.end(), others.begin(), others.end());
  return rows;
}

}  // namespace

std::unique_ptr<QMenu> NewActionsMenu(const board::Game& board, const BoardActions& actions) {
  const board::BoardControls controls = board::Controls(board);
  return NewMenu(
      "mnuActionsMenu",
      Joined(ViewRows(board, actions),
             {WithKey(Qt::CTRL | Qt::Key_Z,
                      {"Undo current move", actions.Click(board::UndoButton), controls.undo}),
              WithKey(Qt::CTRL | Qt::Key_Enter,
                      {"Send new move", actions.Click(board::SendButton), controls.send}),
              {"Re-send last move", actions.Click(board::ResendButton), controls.resend},
              {"-"},
              {"Surrender game", actions.Click(board::SurrenderButton), controls.surrender},
              {"-"},
              {"Offer a draw", actions.offerDraw, controls.surrender},
              {"-"},
              {"Options...", actions.openOptions},
              {"Print board state...", actions.print},
              {"Close", actions.Click(board::CloseButton)}}));
}

std::unique_ptr<QMenu> NewSetupMenu(const board::Game& board, const BoardActions& actions) {
  return NewMenu("mnuSetupMenu",
                 Joined(ViewRows(board, actions),
                        {{"Reset board", actions.Click(board::ResetSetupButton)},
                         {"Clear board", actions.Click(board::ClearSetupButton)},
                         {"-"},
                         {"Play current setup", actions.Click(board::PlaySetupButton),
                          board::Controls(board).playSetup},
                         {"-"},
                         {"Options...", actions.openOptions},
                         {"Close", actions.Click(board::CloseButton)}}));
}

std::unique_ptr<QMenu> NewPiecePalleteMenu(const std::function<void()>& remove) {
  return NewMenu("mnuPiecePalleteMenu", {{"Remove every piece", remove}});
}

std::unique_ptr<QMenu> NewHistoryMenu(const board::Game& board, const HistoryActions& actions) {
  const board::BoardControls controls = board::Controls(board);
  const auto select = [&](int row) { return [select = actions.select, row] { select(row); }; };
  return NewMenu(
      "mnuHistoryMenu",
      {{board.HilightAsked ? "Remove hilight" : "Show hilight", actions.toggleHilight,
        controls.hilight},
       {"-"},
       WithKey(Qt::Key_Home, {"First move", select(1), controls.firstAndLast}),
       WithKey(Qt::Key_End, {"Last move", select(board.Moves.Count()), controls.firstAndLast})});
}

}  // namespace ui
