// SPDX-License-Identifier: GPL-3.0-or-later
// The seam to the program's windows, for the logic that opens, fills and closes them. A window is
// made on first use and gone when it is closed; opening one that is open does nothing more than
// show it. The class itself is that of a program without windows.
#pragma once

#include <cstdint>
#include <optional>
#include <stdexcept>
#include <string>
#include <vector>

#include "platform/process_state.h"

namespace platform {

/// A window can't be made for lack of the desktop's platform. Any other exception that a window's
/// opening raises is an error of the program or its files.
struct WindowError : std::runtime_error {
  using std::runtime_error::runtime_error;
};

/// What the dialog about a new move shows.
struct NewMove {
  std::string OpName;       ///< the opponent
  std::string GameName;     ///< the game's title
  std::string MoveComment;  ///< the comment of its last move, or nothing
  bool isLast = true;       ///< no other game is pending: "Next" is disabled
  std::string LastMove;     ///< as players write it, with its number
  std::int32_t gameID = -1;
};

enum class NotifyChoice { Play = 1, GameList = 2, Later = 3, Next = 4 };

/// A mail that was set aside instead of being taken, as the user is asked about it.
struct HeldMailQuestion {
  /// Where two lists of moves stand side by side.
  struct MoveRow {
    int number = 0;
    std::string stored;    ///< the move as it stands in the user's own copy; blank where none does
    std::string received;  ///< as the mail has it; blank where it has none
    bool differs = false;  ///< the same number, another move
  };

  std::string senderName;
  std::string senderAddress;
  std::string gameName;
  std::string opponent;         ///< of the stored game: his name, blank for a game that is new
  std::string opponentAddress;  ///< where the stored game's moves go; may be blank
  std::string why;              ///< one or two sentences: why it wasn't taken
  std::string whatFor;          ///< one sentence: what would change if it were
  std::vector<MoveRow> moves;   ///< all of both lists, by number
  std::string acceptCaption;    ///< such as "He has a new address"
  std::string refuseCaption;    ///< such as "Not he"
};

enum class HeldMailChoice { Accept, Refuse, Later };

class Windows {
 public:
  virtual ~Windows() = default;

  /// Loads the picture that the buttons of all windows share. False where that failed; it was
  /// reported.
  virtual bool ApplySkinToSystemTray() { return true; }

  /// Loads the chosen chess set and board. False where that failed; it was reported.
  virtual bool LoadChessGraphics() { return true; }

  /// Shown without waiting, and painted before this returns. It closes itself some seconds after
  /// the start is complete, and then hands over.
  virtual void ShowSplash() {}
  virtual void CloseSplash() {}  ///< at once and without the hand-over

  /// Shown without waiting. May raise.
  virtual void ShowGameList() {}
  virtual void CloseGameList() {}
  virtual void HideGameList() {}

  /// The board closes that took the place of the list.
  virtual void BringBackGameList() {}

  /// Reads the list of games anew, by the stored sort, where it is open.
  virtual void FillGameList(std::optional<std::int32_t> /*selectGame*/) {}
  virtual std::optional<std::int32_t> SelectedGame() { return std::nullopt; }

  /// The game list's icon and title, in a program that doesn't live in the tray.
  virtual void SetGameListFace(int /*trayPicture*/, const std::string& /*caption*/) {}

  /// The marks of the mails on their way, and the line about them, are shown as they are now.
  virtual void ShowMails() {}

  /// The dialog for the address of an opponent, modal. Nothing where the user cancelled.
  virtual std::optional<std::string> AskAddress(const std::string& /*name*/,
                                                const std::string& /*address*/) {
    return std::nullopt;
  }

  /// Makes the board for CurrentGameID and shows it, in front of all others with `toFront`. May
  /// raise.
  virtual void OpenBoard(bool /*toFront*/) {}

  /// The new game dialog, modal. What the user typed; nothing where he cancelled. It stays up as a
  /// backdrop until the board has come, or HideNewGame.
  virtual std::optional<NewGameFields> AskNewGame() { return std::nullopt; }
  virtual void HideNewGame() {}

  /// Its texts are no longer needed.
  virtual void CloseNewGame() {}

  /// The dialog about a new move, modal and in front.
  virtual NotifyChoice AskAboutNewMove(const NewMove& /*move*/) { return NotifyChoice::Later; }

  /// The user has answered elsewhere what that dialog asks: it closes with his answer. False where
  /// it isn't up.
  virtual bool AnswerAboutNewMove(NotifyChoice /*choice*/) { return false; }

  /// Whether the user has one of them before him.
  virtual bool AreInUse() { return true; }

  /// The dialog that waits for the user, else the window that he used last, comes to the front.
  virtual void RaiseFrontWindow() {}

  /// The dialog about a mail that was set aside, modal and in front. Closing it is Later.
  virtual HeldMailChoice AskAboutHeldMail(const HeldMailQuestion& /*question*/) {
    return HeldMailChoice::Later;
  }

  /// The picker for a file to import, modal. The path; nothing where the user cancelled.
  virtual std::optional<std::string> PickMoveFile() { return std::nullopt; }

  /// Closes every open window, in the order of their slots, and forgets them.
  virtual void CloseAll() {}
};

}  // namespace platform
