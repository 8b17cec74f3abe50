// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/board/board_window.h"

#include <QAccessible>
#include <QCloseEvent>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QIcon>
#include <QKeyEvent>
#include <QLabel>
#include <QMouseEvent>
#include <QPointer>
#include <QPushButton>
#include <QScreen>
#include <QShortcut>
#include <QVBoxLayout>

#include <utility>

#include "board/controls.h"
#include "board/ends.h"
#include "board/history.h"
#include "board/moving.h"
#include "board/opening.h"
#include "board/setup.h"
#include "board/squares.h"
#include "board/timer.h"
#include "platform/busy_pointer.h"
#include "platform/process_state.h"
#include "platform/seams.h"
#include "platform/setting_variables.h"
#include "print/printing.h"
#include "skin/layouts/board_layout.h"
#include "skin/look.h"
#include "skin/program_pictures.h"
#include "skin/system_button.h"
#include "skin/window_skin.h"
#include "ui/board/board_menus.h"
#include "ui/board/board_toolbar.h"
#include "ui/board/comment_box.h"
#include "ui/board/exchange_pawn.h"
#include "ui/board/floating_piece.h"
#include "ui/board/move_list_table.h"
#include "ui/board/piece_hand.h"
#include "ui/board/piece_palette.h"
#include "ui/board/search_display.h"
#include "ui/board/setup_hand.h"
#include "ui/board/setup_warning.h"
#include "ui/board/trash.h"
#include "widgets/cut_text.h"
#include "widgets/disabled_window.h"
#include "widgets/menu_opener.h"
#include "widgets/plain_text_view.h"
#include "widgets/shown_text.h"
#include "widgets/tool_tips.h"

namespace ui {

using namespace Qt::StringLiterals;

namespace {

constexpr int firstInterval = 250;
constexpr int lateEscapeMilliseconds = 1500;
constexpr int longestBoldComment = 100;
constexpr int mostCommentLines = 10;
constexpr int mostTagLines = 4;
constexpr int quietMilliseconds = 8000;
constexpr int longestTitle = 120;

/// Why everything is grey; nothing where the user can move.
QString OfflineNotice() {
  const platform::ProcessState& process = platform::Process();
  if (!process.Offline || process.StandAlone || process.ComputerGame) return {};
  return u"You are working offline: moves can't be made or sent until your mail service is "
         u"reached."_s;
}

/// Whose turn it is, and what the game is called.
QString TurnLines(const board::Game& game) {
  QStringList lines;
  for (const std::string& line : {board::TurnInWords(game), game.Title}) {
    if (!line.empty()) lines << ShownLine(line);
  }
  return lines.join(u'\n');
}

/// A place for widgets of which one is seen at a time: as large as any of them wants it, so that
/// nothing else moves when they change.
QGridLayout* NewSharedPlace(std::initializer_list<QWidget*> widgets) {
  auto* place = new QGridLayout;
  for (QWidget* widget : widgets) {
    QSizePolicy policy = widget->sizePolicy();
    policy.setRetainSizeWhenHidden(true);
    widget->setSizePolicy(policy);
    place->addWidget(widget, 0, 0);
  }
  return place;
}

/// Of the plain window, as the user has left it. Empty until he has resized it.
QSize RememberedSize() {
  const platform::SettingVariables& settings = platform::Settings();
  return {settings.BoardWidth, settings.BoardHeight};
}

void SetBold(QWidget* widget, bool bold) {
  if (widget->font().bold() == bold) return;
  QFont font = widget->font();
  font.setBold(bold);
  widget->setFont(font);
}

}  // namespace

BoardWindow::BoardWindow(const boards::ChessGraphics& graphics, std::function<void()> openOptions)
    : graphics_(graphics),
      openOptions_(std::move(openOptions)),
      board_(*this),
      picture_(new BoardPicture(graphics,
                                IsSimpleUI() ? BoardPicture::plainEdge : layouts::boardBand, this)),
      palette_(new PiecePalette(graphics, this)),
      floating_(new FloatingPiece(this)),
      playersTag_(new PlainTextView(this)),
      turnTag_(new PlainTextView(this)),
      moveList_(new MoveListTable(this)),
      opponentComment_(new PlainTextView(this)),
      playerComment_(new CommentBox(this)),
      playerCommentLabel_(new QLabel(this)),
      searchDisplay_(new SearchDisplay(*this, *playerCommentLabel_, board_)),
      trash_(new Trash(this)) {
  setObjectName(u"Board"_s);
  setAttribute(Qt::WA_DeleteOnClose);
  playersTag_->setObjectName(u"PlayersTag"_s);
  SetBold(playersTag_, true);
  turnTag_->setObjectName(u"TurnTag"_s);
  opponentComment_->setObjectName(u"OpponentComment"_s);
  opponentComment_->setVerticalScrollBarPolicy(Qt::ScrollBarAsNeeded);
  playerCommentLabel_->setObjectName(u"PlayerComment_L"_s);
  playerCommentLabel_->setBuddy(playerComment_);
  AddDrawButtons();
  toolbar_ =
      new BoardToolbar(*this, [this](int button, bool byMouse) { ClickToolbar(button, byMouse); });
  if (!IsSimpleUI()) AddSkinnedControls();
  hand_ = new PieceHand(board_, *picture_, *floating_, this);
  setupHand_ = new SetupHand(board_, *picture_, *palette_, *trash_, *floating_, this);
  palette_->hide();
  open_ = TakeLook(*this, layouts::board, [this] { SetSimpleUI(); });
  if (!open_) return;
  Connect();
  AddKeys();
  board::Form_Load(board_);
  SetToolTips();
  Refresh();
  toolbar_->RefreshBoardButtons();
  picture_->setFocus();
  checkTimer_.start(firstInterval);
}

BoardWindow::~BoardWindow() { platform::TheSeams().hooks.quietMessage = {}; }

void BoardWindow::SetSimpleUI() {
  playersTag_->SetMostLines(mostTagLines);
  turnTag_->SetMostLines(mostTagLines);
  opponentComment_->SetMostLines(mostCommentLines);
  auto* buttons = new QGridLayout;
  buttons->setSpacing(8);
  toolbar_->LayOut(*buttons);

  auto* side = new QVBoxLayout;
  side->setSpacing(8);
  side->addWidget(playersTag_);
  side->addWidget(turnTag_);
  side->addWidget(drawAnswers_);
  side->addLayout(NewSharedPlace({moveList_, palette_}), 1);
  side->addWidget(opponentComment_);
  side->addLayout(NewSharedPlace({playerComment_, searchDisplay_->NewPlace(), trash_}));
  side->addSpacing(8);
  side->addLayout(buttons);

  // The board brings its own margin along.
  constexpr int margin = BoardPicture::plainEdge;
  side->setContentsMargins(0, margin, margin, margin);
  auto* layout = new QHBoxLayout(this);
  layout->setContentsMargins(0, 0, 0, 0);
  layout->setSpacing(0);
  layout->addWidget(picture_, 1);
  layout->addLayout(side);
  // As large as it likes, where the screen has room for it and its title bar.
  const QSize size = RememberedSize().isEmpty() ? sizeHint() : RememberedSize();
  resize(size.boundedTo(screen()->availableSize() - QSize(16, 48)));
}

/// What a window without a frame and a menu has of its own.
void BoardWindow::AddSkinnedControls() {
  playersTag_->setVerticalScrollBarPolicy(Qt::ScrollBarAsNeeded);
  const auto newLogo = [this](QLatin1StringView name, const QString& picture) {
    auto* logo = new QLabel(this);
    logo->setObjectName(name);
    logo->setPixmap(
        QIcon(ProgramPicturePath(picture)).pixmap(layouts::RectOf(layouts::board, "TVLogo").width));
    return logo;
  };
  logo_ = newLogo("TVLogo"_L1, u"tarvolenix.png"_s);
  drawLogo_ = newLogo("DrawLogo"_L1, u"draw.png"_s);

  auto* paletteLabel = new QLabel(u"Pieces for the board"_s, this);
  paletteLabel->setObjectName(u"PiecePallete_L"_s);

  struct MenuButton {
    const char* name;
    const char* caption;
    void (BoardWindow::*show)(QPoint place, QAbstractButton* opener);
  };
  static constexpr MenuButton menus[] = {
      {"Menu1Button", "Actions", &BoardWindow::ShowActionsMenu},
      {"Menu2Button", "Move history", &BoardWindow::ShowHistoryMenu}};
  for (const MenuButton& entry : menus) {
    auto* button = new SystemButton(QLatin1StringView(entry.name), this);
    button->setText(QLatin1StringView(entry.caption));
    // As a menu does, on the press; the menu takes the release.
    connect(button, &SystemButton::pressed, this, [this, button, show = entry.show] {
      (this->*show)(mapToGlobal(button->Place().bottomLeft() + QPoint(0, 1)), button);
      button->setDown(false);
    });
  }
  auto* minimise = new SystemButton(u"MinimiseButton"_s, this);
  minimise->setText(u"\u2013"_s);
  minimise->setAccessibleName(u"Minimise the board"_s);
  connect(minimise, &SystemButton::clicked, this, &QWidget::showMinimized);
}

/// The answers to an offer of a draw, in place while there is one to answer.
void BoardWindow::AddDrawButtons() {
  struct Answer {
    const char* name;
    const char* plainName;
    const char* caption;
    const char* plainCaption;
  };
  static constexpr Answer answers[] = {{"AcceptDraw", "AcceptDrawS", "Accept", "&Accept"},
                                       {"DeclineDraw", "DeclineDrawS", "Decline", "&Decline"}};
  QHBoxLayout* row = nullptr;
  if (IsSimpleUI()) {
    drawAnswers_ = new QWidget(this);
    row = new QHBoxLayout(drawAnswers_);
    row->setContentsMargins(0, 0, 0, 0);
  }
  for (std::size_t i = 0; i < drawButtons_.size(); ++i) {
    const Answer& answer = answers[i];
    QAbstractButton* button = nullptr;
    if (row) {
      auto* plain = new QPushButton(QLatin1StringView(answer.plainCaption), drawAnswers_);
      plain->setObjectName(QLatin1StringView(answer.plainName));
      plain->setAutoDefault(true);
      row->addWidget(plain);
      button = plain;
    } else {
      button = new SystemButton(QLatin1StringView(answer.name), this);
      button->setText(QLatin1StringView(answer.caption));
    }
    connect(button, &QAbstractButton::clicked, this, [this, accept = i == 0] {
      if (!LeaveComment()) board::DecideDraw(board_, accept);
    });
    drawButtons_[i] = button;
  }
}

void BoardWindow::Connect() {
  platform::TheSeams().hooks.quietMessage = [this](const std::string& text) {
    TellQuietly(ShownLine(text));
  };
  quietTimer_.setSingleShot(true);
  connect(&quietTimer_, &QTimer::timeout, this, &BoardWindow::ShowComment);
  connect(&checkTimer_, &QTimer::timeout, this, [this] { board::CheckTimer(board_); });
  connect(moveList_, &MoveListTable::RowChosen, this,
          [this](int row) { board::MoveList_RowColChange(board_, row); });
  connect(moveList_, &QWidget::customContextMenuRequested, this,
          [this](QPoint point) { ShowHistoryMenu(moveList_->viewport()->mapToGlobal(point)); });
  picture_->setContextMenuPolicy(Qt::CustomContextMenu);
  connect(picture_, &QWidget::customContextMenuRequested, this,
          [this](QPoint point) { ShowActionsMenu(picture_->mapToGlobal(point)); });
  connect(palette_, &QWidget::customContextMenuRequested, this, &BoardWindow::ShowPiecePalleteMenu);
  connect(floating_, &FloatingPiece::Settled, picture_, &BoardPicture::Uncover);
  connect(playerComment_, &QPlainTextEdit::textChanged, this,
          [this] { board_.PlayerComment = playerComment_->toPlainText().toStdString(); });
  // The control that takes the focus gets it first; a message would cut that off.
  connect(playerComment_, &CommentBox::Left, this, &BoardWindow::LeaveComment,
          Qt::QueuedConnection);
  if (const auto* skin = WindowSkin::Of(*this)) {
    connect(skin, &WindowSkin::Worn, toolbar_, &BoardToolbar::RefreshBoardButtons);
    connect(skin, &WindowSkin::Worn, this, &BoardWindow::Refresh);
  }
}

/// What the menus name as the keys of their entries, whatever has the focus.
void BoardWindow::AddKeys() {
  const auto press = [this](int button, bool board::BoardControls::*offered) {
    return [this, button, offered] {
      if (board::Controls(board_).*offered) ClickToolbar(button);
    };
  };
  const auto send = press(board::SendButton, &board::BoardControls::send);
  new QShortcut(Qt::CTRL | Qt::Key_Return, this, send);
  new QShortcut(Qt::CTRL | Qt::Key_Enter, this, send);
  new QShortcut(QKeySequence::Undo, this, press(board::UndoButton, &board::BoardControls::undo));
}

void BoardWindow::SetToolTips() {
  toolbar_->SetToolTips();
  searchDisplay_->SetToolTips();
  const bool setup = platform::Process().BoardSetupMode;
  const std::pair<const char*, QString> tips[] = {
      {"AcceptDraw", u"Accept the offered draw"_s},
      {"AcceptDrawS", u"Accept the offered draw"_s},
      {"DeclineDraw", u"Decline the offered draw"_s},
      {"DeclineDrawS", u"Decline the offered draw"_s},
      {"Menu1Button", u"Actions menu"_s},
      {"Menu2Button", setup ? u"Piece pallete menu"_s : u"Move history menu"_s},
      {"PlayersTag", u"Your opponent"_s},
      {"OpponentComment", u"Player comments"_s},
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
      {"PlayerComment", comment},
      {"PiecePallete", !show},
      {"PiecePallete_L", !show},
      {"PlayerComment_L", label},
      {"Trash", !show},
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
  playersTag_->SetText(Shown(board_.PlayersTag));
  turnTag_->SetText(TurnLines(board_));
  if (board_.Moves.Count() != quietCount_) quietTimer_.stop();
  ShowComment();
  moveList_->ShowMoves(board_.Moves, board::TopRow(board_));
  picture_->ShowDots(board::ShownPath(board_));
  picture_->ShowLastMove(board::ShownMove(board_));
  picture_->ShowCoordinates(board_.CoordsVisible);
  const bool thinking = board_.ComputerThinking;
  searchDisplay_->Refresh();
  moveList_->setEnabled(!thinking);
  SetButtonEnabled(*this, u"Menu1Button"_s, !thinking);
  SetButtonEnabled(*this, u"Menu2Button"_s, !thinking && board_.Moves.Count() > 0);
  const board::BoardControls controls = board::Controls(board_);
  playerComment_->setEnabled(controls.playerComment);
  for (QAbstractButton* button : drawButtons_) button->setVisible(controls.answerDraw);
  turnTag_->setVisible(IsSimpleUI() || !controls.answerDraw);
  if (drawAnswers_) drawAnswers_->setVisible(controls.answerDraw);
  if (logo_) logo_->setVisible(!board_.DrawButtonsUp);
  if (drawLogo_) drawLogo_->setVisible(board_.DrawButtonsUp);
  // The next one in the row, which the toolkit gives the focus of a control that goes, may close
  // the window.
  if (focused && focused != focusWidget()) picture_->setFocus();
}

void BoardWindow::ShowComment() {
  const QString comment = quietTimer_.isActive() ? quietMessage_ : Shown(board_.OpponentComment);
  SetBold(opponentComment_, !comment.isEmpty() && comment.size() <= longestBoldComment);
  opponentComment_->SetText(comment.isEmpty() ? OfflineNotice() : comment);
}

/// Why something was refused, for those who want no box for it.
void BoardWindow::TellQuietly(const QString& text) {
  quietMessage_ = text;
  quietCount_ = board_.Moves.Count();
  quietTimer_.start(quietMilliseconds);
  ShowComment();
  QAccessibleEvent alert(opponentComment_, QAccessible::Alert);
  QAccessible::updateAccessibility(&alert);
}

rules::PieceCode BoardWindow::ExchangePawn(rules::Side side) {
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

void BoardWindow::ClickToolbar(int button, bool byMouse) {
  const bool sends = !platform::Process().BoardSetupMode &&
                     (button == board::SendButton || button == board::ResendButton);
  if (!sends) {
    if (button == board::SurrenderButton && LeaveComment()) return;
    // A press of the mouse on the button is no accident.
    if (button == board::CloseButton && !byMouse && !board::MayClose(board_)) return;
    board::ToolbarClick(board_, button);
    return;
  }
  const QPointer<BoardWindow> self(this);
  if (button == board::SendButton && !board::MaySend(board_)) return;
  if (!self || board_.ClosingDown) return;
  if (platform::Process().ComputerGame) return TakeTurns(button);
  // A shortcut sends without taking the focus from the comment.
  if (LeaveComment()) return;
  const DisabledWindow disabled(*this);
  const platform::BusyPointer busy;
  board::ToolbarClick(board_, button);
}

/// The window lives on while the computer thinks. It closes when the turn, which is still at work
/// in it, is over: soon, as the search is cancelled then.
void BoardWindow::TakeTurns(int button) {
  picture_->setFocus();
  takingTurns_ = true;
  board::ToolbarClick(board_, button);
  takingTurns_ = false;
  lateEscape_.setRemainingTime(lateEscapeMilliseconds);
  if (!closesAfterTurns_) return;
  close();
  // The list that comes back for the board is too late for the end of the program.
  if (platform::Process().Stopping) platform::TheSeams().windows->CloseAll();
}

/// True where the comment was cleaned and the user told, and should look at it again.
bool BoardWindow::LeaveComment() {
  if (board_.ClosingDown || !board::CleanPlayerComment(board_)) return false;
  playerComment_->setPlainText(AsItIs(board_.PlayerComment));
  playerComment_->setFocus();
  return true;
}

/// Opened by a button, the menu leaves the keys to the board. What is chosen may close the window.
void BoardWindow::PopUp(const std::unique_ptr<QMenu>& menu, QPoint place, QAbstractButton* opener) {
  if (opener) GiveKeysBack(*menu, *picture_, opener);
  menu->exec(place);
}

void BoardWindow::ShowActionsMenu(QPoint place, QAbstractButton* opener) {
  if (board_.ComputerThinking) return;
  const BoardActions actions{[this](int button) { ClickToolbar(button); },
                             [this] {
                               if (!LeaveComment()) board::OfferDraw(board_);
                             },
                             [this] { ShowOptions(); }, [this] { PrintBoard(); }};
  const bool setup = platform::Process().BoardSetupMode;
  PopUp(setup ? NewSetupMenu(board_, actions) : NewActionsMenu(board_, actions), place, opener);
}

/// The chess set may be another one behind that.
void BoardWindow::ShowOptions() {
  if (LeaveComment()) return;
  const QPointer<BoardWindow> self(this);
  openOptions_();
  if (!self || board_.ClosingDown) return;
  if (!platform::TheSeams().windows->LoadChessGraphics()) return Close();
  picture_->TakeGraphics();
  board::DisplayBoardState(board_, true);
  if (platform::Process().BoardSetupMode) palette_->SetPiecePallete();
}

void BoardWindow::PrintBoard() {
  const QPointer<BoardWindow> self(this);
  board_.LockedForDialog = true;
  print::PrintCurrentBoardState(board_);
  if (self) board_.LockedForDialog = false;
}

void BoardWindow::ShowHistoryMenu(QPoint place, QAbstractButton* opener) {
  if (board_.Moves.Count() == 0 || platform::Process().BoardSetupMode) return;
  const auto toggleHilight = [this] {
    if (board_.HilightAsked) {
      board::RemoveHilight(board_);
    } else {
      board::AskForHilight(board_);
    }
  };
  const auto select = [this](int row) { board::MoveList_RowColChange(board_, row); };
  PopUp(NewHistoryMenu(board_, {toggleHilight, select}), place, opener);
}

void BoardWindow::BrowseTo(int row) {
  const bool mayBrowse = board_.Moves.Count() > 0 && !platform::Process().BoardSetupMode;
  if (mayBrowse) board::MoveList_RowColChange(board_, row);
}

void BoardWindow::ShowPiecePalleteMenu(QPoint point) {
  const rules::PieceCode piece = palette_->PieceUnder(point);
  if (piece == rules::NoPiece || rules::KindOf(piece) == rules::WhiteKing) return;
  NewPiecePalleteMenu([this, piece] {
    board::RemovePieces(board_, piece);
  })->exec(palette_->mapToGlobal(point));
}

void BoardWindow::mousePressEvent(QMouseEvent* event) {
  // What arrives here is a press beside the controls, or on the board with no hand for it.
  const bool onBoard = picture_->geometry().contains(event->pos());
  const bool left = event->button() == Qt::LeftButton;
  if (left && onBoard && board_.CoordsVisible) board::ToggleCoords(board_);
  if (board_.HilightVisible) board::RemoveHilight(board_);
}

void BoardWindow::keyPressEvent(QKeyEvent* event) {
  if (board_.ComputerThinking) {
    if (event->key() == Qt::Key_Escape) searchDisplay_->Cancel();
    return;
  }
  if (event->key() == Qt::Key_Escape) {
    // One that is still down has stopped the computer; another came too late for that.
    if (!event->isAutoRepeat() && lateEscape_.hasExpired()) showMinimized();
  } else if (event->key() == Qt::Key_Home || event->key() == Qt::Key_End) {
    BrowseTo(event->key() == Qt::Key_Home ? 1 : board_.Moves.Count());
  } else if (event->key() == Qt::Key_F1) {
    platform::TheSeams().help->ShowHelp(platform::HelpOfBoard);
  } else {
    QWidget::keyPressEvent(event);
  }
}

void BoardWindow::resizeEvent(QResizeEvent* event) {
  QWidget::resizeEvent(event);
  if (!IsSimpleUI() || !isVisible() || isMaximized() || isFullScreen()) return;
  platform::Settings().BoardWidth = width();
  platform::Settings().BoardHeight = height();
}

void BoardWindow::closeEvent(QCloseEvent* event) {
  if (!open_) return;
  if (takingTurns_) {
    searchDisplay_->Cancel();
    closesAfterTurns_ = true;
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
