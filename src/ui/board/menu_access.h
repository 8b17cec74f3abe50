// SPDX-License-Identifier: GPL-3.0-or-later
// The ways to what stands in the board's menus: a button for each menu, the right mouse button on
// board and list, and the keys of the entries, which do the same with no menu open.
#pragma once

#include <QAbstractButton>
#include <QObject>

#include <array>

#include "ui/board/board_menus.h"

namespace ui {

class BoardPicture;
class MoveListTable;

class MenuAccess : public QObject {
  Q_OBJECT

 public:
  /// Makes the two buttons of the chosen look. Belongs to the window, as they do; the others must
  /// be there as long.
  MenuAccess(QWidget& window, const board::Game& board, BoardPicture& picture, MoveListTable& moves,
             BoardActions actions);

  /// "Actions" and "Move history".
  const std::array<QAbstractButton*, 2>& Buttons() const { return buttons_; }

  /// What can be opened now.
  void Refresh();

  void SetToolTips();

  /// Does what the entry of that key does. False where there is none, or it can't be chosen now.
  bool Press(QKeyCombination key);

 private:
  QAbstractButton* NewMenuButton(std::size_t menu);
  void Open(std::size_t menu, QPoint place, QAbstractButton* opener = nullptr);
  void AddKeys();
  bool HasHistory() const;
  std::vector<MenuRow> RowsOfNow() const;

  QWidget& window_;
  const board::Game& board_;
  BoardPicture& picture_;
  const BoardActions actions_;
  std::array<QAbstractButton*, 2> buttons_{};
};

}  // namespace ui
