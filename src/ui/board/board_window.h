// SPDX-License-Identifier: GPL-3.0-or-later
// The Board window: it shows what the logic of the board holds and hands the user's actions to it.
// It opens the game of CurrentGameID when it is made, and runs the logic's closing work once when
// it closes; it deletes itself then.
#pragma once

#include <QTimer>
#include <QWidget>

#include <functional>

#include "board/game.h"
#include "boards/chess_graphics.h"
#include "ui/board/board_picture.h"

class QLabel;

namespace ui {

class BoardCommands;
class BoardStudy;
class BoardToolbar;
class CommentBox;
class DrawAnswers;
class FloatingPiece;
class LinkButton;
class MenuAccess;
class MoveListTable;
class NoteMark;
class OpponentWords;
class PieceHand;
class PiecePalette;
class PlainTextView;
class SearchDisplay;
class SetupHand;
class Trash;
class TurnTag;

class BoardWindow final : public QWidget, private board::BoardView {
  Q_OBJECT

 public:
  /// The graphics, and the study where there is one, must outlive the window. `openOptions` shows
  /// the options, and returns when they are closed.
  explicit BoardWindow(const boards::ChessGraphics& graphics,
                       std::function<void()> openOptions = {}, BoardStudy* study = nullptr);

  /// False where the window's skin failed: there is no game in it then.
  bool IsOpen() const { return open_; }

  void SetToolTips();

  const board::Game& Logic() const { return board_; }
  const BoardPicture& Picture() const { return *picture_; }

 protected:
  void closeEvent(QCloseEvent* event) override;
  void wheelEvent(QWheelEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;

 private:
  bool Browses() const;
  void Browse(int rows);

  // What the logic asks for.
  void ConstructBoard() override;
  void PaintSquare(rules::Square square, int cell) override;
  void Refresh() override;
  rules::PieceCode ExchangePawn(rules::Side side) override;
  bool AcceptSetupWarnings(const std::string& warnings) override;
  bool Visible() const override { return isVisible(); }
  void SetTimerInterval(int milliseconds) override;
  void Hide() override { hide(); }
  void Close() override;

  void BecomeIcon();
  void SetSimpleUI();
  QWidget* NewTryButton();
  void AddSkinnedControls();
  void Connect();
  void ShowGameBits(bool show);
  void ShowTags();
  void ShowNote();

  const boards::ChessGraphics& graphics_;
  BoardStudy* const study_;
  board::Game board_;
  QTimer checkTimer_;

  BoardPicture* picture_;
  PiecePalette* palette_;
  FloatingPiece* floating_;
  PieceHand* hand_ = nullptr;
  SetupHand* setupHand_ = nullptr;
  PlainTextView* playersTag_;
  TurnTag* turnTag_;
  MoveListTable* moveList_;
  OpponentWords* opponentComment_;
  CommentBox* playerComment_;
  QLabel* playerCommentLabel_;
  LinkButton* earlierComments_;
  NoteMark* noteMark_;
  SearchDisplay* searchDisplay_;
  Trash* trash_;
  BoardCommands* commands_;
  MenuAccess* menus_ = nullptr;
  BoardToolbar* toolbar_ = nullptr;
  DrawAnswers* drawAnswers_ = nullptr;
  bool open_ = false;
};

}  // namespace ui
