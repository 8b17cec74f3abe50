// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/board/board_menus.h"

#include "board/controls.h"
#include "board/conversation.h"
#include "platform/process_state.h"
#include "ui/board/why_grey.h"

namespace ui {

namespace {

MenuRow WithKey(QKeyCombination key, MenuRow row) {
  row.key = key;
  return row;
}

/// A row that does what a button of the action bar does.
MenuRow OfButton(const board::Game& board, const BoardActions& actions, int button,
                 const char* caption, bool enabled) {
  return {caption, actions.Click(button), enabled, {}, {}, WhyGrey(board, button)};
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

MenuRow CopyPositionRow(const BoardActions& actions) {
  return WithKey(Qt::CTRL | Qt::SHIFT | Qt::Key_P, {"Copy position", actions.copyPosition});
}

MenuRow CopyImageRow(const BoardActions& actions) {
  return WithKey(Qt::CTRL | Qt::Key_I, {"Copy image", actions.copyImage});
}

/// The game as other programs read it: what is stored of it.
std::vector<MenuRow> ExchangeRows(const BoardActions& actions) {
  const bool isStored = platform::Process().CurrentGameID != -1;
  const auto row = [isStored](const char* caption, const std::function<void()>& action) {
    return MenuRow{.caption = caption,
                   .action = action,
                   .enabled = isStored,
                   .whyNot = "Works once the first move has been sent."};
  };
  return {{"-"},
          WithKey(Qt::CTRL | Qt::Key_C, row("Copy game", actions.copyGame)),
          WithKey(Qt::CTRL | Qt::Key_S, row("Save game as PGN...", actions.saveGame))};
}

/// What the user does for himself.
MenuRow StudyRow(QKeyCombination key, const char* caption, const std::function<void()>& action) {
  const bool stored = platform::Process().CurrentGameID >= 1;
  return WithKey(key, {caption,
                       action,
                       stored && action,
                       {},
                       {},
                       "A game that isn't stored yet has none; it is once a move of it was sent."});
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
               OfButton(board, actions, board::UndoButton, "Undo current move", controls.undo)),
       WithKey(Qt::CTRL | Qt::Key_Enter,
               OfButton(board, actions, board::SendButton, "Send new move", controls.send)),
       WithKey(Qt::CTRL | Qt::Key_R,
               OfButton(board, actions, board::ResendButton, "Re-send last move", controls.resend)),
       {"-"},
       StudyRow(Qt::CTRL | Qt::SHIFT | Qt::Key_T, "Try moves", actions.tryMoves),
       StudyRow(Qt::CTRL | Qt::SHIFT | Qt::Key_N, "Notes", actions.showNotes),
       {"-"},
       WithKey(Qt::CTRL | Qt::SHIFT | Qt::Key_G, OfButton(board, actions, board::SurrenderButton,
                                                          "Surrender game", controls.surrender)),
       {"-"},
       WithKey(Qt::CTRL | Qt::SHIFT | Qt::Key_D, {"Offer a draw",
                                                  actions.offerDraw,
                                                  controls.surrender,
                                                  {},
                                                  {},
                                                  WhyGrey(board, board::SurrenderButton)}),
       {"-"},
       OptionsRow(actions),
       WithKey(Qt::CTRL | Qt::Key_P, {"Print board state...", actions.print}),
       CopyPositionRow(actions),
       CopyImageRow(actions),
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
                         OfButton(board, actions, board::PlaySetupButton, "Play current setup",
                                  board::Controls(board).playSetup)),
                 {"-"},
                 WithKey(Qt::CTRL | Qt::Key_V, {"Paste position", actions.pastePosition}),
                 CopyPositionRow(actions),
                 CopyImageRow(actions),
                 {"-"},
                 OptionsRow(actions),
                 CloseRow(actions)});
}

std::vector<MenuRow> HistoryRows(const board::Game& board, const BoardActions& actions) {
  const board::BoardControls controls = board::Controls(board);
  const auto select = [&](int row) { return [select = actions.select, row] { select(row); }; };
  return Joined(
      {WithKey(Qt::CTRL | Qt::Key_H, {board.HilightAsked ? "Remove hilight" : "Show hilight",
                                      actions.toggleHilight,
                                      controls.hilight,
                                      {},
                                      {},
                                      whyNoHistory}),
       {"-"},
       WithKey(Qt::Key_Home, {"First move", select(1), controls.firstAndLast, {}, {}, whyNoWay}),
       WithKey(Qt::Key_End,
               {"Last move", select(board.Moves.Count()), controls.firstAndLast, {}, {}, whyNoWay}),
       {"-"},
       WithKey(Qt::CTRL | Qt::Key_Y, {"Why this move?...", actions.askWhy}),
       {"-"},
       WithKey(Qt::CTRL | Qt::Key_M, {"Earlier comments...",
                                      actions.showConversation,
                                      !board::Conversation(board).empty(),
                                      {},
                                      {},
                                      "Nothing has been said in this game."})},
      ExchangeRows(actions));
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
