// SPDX-License-Identifier: GPL-3.0-or-later
// The program's two windows and the way between them: the list of games, and the one board that
// takes its place while a game is open.
#pragma once

#include <QObject>
#include <QPointer>

#include <cstdint>
#include <memory>
#include <optional>

#include "ui/board_window.h"
#include "ui/chess_graphics.h"
#include "ui/games_window.h"

namespace ui {

class GameWindows : public QObject {
  Q_OBJECT

 public:
  /// Fills the hooks by which the logic brings windows back, for its lifetime.
  GameWindows();
  ~GameWindows() override;

  void ShowGameList(std::optional<std::int32_t> selectGame = {});

  /// Opens a game on the board in place of the list, which comes back when the board closes. Does
  /// nothing where the chess set can't be loaded or a game is open.
  void OpenGame(std::int32_t gameID);

  /// The user's own retrieve: takes read mails too, and overrides the guard of a failed logon.
  void GetGames();

  /// Opens what waits longest for the user's move, else the list.
  void Begin();

  BoardWindow* OpenBoard() const { return board_; }
  GamesWindow* GameList() const { return list_.get(); }

 Q_SIGNALS:
  /// The user wants to see or change who he is to his mail service.
  void AccountWanted();

  /// The user has closed the list, and with it the program.
  void Finished();

 private:
  void FillGameList(std::optional<std::int32_t> selectGame);
  void RevealGameList();
  bool ShowBoard();

  ChessGraphics graphics_;
  std::unique_ptr<GamesWindow> list_;
  QPointer<BoardWindow> board_;
};

}  // namespace ui
