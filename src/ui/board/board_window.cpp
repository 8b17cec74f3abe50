// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/board/board_window.h"

#include <QCloseEvent>
#include <QCoreApplication>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QMouseEvent>
#include <QPointer>
#include <QShortcut>
#include <QToolButton>
#include <QWheelEvent>

#include <algorithm>
#include <utility>

#include "board/controls.h"
#include "board/conversation.h"
#include "board/history.h"
#include "board/opening.h"
#include "board/squares.h"
#include "board/timer.h"
#include "platform/process_state.h"
#include "platform/seams.h"
#include "platform/setting_variables.h"
#include "skin/layouts/board_layout.h"
#include "skin/look.h"
#include "skin/system_button.h"
#include "skin/task_bar.h"
#include "skin/window_skin.h"
#include "ui/board/board_commands.h"
#include "ui/board/board_study.h"
#include "ui/board/board_toolbar.h"
#include "ui/board/comment_box.h"
#include "ui/board/draw_answers.h"
#include "ui/board/exchange_pawn.h"
#include "ui/board/floating_piece.h"
#include "ui/board/game_under_hand.h"
#include "ui/board/link_button.h"
#include "ui/board/menu_access.h"
#include "ui/board/move_list_table.h"
#include "ui/board/note_mark.h"
#include "ui/board/opponent_words.h"
#include "ui/board/piece_hand.h"
#include "ui/board/piece_palette.h"
#include "ui/board/plain_board.h"
#include "ui/board/search_display.h"
#include "ui/board/setup_hand.h"
#include "ui/board/setup_warning.h"
#include "ui/board/trash.h"
#include "ui/board/turn_tag.h"
#include "widgets/cut_text.h"
#include "widgets/plain_text_view.h"
#include "widgets/shown_text.h"
#include "widgets/tool_tips.h"

namespace ui {

using namespace Qt::StringLiterals;

namespace {

constexpr int firstInterval = 250;
constexpr int mostCommentLines = 10;
constexpr int mostTagLines = 4;
constexpr int longestTitle = 120;

void SetBold(QWidget* widget, bool bold) {
  if (widget->font().bold() == bold) return;
  QFont font = widget->font();
  font.setBold(bold);
  widget->setFont(font);
}

}  // namespace

BoardWindow::BoardWindow(const boards::ChessGraphics& graphics, std::function<void()> openOptions,
                         BoardStudy* study)
    : graphics_(graphics),
      study_(study),
      board_(*this),
      picture_(new BoardPicture(graphics,
                                IsSimpleUI() ? BoardPicture::plainEdge : layouts::boardBand, this)),
      palette_(new PiecePalette(graphics, this)),
      floating_(new FloatingPiece(this)),
      playersTag_(new PlainTextView(this)),
      turnTag_(new TurnTag(this)),
      moveList_(new MoveListTable(this)),
      opponentComment_(new OpponentWords(board_, this)),
      playerComment_(new CommentBox(this)),
      playerCommentLabel_(new QLabel(this)),
      earlierComments_(new LinkButton(u"EarlierComments"_s, u"Earlier comments"_s, this)),
      noteMark_(new NoteMark(this)),
      searchDisplay_(new SearchDisplay(*this, *playerCommentLabel_, board_)),
      trash_(new Trash(this)),
      commands_(new BoardCommands({*this, board_, *picture_, *palette_, *playerComment_, study},
                                  std::move(openOptions))) {
  setObjectName(u"Board"_s);
  setAttribute(Qt::WA_DeleteOnClose);
  playersTag_->setObjectName(u"PlayersTag"_s);
  playersTag_->setAccessibleName(u"Players"_s);
  SetBold(playersTag_, true);
  playerCommentLabel_->setObjectName(u"PlayerComment_L"_s);
  playerCommentLabel_->setBuddy(playerComment_);
  drawAnswers_ = new DrawAnswers(*this, [this](bool accept) { commands_->DecideDraw(accept); });
  toolbar_ = new BoardToolbar(
      *this, [this](int button, bool byMouse) { commands_->Click(button, byMouse); });
  menus_ = new MenuAccess(*this, board_, *picture_, *moveList_, commands_->Actions());
  if (!IsSimpleUI()) AddSkinnedControls();
  hand_ = new PieceHand(std::make_unique<GameUnderHand>(board_), *picture_, *floating_, this);
  setupHand_ = new SetupHand(board_, *picture_, *palette_, *trash_, *floating_, this);
  palette_->hide();
  open_ = TakeLook(*this, layouts::board, [this] { SetSimpleUI(); });
  if (!open_) return;
  Connect();
  if (study_) study_->Open();
  board::Form_Load(board_);
  SetToolTips();
  Refresh();
  toolbar_->RefreshBoardButtons();
  picture_->setFocus();
  checkTimer_.start(firstInterval);
}

void BoardWindow::SetSimpleUI() {
  playersTag_->SetMostLines(mostTagLines);
  turnTag_->SetMostLines(mostTagLines);
  opponentComment_->SetMostLines(mostCommentLines);
  auto* buttons = new QGridLayout;
  buttons->setSpacing(8);
  toolbar_->LayOut(*buttons);

  auto* menus = new QHBoxLayout;
  menus->setSpacing(0);
  for (QAbstractButton* button : menus_->Buttons()) menus->addWidget(button);
  if (study_) menus->addWidget(NewTryButton());
  menus->addStretch();
  LayOut(*this, {picture_, menus, playersTag_, turnTag_, drawAnswers_->Row(), moveList_, palette_,
                 opponentComment_, noteMark_, earlierComments_, playerComment_,
                 searchDisplay_->NewPlace(), trash_, buttons});
}

QWidget* BoardWindow::NewTryButton() {
  auto* button = new QToolButton(this);
  button->setObjectName(u"TryMovesButton"_s);
  button->setText(u"Try &moves"_s);
  button->setAutoRaise(true);
  button->setFocusPolicy(Qt::TabFocus);
  connect(button, &QAbstractButton::clicked, this, [this] { commands_->Actions().tryMoves(); });
  return button;
}

/// What a window without a frame and a menu has of its own.
void BoardWindow::AddSkinnedControls() {
  playersTag_->setVerticalScrollBarPolicy(Qt::ScrollBarAsNeeded);
  auto* paletteLabel = new QLabel(u"Pieces for the board"_s, this);
  paletteLabel->setObjectName(u"PiecePallete_L"_s);

  auto* minimise = new SystemButton(u"MinimiseButton"_s, this);
  minimise->setText(u"\u2013"_s);
  minimise->setAccessibleName(u"Minimise the board"_s);
  connect(minimise, &SystemButton::clicked, this, &BoardWindow::BecomeIcon);
}

void BoardWindow::Connect() {
  connect(&checkTimer_, &QTimer::timeout, this, [this] { board::CheckTimer(board_); });
  connect(moveList_, &MoveListTable::RowChosen, this,
          [this](int row) { board::MoveList_RowColChange(board_, row); });
  connect(earlierComments_, &QAbstractButton::clicked, this,
          [this] { commands_->Actions().showConversation(); });
  connect(noteMark_, &QAbstractButton::clicked, this, [this] { commands_->Actions().showNotes(); });
  if (study_) connect(study_, &BoardStudy::NotesChanged, this, &BoardWindow::ShowNote);
  connect(floating_, &FloatingPiece::Settled, picture_, &BoardPicture::Uncover);
  connect(playerComment_, &QPlainTextEdit::textChanged, this,
          [this] { board_.PlayerComment = playerComment_->toPlainText().toStdString(); });
  // The control that takes the focus gets it first; a message would cut that off.
  connect(playerComment_, &CommentBox::Left, commands_, &BoardCommands::LeaveComment,
          Qt::QueuedConnection);
  for (const auto& [key, rows] : {std::pair(Qt::Key_Left, -1), std::pair(Qt::Key_Right, 1)}) {
    new QShortcut(Qt::ALT | key, this, [this, rows = rows] { Browse(rows); });
  }
  if (const auto* skin = WindowSkin::Of(*this)) {
    connect(skin, &WindowSkin::Worn, toolbar_, &BoardToolbar::RefreshBoardButtons);
    connect(skin, &WindowSkin::Worn, this, &BoardWindow::Refresh);
  }
}

void BoardWindow::SetToolTips() {
  toolbar_->SetToolTips(board_);
  searchDisplay_->SetToolTips();
  menus_->SetToolTips();
  const std::pair<const char*, QString> tips[] = {
      {"AcceptDraw", u"Accept the offered draw"_s},
      {"AcceptDrawS", u"Accept the offered draw"_s},
      {"DeclineDraw", u"Decline the offered draw"_s},
      {"DeclineDrawS", u"Decline the offered draw"_s},
      {"PlayersTag", u"Your opponent"_s},
      {"OpponentComment", u"Player comments"_s},
      {"EarlierComments", u"What has been said in this game"_s},
      {"TryMovesButton", u"Try moves without playing them"_s},
      {"NoteMark", u"Your own notes, which nobody else gets (Ctrl+Shift+N)"_s},
      {"PlayerComment", u"Type a comment here"_s},
      {"MinimiseButton", u"Minimise the board"_s},
      {"MoveList", u"History of previous moves"_s},
      {"TVLogo", u"Tarvolenix v"_s + Shown(platform::GetVersionText())},
  };
  for (const auto& [name, tip] : tips) {
    if (auto* control = findChild<QWidget*>(QLatin1StringView(name))) SetTip(*control, tip);
  }
}

/// The list of moves, and the comment or the computer's progress; else what stands in their places
/// while a position is set up.
void BoardWindow::ShowGameBits(bool show) {
  const bool computerGame = platform::Process().ComputerGame;
  const bool comment = show && !computerGame;
  const bool label = IsSimpleUI() ? board_.ComputerThinking : comment || board_.ComputerThinking;
  const bool changes = palette_->isHidden() != show;
  const std::pair<const char*, bool> bits[] = {
      {"MoveList", show},
      {"Menu2Button", show},
      {"Menu2_L", show},
      {"PlayerComment", comment},
      {"TryMovesButton", show && !board_.ComputerThinking && study_ && study_->IsAvailable()},
      {"PiecePallete", !show},
      {"PiecePallete_L", !show},
      {"PlayerComment_L", label},
      {"Trash", !show},
      {"EarlierComments", comment && !board::Conversation(board_).empty()},
      {"SearchPlace", show && computerGame},
      {"TurnHint", show && computerGame && !board_.ComputerThinking},
  };
  for (const auto& [name, visible] : bits) {
    if (auto* bit = findChild<QWidget*>(QLatin1StringView(name))) bit->setVisible(visible);
  }
  if (!show) {
    palette_->setPalette(moveList_->palette());
    trash_->setPalette(moveList_->palette());
    palette_->UpdatePiecePalette();
  }
  if (!changes) return;
  if (!show) palette_->SetPiecePallete();
  SetToolTips();
  picture_->setFocus();
}

void BoardWindow::ConstructBoard() {
  for (int i = 0; i < 64; ++i) {
    const rules::Square square = rules::SquareAt(i);
    picture_->Place(square, board::PlaceOf(board_, square));
  }
}

void BoardWindow::PaintSquare(rules::Square square, int cell) {
  picture_->PaintSquare(square, cell);
}

void BoardWindow::Refresh() {
  const QWidget* focused = focusWidget();
  if (!rules::ThePosition().MoveAllowed || board_.DrawOffered) hand_->LetGo();
  setupHand_->LetGo();
  toolbar_->Show(board_);
  ShowGameBits(!platform::Process().BoardSetupMode);
  setWindowTitle(Cut(ShownLine(board_.Caption), longestTitle));
  ShowTags();
  opponentComment_->Refresh();
  ShowNote();
  moveList_->ShowMoves(board_.Moves, board::TopRow(board_));
  picture_->ShowDots(board::ShownPath(board_));
  picture_->ShowLastMove(board::ShownMove(board_));
  picture_->ShowCoordinates(board_.CoordsVisible);
  const bool thinking = board_.ComputerThinking;
  searchDisplay_->Refresh();
  moveList_->setEnabled(!thinking);
  menus_->Refresh();
  const board::BoardControls controls = board::Controls(board_);
  playerComment_->setEnabled(controls.playerComment);
  turnTag_->setVisible(IsSimpleUI() || !controls.answerDraw);
  drawAnswers_->Show(board_);
  // The next one in the row, which the toolkit gives the focus of a control that goes, may close
  // the window.
  if (focused && focused != focusWidget()) picture_->setFocus();
}

/// In the skinned look the lower one may take what the upper one leaves free.
void BoardWindow::ShowTags() {
  playersTag_->SetText(Shown(board_.PlayersTag));
  if (IsSimpleUI()) return turnTag_->Show(board_);
  constexpr layouts::Rect place = layouts::RectOf(layouts::board, "TurnTag");
  const int high = playersTag_->heightForWidth(playersTag_->width());
  turnTag_->ShowAt(board_, {place.x, place.y, place.width, place.height},
                   playersTag_->y() + std::min(high, playersTag_->height()));
}

void BoardWindow::ShowNote() {
  const bool shown = study_ && !platform::Process().BoardSetupMode;
  noteMark_->Show(shown ? study_->NoteOn(board_) : QString());
  if (IsSimpleUI()) return;
  // It takes the lowest line of what the opponent said.
  constexpr layouts::Rect place = layouts::RectOf(layouts::board, "OpponentComment");
  constexpr layouts::Rect mark = layouts::RectOf(layouts::board, "NoteMark");
  const bool marked = !noteMark_->isHidden();
  opponentComment_->setGeometry(place.x, place.y, place.width,
                                marked ? mark.y - place.y : place.height);
}

rules::PieceCode BoardWindow::ExchangePawn(rules::Side side) {
  if (commands_->WantedPiece() != rules::NoPiece) return commands_->WantedPiece();
  return ui::ExchangePawn(graphics_, side, this).Choose();
}

bool BoardWindow::AcceptSetupWarnings(const std::string& warnings) {
  SetupWarningForm form(Shown(warnings), this);
  form.exec();
  return !form.FormCanceled;
}

void BoardWindow::SetTimerInterval(int milliseconds) { checkTimer_.setInterval(milliseconds); }

void BoardWindow::Close() {
  setEnabled(true);
  close();
}

void BoardWindow::mousePressEvent(QMouseEvent* event) {
  // What arrives here is a press beside the controls, or on the board with no hand for it.
  const bool onBoard = picture_->geometry().contains(event->pos());
  const bool left = event->button() == Qt::LeftButton;
  if (left && onBoard) board::ClickCoordsAway(board_);
  if (board_.HilightVisible) board::RemoveHilight(board_);
}

void BoardWindow::keyPressEvent(QKeyEvent* event) {
  if (board_.ComputerThinking) {
    if (event->key() == Qt::Key_Escape) searchDisplay_->Cancel();
    return;
  }
  if (event->key() == Qt::Key_Escape) {
    // One that is still down has stopped the computer; another came too late for that.
    if (!event->isAutoRepeat() && !commands_->EscapeIsLate()) BecomeIcon();
  } else if (event->key() == Qt::Key_F1) {
    platform::TheSeams().help->ShowHelp(platform::HelpOfBoard);
  } else if (event->key() == Qt::Key_Left || event->key() == Qt::Key_Right) {
    Browse(event->key() == Qt::Key_Left ? -1 : 1);
  } else if (!menus_->Press(event->keyCombination())) {
    QWidget::keyPressEvent(event);
  }
}

/// Where nothing could bring it back the window stays as it is.
void BoardWindow::BecomeIcon() {
  if (TaskBarShowsWindows()) showMinimized();
}

/// Over the board the wheel goes through the moves as it does over their list.
void BoardWindow::wheelEvent(QWheelEvent* event) {
  if (Browses()) QCoreApplication::sendEvent(moveList_->viewport(), event);
}

bool BoardWindow::Browses() const {
  return moveList_->isVisible() && moveList_->isEnabled() && !board_.ComputerThinking;
}

void BoardWindow::Browse(int rows) {
  if (Browses()) moveList_->Step(rows);
}

void BoardWindow::resizeEvent(QResizeEvent* event) {
  QWidget::resizeEvent(event);
  if (!IsSimpleUI() || !isVisible() || isMaximized() || isFullScreen()) return;
  platform::Settings().BoardWidth = width();
  platform::Settings().BoardHeight = height();
}

void BoardWindow::closeEvent(QCloseEvent* event) {
  if (!open_) return;
  if (commands_->PutsOffClosing()) {
    searchDisplay_->Cancel();
    event->ignore();
    return;
  }
  // While a move is on its way only the logic closes the window.
  if (!isEnabled() && !platform::Process().Stopping) {
    event->ignore();
    return;
  }
  if (board_.ClosingDown) return;
  // The user's own close, by a key or the frame's button.
  if (event->spontaneous()) {
    const QPointer<BoardWindow> self(this);
    const bool mayClose = board::MayClose(board_);
    if (!self || board_.ClosingDown) return;
    if (!mayClose) return event->ignore();
  }
  checkTimer_.stop();
  board::Form_Unload(board_);
}

}  // namespace ui
