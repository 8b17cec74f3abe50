// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/board_menus.h"

#include <utility>

namespace ui {

using namespace Qt::StringLiterals;

namespace {

void AddEntry(QMenu& menu, const QString& caption, bool enabled, std::function<void()> action) {
  menu.addAction(caption, std::move(action))->setEnabled(enabled);
}

}  // namespace

std::unique_ptr<QMenu> NewActionsMenu(const board::Board& board, std::function<void(int)> click) {
  const board::BoardControls controls = board.Controls();
  auto menu = std::make_unique<QMenu>();
  menu->setObjectName(u"mnuActionsMenu"_s);
  const auto add = [&](const QString& caption, bool enabled, int button) {
    AddEntry(*menu, caption, enabled, [click, button] { click(button); });
  };
  add(controls.viewIsMine ? u"View from opponent"_s : u"View from me"_s,
      controls.viewAndCoordinates, board::ViewButton);
  add(board.CoordsVisible ? u"Hide coordinates"_s : u"Show coordinates"_s,
      controls.viewAndCoordinates, board::CoordinatesButton);
  menu->addSeparator();
  add(u"Undo current move"_s, controls.undo, board::UndoButton);
  add(u"Send new move"_s, controls.send, board::SendButton);
  add(u"Re-send last move"_s, controls.resend, board::ResendButton);
  menu->addSeparator();
  add(u"Close"_s, true, board::CloseButton);
  return menu;
}

std::unique_ptr<QMenu> NewHistoryMenu(const board::Board& board, const HistoryActions& actions) {
  const board::BoardControls controls = board.Controls();
  auto menu = std::make_unique<QMenu>();
  menu->setObjectName(u"mnuHistoryMenu"_s);
  AddEntry(*menu, board.HilightVisible ? u"Remove hilight"_s : u"Show hilight"_s, controls.hilight,
           actions.toggleHilight);
  menu->addSeparator();
  const auto add = [&](const QString& caption, int row) {
    AddEntry(*menu, caption, controls.firstAndLast,
             [select = actions.select, row] { select(row); });
  };
  add(u"First move"_s, 1);
  add(u"Last move"_s, board.Moves.Count());
  return menu;
}

}  // namespace ui
