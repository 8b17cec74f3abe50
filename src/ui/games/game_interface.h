// SPDX-License-Identifier: GPL-3.0-or-later
// The game list window: the program's overview of all games, with its toolbar and the buttons that
// pop up its menus. It fills itself when it is shown for the first time, and deletes itself when it
// is closed.
#pragma once

#include <QIcon>
#include <QWidget>

#include <array>
#include <cstdint>
#include <optional>
#include <string>

#include "ui/games/game_list_menus.h"

class QAbstractButton;
class QLabel;

namespace ui {

class GameListGrid;

/// The buttons of the toolbar by their numbers.
enum GameListButton { PlayGameButton = 1, NewGameButton, ComputerGameButton, SetupGameButton };

class GameInterface : public QWidget {
  Q_OBJECT

 public:
  explicit GameInterface(OtherErrands errands);

  /// False where the window's skin failed: nothing happens when it closes then.
  bool IsOpen() const { return hasSkin_; }

  /// Fills the list by that sort, or by the stored one.
  void FillGameList(std::int16_t column, std::string order,
                    std::optional<std::int32_t> selectGame = {});
  void Refill(std::optional<std::int32_t> selectGame = {});

  bool HasGames() const;
  bool OffersMailGames() const;  ///< as it was when the list was last filled
  std::optional<std::int32_t> SelectedGame() const;

  /// How the mails fare: the marks in the list, and the line about all of them.
  void ShowMails();

  /// The columns that the user wants to see by now.
  void ShowColumns();

  bool MayTryAgain() const;       ///< the selected game's mail can be sent once more
  bool MayChangeAddress() const;  ///< the selected game is one by mail
  void TryAgainToSend();
  void ChangeAddress();

  void PlayCurrentGame();
  void DeleteGame();
  void UndoDelete();
  void GetGames(bool import);
  void UseOtherGames();

  // Games as other chess programs read and write them.
  void CopyGame();
  void SaveAsPgn();
  void SaveAllAsPgn();
  void ImportPgn();                               ///< of a file that the user picks
  void ImportPgnFiles(const QStringList& paths);  ///< one after the other

  /// The state of the program, where no tray shows it.
  void SetFace(const QIcon& icon, const QString& caption);

  void RefreshInterfaceButtons();
  void SetToolTips();

 protected:
  void closeEvent(QCloseEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void showEvent(QShowEvent* event) override;

 private:
  void BecomeIcon();
  void SetSimpleUI();
  void AddMenuButtons();
  void AddToolbar();
  void AddWindowButtons();
  void ClickToolbar(int button);
  void SetToolbarButton(int button, bool enabled);
  void SetToolbarTips();
  void PopUp(InterfaceMenu menu, QPoint place, QAbstractButton* opener = nullptr);

  OtherErrands errands_;
  GameListGrid* grid_;
  QLabel* mailLine_;
  std::array<QAbstractButton*, SetupGameButton + 1> toolbar_{};  // by number
  bool hasSkin_ = false;
  bool opened_ = false;
};

}  // namespace ui
