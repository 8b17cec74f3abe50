// SPDX-License-Identifier: GPL-3.0-or-later
// The window that lists the games: opponent, title, date, and how each one stands. Games that wait
// for the user's move come first and stand out. It opens nothing itself but asks for it.
#pragma once

#include <QWidget>

#include <cstdint>
#include <optional>
#include <string_view>

#include "store/game_record.h"

class QLabel;
class QPushButton;
class QStackedWidget;

namespace ui {

class RowTable;

/// The games that fit a selection, in the order of the list; a date that can't be read leaves dates
/// out of that order. False where the games can't be read.
bool ReadGames(store::GameRecords& games, std::string_view selection = {});

class GamesWindow : public QWidget {
  Q_OBJECT

 public:
  GamesWindow();

  /// Reads the games afresh. Selects the given game, else the first of the newly arrived ones, else
  /// the first.
  void Fill(std::optional<std::int32_t> selectGame = {});

  std::optional<std::int32_t> SelectedGame() const;

 Q_SIGNALS:
  void OpenWanted(std::int32_t gameID);
  void RetrieveWanted();
  void AccountWanted();
  void Closed();

 protected:
  void closeEvent(QCloseEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;

 private:
  void LayOut();
  void AddGame(const store::GameRecord& game);
  void OpenSelected();

  QStackedWidget* pages_;
  RowTable* games_;
  QLabel* notice_;  // in place of the table where there is nothing to list
  QPushButton* open_;
  QPushButton* retrieve_;
  QPushButton* account_;
};

}  // namespace ui
