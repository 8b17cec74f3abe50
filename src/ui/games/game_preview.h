// SPDX-License-Identifier: GPL-3.0-or-later
// The small board that comes up beside a game of the list which was pointed at, or reached by the
// keys, for a second. It goes with any key, click or turn of the wheel, and with the pointer; it
// takes neither focus nor clicks.
#pragma once

#include <QLabel>
#include <QTimer>

#include "store/game_record.h"
#include "ui/games/small_boards.h"

class QTableView;

namespace ui {

class GameListModel;

class GamePreview : public QObject {
  Q_OBJECT

 public:
  GamePreview(QTableView& grid, const GameListModel& games);

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void FollowPointer(QPoint place);
  void Await(int row);
  void Hide();
  void Draw();
  void ShowPicture(const QPixmap& picture);
  QPoint PlaceOf(const QSize& size) const;

  QTableView& grid_;
  const GameListModel& games_;
  SmallBoards boards_;
  QLabel picture_;
  QTimer patience_;
  int row_ = -1;          // that is pointed at, or was reached by the keys
  int waits_ = 0;         // what was asked for before counts no more
  bool goesOn_ = false;   // with the list that is just being filled
  bool isKeyed_ = false;  // the last that was done to the grid was done by a key
};

}  // namespace ui
