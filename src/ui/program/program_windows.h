// SPDX-License-Identifier: GPL-3.0-or-later
// The program's windows: each is made on first use, and forgotten when it is closed. They come and
// go by the shell's operations; there is at most one of each.
#pragma once

#include <QObject>
#include <QPointer>

#include <functional>

#include "boards/chess_graphics.h"
#include "platform/windows.h"
#include "skin/splash_screen.h"
#include "ui/board/board_window.h"
#include "ui/games/game_interface.h"
#include "ui/games/new_game_info.h"
#include "ui/program/given_files.h"
#include "ui/study/study_desk.h"

namespace ui {

class ProgramWindows : public QObject, public platform::Windows {
  Q_OBJECT

 public:
  ProgramWindows(std::function<void()> changeAccount, std::function<void()> askAboutHeldMails);
  ~ProgramWindows() override;

  bool ApplySkinToSystemTray() override;
  bool LoadChessGraphics() override;
  void ShowSplash() override;
  void CloseSplash() override;
  void ShowGameList() override;
  void CloseGameList() override;
  void HideGameList() override;
  void BringBackGameList() override;
  void FillGameList(std::optional<std::int32_t> selectGame) override;
  std::optional<std::int32_t> SelectedGame() override;
  void SetGameListFace(int trayPicture, const std::string& caption) override;
  void ShowMails() override;
  std::optional<std::string> AskAddress(const std::string& name,
                                        const std::string& address) override;
  void OpenBoard(bool toFront) override;
  std::optional<platform::NewGameFields> AskNewGame() override;
  void HideNewGame() override;
  void CloseNewGame() override;
  platform::NotifyChoice AskAboutNewMove(const platform::NewMove& move) override;
  bool AnswerAboutNewMove(platform::NotifyChoice choice) override;
  bool AreInUse() override;
  void RaiseFrontWindow() override;
  platform::HeldMailChoice AskAboutHeldMail(const platform::HeldMailQuestion& question) override;
  std::optional<std::string> PickMoveFile() override;
  void CloseAll() override;

  /// A splash window that shows already, or null.
  void Adopt(SplashScreen* splash) { splash_ = splash; }

  /// The options, modal.
  void OpenOptions();

  /// The dialog with the program's version, modal.
  void ShowAbout();

  /// Files dropped on the list of games go there, too.
  GivenFiles& Files() { return files_; }

  BoardWindow* OpenedBoard() const { return board_; }
  GameInterface* GameList() const { return list_; }

 private:
  void ImportGames(const QStringList& paths);

  OtherErrands errands_;
  GivenFiles files_{[this](const QStringList& paths) { ImportGames(paths); }};
  std::unique_ptr<QMenu> listMenu_;  // the last one that was opened
  boards::ChessGraphics graphics_;
  StudyDesk study_{graphics_};
  QPointer<SplashScreen> splash_;
  QPointer<GameInterface> list_;
  QPointer<BoardWindow> board_;
  QPointer<NewGameInfo> newGame_;
};

}  // namespace ui
