// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/board/board_menus.h"

#include "board/controls.h"
#include "board/conversation.h"
#include "platform/process_state.h"

namespace ui {

namespace {

MenuRow WithKey(QKeyCombination key, MenuRow row) {
  row.key = key;
  return row;
}

/// What both of the board's first menus begin with.
std::vector<MenuRow> ViewRows(const board::Game& board, const BoardActions& actions) {
  const board::BoardControls controls = board::Controls(board);
  return {WithKey(Qt::CTRL | Qt::Key_T,
                  {controls.viewIsMine ? "View from opponent" : "View from me",
                   actions.Click(board::ViewButton), controls.viewAndCoordinates}),
          WithKey(Qt::CTRL | Qt::Key_G,
                  {board.CoordsVisible ? "Hide coordinates" : "Show coordinates",
                   actions.Click(board::CoordinatesButton), controls.viewAndCoordinates}),
          {"-"}};
}

MenuRow OptionsRow(const BoardActions& actions) {
  return WithKey(Qt::CTRL | Qt::Key_O, {"Options...", actions.openOptions});
}

MenuRow CloseRow(const BoardActions& actions) {
  return WithKey(Qt::CTRL | Qt::Key_W, {"Close", actions.Click(board::CloseButton)});
}

std::vector<MenuRow> Joined(std::vector<MenuRow> rows, const std::vector<MenuRow>& others) {
  rows.insert(rows.end(), others.begin(), others.end());
  return rows;
}

}  // namespace

std::vector<MenuRow> ActionsRows(const board::Game& board, const BoardActions& actions) {
  const board::BoardControls controls = board::Controls(board);
  return Joined(
      ViewRows(board, actions),
      {WithKey(Qt::CTRL | Qt::Key_Z,
               {"Undo current move", actions.Click(board::UndoButton), controls.undo}),
       WithKey(Qt::CTRL | Qt::Key_Enter,
               {"Send new move", actions.Click(board::SendButton), controls.send}),
       WithKey(Qt::CTRL | Qt::Key_R,
               {"Re-send last move", actions.Click(board::ResendButton), controls.resend}),
       {"-"},
       WithKey(Qt::CTRL | Qt::SHIFT | Qt::Key_S,
               {"Surrender game", actions.Click(board::SurrenderButton), controls.surrender}),
       {"-"},
       WithKey(Qt::CTRL | Qt::SHIFT | Qt::Key_D,
               {"Offer a draw", actions.offerDraw, controls.surrender}),
       {"-"},
       OptionsRow(actions),
       WithKey(Qt::CTRL | Qt::Key_P, {"Print board state...", actions.print}),
       CloseRow(actions)});
}

std::vector<MenuRow> SetupRows(const board::Game& board, const BoardActions& actions) {
  return Joined(ViewRows(board, actions),
                {WithKey(Qt::CTRL | Qt::SHIFT | Qt::Key_R,
                         {"Reset board", actions.Click(board::ResetSetupButton)}),
                 WithKey(Qt::CTRL | Qt::SHIFT | Qt::Key_C,
                         {"Clear board", actions.Click(board::ClearSetupButton)}),
                 {"-"},
                 WithKey(Qt::CTRL | Qt::Key_Enter,
                         {"Play current setup", actions.Click(board::PlaySetupButton),
                          board::Controls(board).playSetup}),
                 {"-"},
                 OptionsRow(actions),
                 CloseRow(actions)});
}

std::vector<MenuRow> HistoryRows(const board::Game& board, const BoardActions& actions) {
  const board::BoardControls controls = board::Controls(board);
  const auto select = [&](int row) { return [select = actions.select, row] { select(row); }; };
  return {WithKey(Qt::CTRL | Qt::Key_H, {board.HilightAsked ? "Remove hilight" : "Show hilight",
                                         actions.toggleHilight, controls.hilight}),
          {"-"},
          WithKey(Qt::Key_Home, {"First move", select(1), controls.firstAndLast}),
          WithKey(Qt::Key_End, {"Last move", select(board.Moves.Count()), controls.firstAndLast}),
          {"-"},
          WithKey(Qt::CTRL | Qt::Key_I, {"Why this move?...", actions.askWhy}),
          {"-"},
          WithKey(Qt::CTRL | Qt::Key_M, {"Earlier comments...",
                                         actions.showConversation,
                                         !board::Conversation(board).empty(),
                                         {},
                                         {},
                                         "Nothing has been said in this game."})};
}

std::unique_ptr<QMenu> NewActionsMenu(const board::Game& board, const BoardActions& actions) {
  return platform::Process().BoardSetupMode
             ? NewMenu("mnuSetupMenu", SetupRows(board, actions))
             : NewMenu("mnuActionsMenu", ActionsRows(board, actions));
}

std::unique_ptr<QMenu> NewHistoryMenu(const board::Game& board, const BoardActions& actions) {
  return NewMenu("mnuHistoryMenu", HistoryRows(board, actions));
}

std::unique_ptr<QMenu> NewPiecePalleteMenu(const std::function<void()>& remove) {
  return NewMenu("mnuPiecePalleteMenu", {WithKey(Qt::Key_Delete, {"Remove every piece", remove})});
}

}  // namespace ui
