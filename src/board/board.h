// SPDX-License-Identifier: GPL-3.0-or-later
// The logic of the Board window: the one place where a game is seen and played. Opening a game
// builds the whole state from the store (moves, players, position, whose turn it is); the user's
// move stays pending, and can be taken back, until it is sent; nothing survives the closing of the
// window.
//
// The operations carry the window's names. A view (BoardView) shows what this class holds.
#pragma once

#include <array>
#include <string>
#include <vector>

#include "ai/search.h"
#include "board/board_view.h"
#include "board/move_list.h"
#include "rules/notation.h"
#include "rules/position.h"
#include "store/game_record.h"

namespace board {

/// What the window's controls offer, worked out from the state of the game.
struct BoardControls {
  bool undo = false;
  bool send = false;
  bool resend = false;
  bool answerDraw = false;  ///< Accept and Decline
  bool surrender = false;   ///< and the draw offer of the menu
  bool playerComment = false;
  bool viewAndCoordinates = false;
  bool hilight = false;         ///< "Show hilight" of the history menu
  bool firstAndLast = false;    ///< "First move" and "Last move"
  bool viewIsMine = true;       ///< the board is seen from the user's own side
  bool closeReadsClose = true;  ///< else the last button reads Cancel
  bool playSetup = false;       ///< the position that is set up can be played
};

/// Buttons of the action bar. Three have another meaning while a position is set up.
enum ToolbarButton {
  ViewButton = 1,
  CoordinatesButton,
  UndoButton,
  SendButton,
  ResendButton,
  SurrenderButton,
  CloseButton,
  ResetSetupButton = SendButton,
  ClearSetupButton = ResendButton,
  PlaySetupButton = SurrenderButton
};

/// Where a square stands: columns from the left and rows from the bottom, both from 0.
struct GridPlace {
  int column = 0;
  int row = 0;
};

class Board {
 public:
  explicit Board(BoardView& view) : view_(view) {}
  Board(const Board&) = delete;
  Board& operator=(const Board&) = delete;

  // Opening and closing.
  void Form_Load();
  void SetupOptions();
  bool SetMoves();
  void BeginGame();
  void SetBoardState();
  void DisplayBoardState(bool all);
  void SetFormCaptions();
  void ChangeView();
  void ToggleCoords();
  void SetGameStatus();
  void Form_Unload();

  // Making a move. Squares are two-digit square numbers.

  /// A press of the left button; true where a drag of the square's piece begins.
  bool CBoard_MouseDown(int square);
  void CBoard_DragDrop(int square, int source);
  void MovePiece(int toSquare, int fromSquare);
  void TakePiece(int toSquare, int fromSquare);
  void ClassifyMove(rules::LastMove move);
  void CheckNotification();
  void DisplaySelfCheckMessage(rules::PieceCode piece);
  void DeterminIfDrawForced();
  void UndoLastMove();

  // The history.
  void UpdateMoveList(const rules::PlayedMove& move, const std::string& comment);
  void RemoveLastMove();
  void MoveThroughHistory();
  void MoveList_RowColChange(int row);
  void HilightMove(int row);
  void RemoveHilight();
  void DisplayPlayerComment();
  int TopRow() const;  ///< the first row that the list should show

  // Saving and sending.
  void ToolbarClick(int button);
  bool SaveMove();
  void SendNewMove();
  void ResendLastMove();

  // Entries that are not moves, and the ends of games.
  void OfferDraw();
  void SurrenderGame();
  void DecideDraw(bool accept);
  void ConfirmDraw();
  bool WonGame() const;
  void DisplayMateMessage();
  void DisplayDrawMessage();
  int SquareCell(rules::Square square) const;
  void CheckTimer();

  /// One turn of the computer, as Black, from the search to the stored move. Events run meanwhile.
  void MakeComputerMove();

  // Setting up a position.
  void BeginBoardSetup();

  /// A press on a picture of the palette; true where a drag of the piece begins.
  bool PiecePallete_MouseDown(rules::PieceCode code);

  /// Whether another piece of the code may go on the board: a side has one king.
  bool IsOnPalette(rules::PieceCode code) const;

  /// A drop that means something: ApplySetupDrop with its sound.
  void DropInSetup(int target, int source, bool fromPalette);

  /// Carries out one drag. `target` is a square number, or 0 for off the board; `source` is the
  /// code of a piece of the palette, or a square number.
  void ApplySetupDrop(int target, int source, bool fromPalette);

  /// Takes all pieces of one code off the board that may go.
  void RemovePieces(rules::PieceCode code);

  void ResetSetup();
  void ClearSetup();
  void PlaySetup();
  bool SetupValid();
  void UpdatePiecePalette();

  /// Whether the position can't be won any more; with `warn` the user is told why.
  bool DrawForcedWarning(bool warn);

  /// Tells Black once that the game didn't start from the usual position.
  void WarnAboutSetup();

  /// Shows a king in danger that is flashed away just now.
  void ShowKing();

  BoardControls Controls() const;
  bool LastMoveIsMine() const;
  bool GameIsOver() const;
  std::string OpponentName() const { return PlaysWhite ? BlackName : WhiteName; }
  GridPlace PlaceOf(rules::Square square) const;

  /// Cleans what the user typed as a comment of reserved text and says so where that changed it.
  /// True where it did: the focus then stays in the box.
  bool CleanPlayerComment();

  std::string WhiteName;
  std::string BlackName;
  std::string Caption;          ///< the window's title
  std::string PlayersTag;       ///< "You are playing ..."
  std::string PlayerComment;    ///< what the user typed into the comment box
  std::string OpponentComment;  ///< the comment of the selected entry
  std::string StartBoard;
  MoveList Moves;
  std::vector<rules::Square> MovePointers;  ///< the dots of the highlighted move
  std::array<rules::PieceCode, 64> DisplayedBoard{};

  rules::Side ViewSide = rules::White;
  bool PlaysWhite = true;
  bool AwaitingOpponent = false;
  std::int16_t GameStatus = 0;
  std::int32_t SavedGameID = 0;
  bool Surrendered = false;
  bool GameDrawn = false;
  bool DrawOffered = false;
  bool DrawButtonsUp = false;       ///< Accept and Decline are in place
  bool DrawMessagePending = false;  ///< the opponent's offer is to be announced
  bool DrawMessageShown = false;
  bool SetupWarned = false;
  bool SetupPlayable = false;  ///< what is set up has both kings and a third piece
  bool CoordsVisible = false;
  bool HilightVisible = false;
  bool ListUpdating = false;
  bool UnloadPending = false;
  bool ClosingDown = false;
  bool MateMessageShown = false;
  bool LockedForDialog = false;
  bool NoticeUp = false;  ///< a notice of the timer is on the screen; the kings flash on
  bool FlashPhase = true;
  bool KingMarked = false;
  int SelfCheckFlashes = 0;
  int StalemateFlashes = 0;
  rules::GameStateSnapshot Undo;

  bool ComputerThinking = false;
  ai::SearchWatch Search;  ///< the search of the computer's turn, under way or the last one
  std::int16_t LastMoveScore = 0;

 private:
  BoardControls LockedControls() const;
  void CopyBoard();
  void SetButtonEnable() { view_.Refresh(); }
  void SetCaptions();
  void AddEntry(const char* moveText, bool& flag, bool value);
  void StopFlashing();
  void TakeComputersSide(bool computers);
  ai::CandidateMove SearchForMove();
  void PlayComputersMove(const ai::CandidateMove& move);
  void ClassifyComputersMove(rules::LastMove move);
  bool MayNotify() const;
  void ShowNotices();
  void LoadSetup(bool clear);
  void ReportInvalidSetup(const std::string& text);
  std::string SetupRefusal(rules::Side side);
  void PutInCheck(rules::Side side);
  bool IsCut() const;
  void PlayMove(int toSquare, int fromSquare, bool capture);
  std::vector<rules::Square> PathOf(const store::MoveRecord& entry, rules::LastMove move) const;
  void ReplayEntry(int row);
  void ReplayPieceMove(int row);
  void FindCheckAfterReplay();
  void FindTurnAfterReplay();
  void FlashKing(rules::Square king);
  void FlickerKing(int& ticksLeft, rules::Side side);
  void PaintEmpty(rules::Square square);
  void PaintNormally(rules::Square square);
  rules::PieceCode KingInDanger() const;
  bool StoreStatus() const;

  enum class Storing { Done, Failed, GameChanged };
  Storing StorePendingMove();

  /// Whether the pending entry belongs behind what is stored: nobody has played on meanwhile.
  bool Continues(const store::MoveRecords& stored) const;
  store::MoveRecords EntriesToStore(const store::MoveRecords& stored) const;
  std::int16_t StatusOfPendingMove() const;
  void FillNewGame(store::GameRecord& record, std::int32_t number) const;
  void SendGame(std::int32_t gameID);

  BoardView& view_;
};

}  // namespace board
