// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/board_window.h"

#include <QCloseEvent>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPushButton>
#include <QScreen>
#include <QVBoxLayout>

#include <optional>

#include "platform/busy_pointer.h"
#include "platform/process_state.h"
#include "platform/setting_variables.h"
#include "ui/board_menus.h"
#include "ui/comment_box.h"
#include "ui/disabled_window.h"
#include "ui/exchange_pawn.h"
#include "ui/move_list_table.h"
#include "ui/piece_hand.h"
#include "ui/plain_text_view.h"
#include "ui/shown_text.h"

namespace ui {

using namespace Qt::StringLiterals;

namespace {

constexpr int firstInterval = 250;
constexpr int longestBoldComment = 100;
constexpr int mostCommentLines = 10;  ///< beyond that it scrolls

/// The plain action bar: number and tip of each button, in the order in which they stand, two a
/// row.
struct ToolbarEntry {
  int button;
  const char* toolTip;
};
constexpr ToolbarEntry toolbarEntries[] = {
    {board::ViewButton, "VIEW - Toggle between board views"},
    {board::CoordinatesButton, "COORDINATES - Display the board coordinates"},
    {board::UndoButton, "UNDO - Reverse your last move"},
    {board::SendButton, "SEND - Send the move to your opponent"},
    {board::ResendButton, "RESEND - Send your last move to your opponent again"},
    {board::CloseButton, "CLOSE - Close the form"},
};

std::size_t Slot(int button) { return static_cast<std::size_t>(button); }

/// Why everything is grey; nothing where the user can move.
QString OfflineNotice() {
  const platform::ProcessState& process = platform::Process();
  if (!process.Offline || process.StandAlone || process.ComputerGame) return {};
  return u"You are working offline: moves can't be made or sent until your mail service is "
         u"reached."_s;
}

void SetBold(QWidget* widget, bool bold) {
  if (widget->font().bold() == bold) return;
  QFont font = widget->font();
  font.setBold(bold);
  widget->setFont(font);
}

}  // namespace

BoardWindow::BoardWindow(const ChessGraphics& graphics)
    : graphics_(graphics),
      board_(*this),
      picture_(new BoardPicture(graphics, this)),
      playersTag_(new PlainTextView(this)),
      moveList_(new MoveListTable(this)),
      opponentComment_(new PlainTextView(this)),
      playerComment_(new CommentBox(this)) {
  setObjectName(u"Board"_s);
  setAttribute(Qt::WA_DeleteOnClose);
  hand_ = new PieceHand(board_, *picture_, this);
  LayOut();
  Connect();
  SetToolTips();
  board_.Form_Load();
  Refresh();
  checkTimer_.start(firstInterval);
}

void BoardWindow::LayOut() {
  playersTag_->setObjectName(u"PlayersTag"_s);
  SetBold(playersTag_, true);
  opponentComment_->setObjectName(u"OpponentComment"_s);
  opponentComment_->setMaximumHeight(mostCommentLines * fontMetrics().lineSpacing());
  opponentComment_->setVerticalScrollBarPolicy(Qt::ScrollBarAsNeeded);

  auto* buttons = new QGridLayout;
  buttons->setSpacing(8);
  int place = 0;
  for (const ToolbarEntry& entry : toolbarEntries) {
    auto* button = new QPushButton(this);
    button->setObjectName(u"Toolbar1S_%1"_s.arg(entry.button));
    button->setAutoDefault(true);  // so that Enter presses it too
    toolbar_[Slot(entry.button)] = button;
    buttons->addWidget(button, place / 2, place % 2);
    ++place;
  }

  auto* side = new QVBoxLayout;
  side->setSpacing(8);
  side->addWidget(playersTag_);
  side->addWidget(moveList_, 1);
  side->addWidget(opponentComment_);
  side->addWidget(playerComment_);
  side->addSpacing(8);
  side->addLayout(buttons);

  // The board brings its own margin along.
  constexpr int margin = BoardPicture::edge;
  side->setContentsMargins(0, margin, margin, margin);
  auto* layout = new QHBoxLayout(this);
  layout->setContentsMargins(0, 0, 0, 0);
  layout->setSpacing(0);
  layout->addWidget(picture_, 1);
  layout->addLayout(side);
  // As large as it likes, where the screen has room for it and its title bar.
  resize(sizeHint().boundedTo(screen()->availableSize() - QSize(16, 48)));
  picture_->setFocus();
}

void BoardWindow::Connect() {
  connect(&checkTimer_, &QTimer::timeout, this, [this] { board_.CheckTimer(); });
  connect(moveList_, &MoveListTable::RowChosen, this,
          [this](int row) { board_.MoveList_RowColChange(row); });
  connect(moveList_, &QWidget::customContextMenuRequested, this,
          [this](QPoint point) { ShowHistoryMenu(moveList_->viewport()->mapToGlobal(point)); });
  picture_->setContextMenuPolicy(Qt::CustomContextMenu);
  connect(picture_, &QWidget::customContextMenuRequested, this,
          [this](QPoint point) { ShowActionsMenu(picture_->mapToGlobal(point)); });
  connect(playerComment_, &QPlainTextEdit::textChanged, this,
          [this] { board_.PlayerComment = playerComment_->toPlainText().toStdString(); });
  // The control that takes the focus gets it first; a message would cut that off.
  connect(playerComment_, &CommentBox::Left, this, &BoardWindow::LeaveComment,
          Qt::QueuedConnection);
  for (const ToolbarEntry& entry : toolbarEntries) {
    connect(toolbar_[Slot(entry.button)], &QPushButton::clicked, this,
            [this, button = entry.button] { ClickToolbar(button); });
  }
}

void BoardWindow::SetToolTips() {
  if (!platform::Settings().ShowToolTips) return;
  for (const ToolbarEntry& entry : toolbarEntries) {
    toolbar_[Slot(entry.button)]->setToolTip(QLatin1StringView(entry.toolTip));
  }
  playersTag_->setToolTip(u"Your opponent"_s);
  opponentComment_->setToolTip(u"Player comments"_s);
  playerComment_->setToolTip(u"Type a comment here"_s);
  moveList_->setToolTip(u"History of previous moves"_s);
}

void BoardWindow::ConstructBoard() {
  for (int i = 0; i < 64; ++i) {
    const rules::Square square = rules::SquareAt(i);
    picture_->Place(square, board_.PlaceOf(square));
  }
}

void BoardWindow::PaintSquare(rules::Square square, int cell) {
  picture_->PaintSquare(square, cell);
}

void BoardWindow::Refresh() {
  if (!rules::ThePosition().MoveAllowed || board_.DrawOffered) hand_->LetGo();
  setWindowTitle(Shown(board_.Caption));
  playersTag_->SetText(Shown(board_.PlayersTag));
  const QString comment = Shown(board_.OpponentComment);
  SetBold(opponentComment_, !comment.isEmpty() && comment.size() <= longestBoldComment);
  opponentComment_->SetText(comment.isEmpty() ? OfflineNotice() : comment);
  moveList_->ShowMoves(board_.Moves, board_.TopRow());
  picture_->ShowDots(board_.MovePointers);
  picture_->ShowCoordinates(board_.CoordsVisible);
  RefreshButtons();
}

void BoardWindow::RefreshButtons() {
  const board::BoardControls controls = board_.Controls();
  const auto set = [this](int button, const QString& caption, bool enabled) {
    toolbar_[Slot(button)]->setText(caption);
    toolbar_[Slot(button)]->setEnabled(enabled);
  };
  set(board::ViewButton, controls.viewIsMine ? u"&View opponent"_s : u"&View"_s,
      controls.viewAndCoordinates);
  set(board::CoordinatesButton, board_.CoordsVisible ? u"C&oords off"_s : u"C&oords on"_s,
      controls.viewAndCoordinates);
  set(board::UndoButton, u"&Undo"_s, controls.undo);
  set(board::SendButton, u"&Send"_s, controls.send);
  set(board::ResendButton, u"&Resend"_s, controls.resend);
  set(board::CloseButton, controls.closeReadsClose ? u"&Close"_s : u"&Cancel"_s, true);
  playerComment_->setEnabled(controls.playerComment);
}

rules::PieceCode BoardWindow::ExchangePawn(rules::Side side) {
  return ui::ExchangePawn(graphics_, side, this).Choose();
}

void BoardWindow::SetTimerInterval(int milliseconds) { checkTimer_.setInterval(milliseconds); }

void BoardWindow::Close() {
  setEnabled(true);
  close();
}

void BoardWindow::ClickToolbar(int button) {
  const bool sends = button == board::SendButton || button == board::ResendButton;
  if (!sends) {
    board_.ToolbarClick(button);
    return;
  }
  // A shortcut sends without taking the focus from the comment.
  if (LeaveComment()) return;
  const DisabledWindow disabled(*this);
  const platform::BusyPointer busy;
  board_.ToolbarClick(button);
}

/// True where the comment was cleaned and the user told, and should look at it again.
bool BoardWindow::LeaveComment() {
  if (board_.ClosingDown || !board_.CleanPlayerComment()) return false;
  playerComment_->setPlainText(Shown(board_.PlayerComment));
  playerComment_->setFocus();
  return true;
}

void BoardWindow::ShowActionsMenu(QPoint place) {
  NewActionsMenu(board_, [this](int button) { ClickToolbar(button); })->exec(place);
}

void BoardWindow::ShowHistoryMenu(QPoint place) {
  if (board_.Moves.Count() == 0) return;
  const auto toggleHilight = [this] {
    if (board_.HilightVisible) {
      board_.RemoveHilight();
    } else {
      board_.HilightMove(board_.Moves.Selected());
    }
  };
  const auto select = [this](int row) { board_.MoveList_RowColChange(row); };
  NewHistoryMenu(board_, {toggleHilight, select})->exec(place);
}

void BoardWindow::mousePressEvent(QMouseEvent* event) {
  // What arrives here is a press beside the controls, or on the board with no hand for it.
  const bool onBoard = picture_->geometry().contains(event->pos());
  const bool left = event->button() == Qt::LeftButton;
  if (left && onBoard && board_.CoordsVisible) board_.ToggleCoords();
  if (board_.HilightVisible) board_.RemoveHilight();
}

void BoardWindow::keyPressEvent(QKeyEvent* event) {
  if (event->key() == Qt::Key_Escape) {
    showMinimized();
  } else {
    QWidget::keyPressEvent(event);
  }
}

void BoardWindow::closeEvent(QCloseEvent* event) {
  // While a move is on its way only the logic closes the window.
  if (!isEnabled()) {
    event->ignore();
    return;
  }
  if (board_.ClosingDown) return;
  checkTimer_.stop();
  board_.Form_Unload();
}

}  // namespace ui
