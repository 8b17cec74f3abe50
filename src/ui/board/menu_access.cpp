// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/board/menu_access.h"

#include <QShortcut>
#include <QToolButton>

#include <utility>

#include "platform/process_state.h"
#include "skin/look.h"
#include "skin/system_button.h"
#include "ui/board/board_picture.h"
#include "ui/board/move_list_table.h"
#include "ui/board/why_grey.h"
#include "widgets/menu_opener.h"
#include "widgets/tool_tips.h"

namespace ui {

using platform::Process;

namespace {

enum Menu : std::size_t { ActionsMenu, HistoryMenu };

struct MenuButton {
  ButtonTwins names;
  const char* caption;  ///< with a key that no button of the action bar has
  const char* toolTip;
  const char* setupToolTip;
};
constexpr MenuButton menuButtons[] = {
    {{"Menu1Button", "Menu1_L"}, "Ac&tions", "Actions menu", "Actions menu"},
    {{"Menu2Button", "Menu2_L"}, "Move &history", "Move history menu", "Piece pallete menu"},
};

QAbstractButton* NewPlainButton(QWidget& window) {
  auto* button = new QToolButton(&window);
  button->setAutoRaise(true);
  button->setFocusPolicy(Qt::TabFocus);
  return button;
}

QPoint PlaceBelow(const QAbstractButton& button) {
  const auto* skinned = qobject_cast<const SystemButton*>(&button);
  const QRect place = skinned ? skinned->Place() : button.geometry();
  return button.parentWidget()->mapToGlobal(place.bottomLeft() + QPoint(0, 1));
}

}  // namespace

MenuAccess::MenuAccess(QWidget& window, const board::Game& board, BoardPicture& picture,
                       MoveListTable& moves, BoardActions actions)
    : QObject(&window),
      window_(window),
      board_(board),
      picture_(picture),
      actions_(std::move(actions)) {
  for (const std::size_t menu : {ActionsMenu, HistoryMenu}) buttons_[menu] = NewMenuButton(menu);
  picture.setContextMenuPolicy(Qt::CustomContextMenu);
  connect(&picture, &QWidget::customContextMenuRequested, this,
          [this](QPoint point) { Open(ActionsMenu, picture_.mapToGlobal(point)); });
  connect(&moves, &QWidget::customContextMenuRequested, this, [this, &moves](QPoint point) {
    Open(HistoryMenu, moves.viewport()->mapToGlobal(point));
  });
  AddKeys();
}

QAbstractButton* MenuAccess::NewMenuButton(std::size_t menu) {
  const MenuButton& told = menuButtons[menu];
  const bool plain = IsSimpleUI();
  QAbstractButton* button = plain ? NewPlainButton(window_) : new SystemButton({}, &window_);
  button->setObjectName(QLatin1StringView(plain ? told.names.plain : told.names.skinned));
  button->setText(QLatin1StringView(told.caption));
  // As a menu does, on the press; the menu takes the release.
  connect(button, &QAbstractButton::pressed, this, [this, button, menu] {
    Open(menu, PlaceBelow(*button), button);
    button->setDown(false);
  });
  return button;
}

bool MenuAccess::HasHistory() const {
  return board_.Moves.Count() > 0 && !Process().BoardSetupMode;
}

/// Opened by a button, the menu leaves the keys to the board. What is chosen may close the window.
void MenuAccess::Open(std::size_t menu, QPoint place, QAbstractButton* opener) {
  if (board_.ComputerThinking || (menu == HistoryMenu && !HasHistory())) return;
  const auto opened =
      menu == ActionsMenu ? NewActionsMenu(board_, actions_) : NewHistoryMenu(board_, actions_);
  if (opener) GiveKeysBack(*opened, picture_, opener);
  opened->exec(place);
}

void MenuAccess::Refresh() {
  const bool thinking = board_.ComputerThinking;
  buttons_[ActionsMenu]->setEnabled(!thinking);
  buttons_[HistoryMenu]->setEnabled(!thinking && board_.Moves.Count() > 0);
  SetToolTips();
}

void MenuAccess::SetToolTips() {
  for (const std::size_t menu : {ActionsMenu, HistoryMenu}) {
    const MenuButton& told = menuButtons[menu];
    SetTip(*buttons_[menu], Process().BoardSetupMode ? told.setupToolTip : told.toolTip,
           board_.ComputerThinking ? "Works once the computer has moved." : whyNoHistory);
  }
}

std::vector<MenuRow> MenuAccess::RowsOfNow() const {
  if (Process().BoardSetupMode) return SetupRows(board_, actions_);
  std::vector<MenuRow> rows = ActionsRows(board_, actions_);
  for (MenuRow& row : HistoryRows(board_, actions_)) rows.push_back(std::move(row));
  return rows;
}

bool MenuAccess::Press(QKeyCombination key) {
  return !board_.ComputerThinking && PressKey(RowsOfNow(), key);
}

/// Those with Ctrl, whatever has the focus; the others are for who has no use for them himself.
void MenuAccess::AddKeys() {
  QList<QKeySequence> keys;
  for (const auto& rowsOf : {ActionsRows, SetupRows, HistoryRows}) {
    for (const MenuRow& row : rowsOf(board_, actions_)) {
      const bool isNew = !row.key.isEmpty() && !keys.contains(row.key);
      if (isNew && row.key[0].keyboardModifiers() != Qt::NoModifier) keys << row.key;
    }
  }
  for (const QKeySequence& key : keys) {
    const QKeyCombination pressed = key[0];
    const auto press = [this, pressed] { Press(pressed); };
    new QShortcut(key, &window_, press);
    if (pressed.key() == Qt::Key_Enter) {
      new QShortcut(QKeyCombination(pressed.keyboardModifiers(), Qt::Key_Return), &window_, press);
    }
  }
}

}  // namespace ui
