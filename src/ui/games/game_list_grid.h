// SPDX-License-Identifier: GPL-3.0-or-later
// The grid of the game list: a fixed heading with the mark of the sort, a picture of how each game
// stands, and in place of the games, where there are none, a notice.
#pragma once

#include <QTableView>

#include <cstdint>
#include <optional>

#include "shell/game_list.h"

class QLabel;
class QPushButton;

namespace ui {

class GameListHeading;
class GameListModel;

/// What stands in place of the games.
struct ListNotice {
  QString text;
  bool offersAccount = false;  ///< with a button that leads to the mail account
};

class GameListGrid : public QTableView {
  Q_OBJECT

 public:
  explicit GameListGrid(QWidget* parent = nullptr);

  /// Shows the list in one update, its selected row on top. `notice` stands below the heading of an
  /// empty one.
  void Fill(shell::GameList list, std::int16_t sortColumn, bool descending,
            const ListNotice& notice);

  /// The marks of the mails on their way.
  void ShowMails();

  /// The columns that the user wants to see by now.
  void ShowColumns();

  /// Null where no row is selected. Stands until the next fill.
  const store::GameRecord* SelectedGame() const;

  /// Wide enough for a long date.
  QSize sizeHint() const override;

 Q_SIGNALS:
  void SortWanted(int column, bool descending);
  void PlayWanted();
  void DeleteWanted();
  void MenuWanted(QPoint globalPlace);
  void AccountWanted();

 protected:
  QModelIndex moveCursor(CursorAction action, Qt::KeyboardModifiers modifiers) override;
  bool viewportEvent(QEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void contextMenuEvent(QContextMenuEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;

 private:
  void FitColumns();
  QWidget* NewNotice();

  GameListModel* model_;
  GameListHeading* heading_;
  QWidget* notice_;  // holds the two
  QLabel* noticeText_;
  QPushButton* account_;
};

}  // namespace ui
