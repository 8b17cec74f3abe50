// SPDX-License-Identifier: GPL-3.0-or-later
// What the buttons, menus and keys of the Board window do. Each of them may close the window, and
// those that wait may find it gone afterwards.
#pragma once

#include <QDeadlineTimer>
#include <QObject>

#include <functional>

#include "ui/board/board_menus.h"

class QWidget;

namespace ui {

struct WantedMove;
class BoardPicture;
class BoardStudy;
class CommentBox;
class PiecePalette;
struct WhyPicture;

/// Of the window, which all of them must be as long as.
struct BoardParts {
  QWidget& window;
  board::Game& game;
  BoardPicture& picture;
  PiecePalette& palette;
  CommentBox& comment;
  BoardStudy* study;  ///< may be null
};

class BoardCommands : public QObject {
  Q_OBJECT

 public:
  /// `openOptions` shows the options, and returns when they are closed. Belongs to the window.
  BoardCommands(const BoardParts& parts, std::function<void()> openOptions);

  /// A button of the action bar, or what stands for it.
  void Click(int button, bool byMouse = false);

  void DecideDraw(bool accept);

  /// True where the comment was cleaned and the user told, and should look at it again.
  bool LeaveComment();

  BoardActions Actions();

  /// True while the computer's turn is still at work in the window, which closes when it is over.
  bool PutsOffClosing();

  /// Whether an Escape may still be meant for the computer's turn that is over.
  bool EscapeIsLate() const { return !lateEscape_.hasExpired(); }

  /// What the pawn of a tried move is to become that is being played; nothing at other times.
  rules::PieceCode WantedPiece() const { return wantedPiece_; }

 private:
  void Send(int button);
  void TakeTurns(int button);
  void OfferDraw();
  void ShowOptions();
  void OpenOptions();
  void PrintBoard();
  void ToggleHilight();
  void ShowConversation();
  void CopyShownPosition();
  void PastePosition();
  void CopyShownImage();
  void SaveGame();
  void TryMoves();
  void Play(const WantedMove& move);
  void ShowNotes();
  void AskWhy();
  bool MayAskWhy();
  void TellOfFairness();
  void Explain();
  void ShowWhy(const WhyPicture& picture);

  BoardParts parts_;
  board::Game& board_;
  const std::function<void()> openOptions_;
  rules::PieceCode wantedPiece_ = rules::NoPiece;
  bool takingTurns_ = false;  // the user's move and the computer's are under way
  bool closesAfterTurns_ = false;
  QDeadlineTimer lateEscape_;
};

}  // namespace ui
