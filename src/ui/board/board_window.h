// SPDX-License-Identifier: GPL-3.0-or-later
// The Board window: it shows what the logic of the board holds and hands the user's actions to it.
// It opens the game of CurrentGameID when it is made, and runs the logic's closing work once when
// it closes; it deletes itself then.
#pragma once

#include <QDeadlineTimer>
#include <QTimer>
#include <QWidget>

#include <array>
#include <functional>
#include <memory>

#include "board/game.h"
#include "boards/chess_graphics.h"
#include "ui/board/board_picture.h"

class QAbstractButton;
class QLabel;
class QMenu;

namespace ui {

class BoardToolbar;
class CommentBox;
class FloatingPiece;
class MoveListTable;
class PieceHand;
class PiecePalette;
class PlainTextView;
class SearchDisplay;
class SetupHand;
class Trash;

class BoardWindow final : public QWidget, private board::BoardView {
  Q_OBJECT

 public:
  /// The graphics must outlive the window. `openOptions` shows the options, and returns when they
  /// are closed.
  explicit BoardWindow(const boards::ChessGraphics& graphics,
                       std::function<void()> openOptions = {});
  ~BoardWindow() override;

  /// False where the window's skin failed: there is no game in it then.
  bool IsOpen() const { return open_; }

  void SetToolTips();

  const board::Game& Logic() const { return board_; }
  const BoardPicture& Picture() const { return *picture_; }

 protected:
  void closeEvent(QCloseEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;

 private:
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

  void SetSimpleUI();
  void AddSkinnedControls();
  void AddDrawButtons();
  void Connect();
  void ShowOptions();
  void AddKeys();
  void ShowGameBits(bool show);
  void ClickToolbar(int button, bool byMouse = false);
  void TakeTurns(int button);
  bool LeaveComment();
  void PopUp(const std::unique_ptr<QMenu>& menu, QPoint place, QAbstractButton* opener);
  void TellQuietly(const QString& text);
  void ShowComment();
  void ShowActionsMenu(QPoint place, QAbstractButton* opener = nullptr);
  void ShowHistoryMenu(QPoint place, QAbstractButton* opener = nullptr);
  void PrintBoard();
  void BrowseTo(int row);
  void ShowPiecePalleteMenu(QPoint point);

  const boards::ChessGraphics& graphics_;
  const std::function<void()> openOptions_;
  board::Game board_;
  QTimer checkTimer_;
  QTimer quietTimer_;     // while it runs, the next is seen
  QString quietMessage_;  // in place of the opponent's comment
  int quietCount_ = 0;    // the entries of the game when it came

  BoardPicture* picture_;
  PiecePalette* palette_;
  FloatingPiece* floating_;
  PieceHand* hand_ = nullptr;
  SetupHand* setupHand_ = nullptr;
  PlainTextView* playersTag_;
  PlainTextView* turnTag_;
  MoveListTable* moveList_;
  PlainTextView* opponentComment_;
  CommentBox* playerComment_;
  QLabel* playerCommentLabel_;
  SearchDisplay* searchDisplay_;
  Trash* trash_;
  BoardToolbar* toolbar_ = nullptr;
  QWidget* logo_ = nullptr;                        // of the skinned look, as the next
  QWidget* drawLogo_ = nullptr;                    // in its place while the opponent offers a draw
  QWidget* drawAnswers_ = nullptr;                 // of the plain look
  std::array<QAbstractButton*, 2> drawButtons_{};  // Accept and Decline
  bool open_ = false;
  bool takingTurns_ = false;  // the user's move and the computer's are under way
  bool closesAfterTurns_ = false;
  QDeadlineTimer lateEscape_;  // until then one is meant for the computer's turn that is over
};

}  // namespace ui
