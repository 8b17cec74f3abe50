// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/study/try_form.h"

#include <QGridLayout>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QScreen>
#include <QVBoxLayout>
#include <QWheelEvent>

#include <utility>

#include "ai/reasons.h"
#include "platform/help.h"
#include "skin/look.h"
#include "ui/board/exchange_pawn.h"
#include "ui/board/floating_piece.h"
#include "ui/board/piece_hand.h"
#include "ui/board/why_form.h"
#include "ui/help/help_key.h"
#include "ui/study/lines_view.h"
#include "ui/study/note_box.h"
#include "ui/study/tried_board.h"
#include "ui/study/try_frame.h"
#include "widgets/dialog_button.h"
#include "widgets/outcome_line.h"
#include "widgets/shown_text.h"

namespace ui {

using namespace Qt::StringLiterals;
using study::VariationTree;

/// What goes through the tree or changes it, and returns false where it can't.
struct TryForm::Command {
  const char* name;
  const char* caption;
  const char* meaning;
  std::initializer_list<QKeyCombination> keys;
  bool (*run)(VariationTree& tree);
  bool changes = false;
};

const TryForm::Command TryForm::commands[] = {
    {"FirstButton",
     "|<",
     "To where the game is now, then to its start (Home)",
     {Qt::Key_Home},
     [](VariationTree& tree) { return tree.First(); }},
    {"BackButton",
     "<",
     "One move back (Page Up or Ctrl+Left)",
     {Qt::Key_PageUp, Qt::CTRL | Qt::Key_Left},
     [](VariationTree& tree) { return tree.Back(); }},
    {"ForwardButton",
     ">",
     "One move on (Page Down or Ctrl+Right)",
     {Qt::Key_PageDown, Qt::CTRL | Qt::Key_Right},
     [](VariationTree& tree) { return tree.Forward(); }},
    {"LastButton",
     ">|",
     "To the end of the line (End)",
     {Qt::Key_End},
     [](VariationTree& tree) { return tree.Last(); }},
    {"UndoButton",
     "&Undo",
     "Brings back the line that was deleted last (Ctrl+Z)",
     {Qt::CTRL | Qt::Key_Z},
     [](VariationTree& tree) { return tree.Undelete(); },
     true},
    {"PreviousLineButton",
     "Line &above",
     "To the line above that begins here (Ctrl+Up)",
     {Qt::CTRL | Qt::Key_Up},
     [](VariationTree& tree) { return tree.PreviousSibling(); }},
    {"NextLineButton",
     "Line belo&w",
     "To the line below that begins here (Ctrl+Down)",
     {Qt::CTRL | Qt::Key_Down},
     [](VariationTree& tree) { return tree.NextSibling(); }},
    {"PromoteButton",
     "Put &first",
     "Puts this line before the others (Ctrl+Home)",
     {Qt::CTRL | Qt::Key_Home},
     [](VariationTree& tree) { return tree.Promote(tree.Cursor()); },
     true},
    {"DeleteButton",
     "&Delete line",
     "Takes this move and what follows it away (Delete)",
     {Qt::Key_Delete},
     [](VariationTree& tree) { return tree.Delete(tree.Cursor()); },
     true},
};

namespace {

constexpr int margin = 16;
constexpr int spacing = 8;
constexpr int buttonsOfFirstRow = 5;  // those with signs, and Undo
constexpr int columns = 20;           // a row of five, four or two fills them

/// The same keys without Ctrl, for the list of lines, where the arrows have nothing else to do.
const std::pair<int, QKeyCombination> keysOfLines[] = {
    {Qt::Key_Left, Qt::CTRL | Qt::Key_Left},
    {Qt::Key_Right, Qt::CTRL | Qt::Key_Right},
    {Qt::Key_Up, Qt::CTRL | Qt::Key_Up},
    {Qt::Key_Down, Qt::CTRL | Qt::Key_Down},
};

/// The tried move to which the cursor has come, else no move but the position.
board::AskedMove AskedIn(const VariationTree& tree) {
  const VariationTree::Node here = tree.Cursor();
  const bool tried = !tree.WasPlayed(here);
  const VariationTree::Node before = tried ? tree.ParentOf(here) : here;
  const pgn::Turn& turn = tree.TurnAt(before);
  board::AskedMove asked{{tree.PositionAt(before), turn.side, turn.lastMove}, {}, {}};
  asked.moment.position.SideToMove = turn.side;
  if (!tried) return asked;
  asked.move = tree.TurnAt(here).lastMove;
  asked.text = tree.Written(here);
  const rules::PieceCode arrived = tree.PositionAt(here).BoardState.At(asked.move.to);
  if (arrived != asked.moment.position.BoardState.At(asked.move.from)) asked.becomes = arrived;
  return asked;
}

QKeyCombination Pressed(const QKeyEvent& event) {
  return QKeyCombination(event.modifiers() & ~Qt::KeypadModifier, Qt::Key(event.key()));
}

QString SideName(rules::Side side) { return side == rules::White ? u"White"_s : u"Black"_s; }

}  // namespace

TryForm::TryForm(VariationTree& tree, const boards::ChessGraphics& graphics, TryOptions options,
                 QWidget* parent)
    : QDialog(parent),
      tree_(tree),
      graphics_(graphics),
      options_(std::move(options)),
      picture_(new BoardPicture(graphics, BoardPicture::plainEdge, this)),
      frame_(new TryFrame(*picture_, options_.squaresWidth + 2 * BoardPicture::plainEdge,
                          u"Trying out - nothing is sent"_s, this)),
      words_(new QLabel(this)),
      lines_(new LinesView(tree, this)),
      note_(new NoteBox(u"PositionNote"_s, u"Note on this position"_s, this)),
      trouble_(new OutcomeLine(this)),
      why_(NewDialogButton(u"WhyButton"_s, u"Wh&y this move?"_s)),
      play_(NewDialogButton(u"PlayButton"_s, u"&Play this"_s)),
      places_(new QGridLayout) {
  setObjectName(u"TryForm"_s);
  setWindowTitle(u"Try moves"_s);
  GiveHelpKey(*this, platform::HelpOfBoard);
  words_->setObjectName(u"TriedWords"_s);
  auto* layout = new QHBoxLayout(this);
  layout->setContentsMargins(margin, margin, margin, margin);
  layout->setSpacing(margin);
  layout->addWidget(frame_, 1);
  layout->addLayout(NewSide());
  LayOutSquares();
  AddHand();
  connect(lines_, &LinesView::Chosen, this, &TryForm::GoTo);
  connect(note_, &NoteBox::Changed, this, [this] {
    Q_EMIT NoteChanged(study::PositionKey(ShownPosition().BoardState, ShownTurn().side),
                       note_->Note());
  });
  TakeDialogLook(*this);
  // How large buttons are only their style knows.
  for (QWidget* part : findChildren<QWidget*>()) part->ensurePolished();
  for (auto* button : findChildren<QAbstractButton*>()) button->installEventFilter(this);
  for (QLayout* part : findChildren<QLayout*>()) part->invalidate();
  if (minimumSizeHint().width() > screen()->availableSize().width()) PlaceCommands(2);
  resize(sizeHint());
  Refresh();
  picture_->setFocus();
}

void TryForm::LayOutSquares() {
  picture_->ShowCoordinates(options_.coordinates);
  const bool white = options_.viewSide == rules::White;
  for (int i = 0; i < 64; ++i) {
    const rules::Square square = rules::SquareAt(i);
    picture_->Place(square, white ? board::GridPlace{square.x - 1, square.y - 1}
                                  : board::GridPlace{8 - square.x, 8 - square.y});
  }
}

void TryForm::AddHand() {
  auto* floating = new FloatingPiece(this);
  connect(floating, &FloatingPiece::Settled, picture_, &BoardPicture::Uncover);
  const TriedBoard::Answers answers{
      [this](rules::Side side) { return ExchangePawn(graphics_, side, this).Choose(); },
      [this] {
        Refresh();
        Q_EMIT LinesChanged();
      },
      [this] { words_->setText(u"The rules don't allow that move."_s); }};
  hand_ = new PieceHand(std::make_unique<TriedBoard>(tree_, answers), *picture_, *floating, this);
  picture_->installEventFilter(this);
}

QAbstractButton* TryForm::NewCommandButton(const Command& command) {
  auto* button =
      NewDialogButton(QLatin1StringView(command.name), QLatin1StringView(command.caption), 48);
  button->setToolTip(QLatin1StringView(command.meaning));
  button->setAccessibleDescription(button->toolTip());
  connect(button, &QPushButton::clicked, this, [this, &command] { Do(command); });
  buttons_.push_back(button);
  return button;
}

/// The four with signs in one row, and those with names below.
void TryForm::PlaceCommands(int namedInARow) {
  for (int i = 0; i < static_cast<int>(buttons_.size()); ++i) {
    const int named = i - buttonsOfFirstRow;
    const int inARow = named < 0 ? buttonsOfFirstRow : namedInARow;
    const int row = named < 0 ? 0 : 1 + named / namedInARow;
    const int place = named < 0 ? i : named % namedInARow;
    const int span = columns / inARow;
    places_->addWidget(buttons_[static_cast<std::size_t>(i)], row, place * span, 1, span);
  }
}

/// What stands at the right of the board.
QLayout* TryForm::NewSide() {
  places_->setSpacing(spacing);
  auto* side = new QVBoxLayout;
  side->setSpacing(spacing);
  side->addWidget(words_);
  side->addWidget(lines_, 3);
  for (const Command& command : commands) NewCommandButton(command);
  PlaceCommands(4);
  side->addLayout(places_);
  side->addSpacing(spacing);
  auto* noteLabel = new QLabel(u"&Note on this position"_s, this);
  noteLabel->setBuddy(note_);
  side->addWidget(noteLabel);
  side->addWidget(note_, 1);
  side->addWidget(trouble_);
  side->addSpacing(spacing);
  auto* ends = new QHBoxLayout;
  ends->setSpacing(spacing);
  auto* back = NewDialogButton(u"BackToGameButton"_s, u"&Back to the game"_s);
  connect(back, &QPushButton::clicked, this, &QDialog::reject);
  connect(why_, &QAbstractButton::clicked, this, &TryForm::AskWhy);
  connect(play_, &QAbstractButton::clicked, this, [this] {
    wantsToPlay_ = true;
    accept();
  });
  ends->addWidget(why_);
  ends->addStretch();
  ends->addWidget(back);
  ends->addWidget(play_);
  side->addLayout(ends);
  return side;
}

void TryForm::GoTo(VariationTree::Node node) {
  tree_.GoTo(node);
  Refresh();
}

void TryForm::Do(const Command& command) {
  if (!command.run(tree_)) return;
  Refresh();
  if (command.changes) Q_EMIT LinesChanged();
}

void TryForm::Refresh() {
  hand_->LetGo();  // what it held stands on another position's square
  words_->setText(Words());
  lines_->Refresh();
  ShowSquares(ShownPosition(), ShownTurn().lastMove);
  note_->Show(options_.noteOn(study::PositionKey(ShownPosition().BoardState, ShownTurn().side)));
  ShowOffers();
  Q_EMIT PositionShown();
}

void TryForm::ShowTrouble(const QString& sentence, bool writable) {
  trouble_->ShowRemark(sentence);
  note_->MakeWritable(writable);
}

void TryForm::ShowSquares(const rules::Position& position, rules::LastMove move) {
  picture_->Uncover();
  for (int i = 0; i < 64; ++i) {
    const rules::Square square = rules::SquareAt(i);
    const int cell = CellOf(position, square);
    if (picture_->CellOn(square) != cell) picture_->PaintSquare(square, cell);
  }
  picture_->ShowLastMove(move ? std::optional(move) : std::nullopt);
}

/// A command that can't do anything here is told by a tree that it is tried on.
void TryForm::ShowOffers() {
  for (std::size_t i = 0; i < buttons_.size(); ++i) {
    VariationTree other = tree_;
    buttons_[i]->setEnabled(commands[i].run(other));
  }
  why_->setEnabled(!ai::MovesOf(AskedIn(tree_).moment).empty());
  why_->setToolTip(why_->isEnabled() ? u"What the computer sees in this move, and which it would "
                                       u"rather make (Ctrl+Y)"_s
                                     : u"The game would be over here"_s);
  const auto next = tree_.NextMoveOfGame();
  play_->setEnabled(next && options_.whyNotPlay.isEmpty());
  play_->setToolTip(!options_.whyNotPlay.isEmpty() ? options_.whyNotPlay
                    : next ? u"Makes the first of these moves yours in the game; it is sent only "
                             u"when you send it there"_s
                           : u"There is no move here yet that could be played in the game"_s);
}

/// The chess set may be another one behind the options.
void TryForm::AskWhy() {
  if (!why_->isEnabled()) return;
  const bool may = options_.mayAskWhy();
  picture_->TakeGraphics();
  if (may) Explain();
}

/// The board shows meanwhile what is selected there.
void TryForm::Explain() {
  WhyQuestion question = QuestionOn(AskedIn(tree_));
  question.place = "Tried";
  const auto show = [this](const WhyPicture& why) {
    ShowSquares(why.position.value_or(ShownPosition()), why.move);
    picture_->ShowArrow(why.arrow);
  };
  WhyForm form(std::move(question), show, this);
  form.StandBeside(*frame_);
  form.exec();
  picture_->ShowArrow({});
  ShowSquares(ShownPosition(), ShownTurn().lastMove);
}

QString TryForm::Words() const {
  const rules::Side side = ShownTurn().side;
  const QString& written = AsItIs(tree_.Written(tree_.Cursor()));
  if (ShownPosition().CheckmateFlag) return SideName(side) + u" is checkmated"_s;
  if (written.endsWith(u"1/2-1/2"_s)) return u"A draw"_s;
  const bool check = ShownPosition().SideInCheck == side;
  return SideName(side) + (check ? u" to move, in check"_s : u" to move"_s);
}

/// True where it is one of the window's own.
bool TryForm::TakeKey(QKeyCombination key) {
  if (key == (Qt::CTRL | Qt::Key_Y)) {
    AskWhy();
    return true;
  }
  for (const Command& command : commands) {
    if (std::ranges::find(command.keys, key) == command.keys.end()) continue;
    Do(command);
    return true;
  }
  return false;
}

void TryForm::keyPressEvent(QKeyEvent* event) {
  QKeyCombination pressed = Pressed(*event);
  // What a note that can't be written has no use for isn't meant for the lines.
  if (note_->hasFocus() && note_->isReadOnly()) return QDialog::keyPressEvent(event);
  for (const auto& [key, meant] : keysOfLines) {
    if (lines_->hasFocus() && pressed == QKeyCombination(Qt::Key(key))) pressed = meant;
  }
  if (!TakeKey(pressed)) QDialog::keyPressEvent(event);
}

/// A button would take the arrows to go to its neighbours, with Ctrl too, and the board a first
/// Escape to put its cursor away.
bool TryForm::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() == QEvent::KeyPress) {
    const auto pressed = Pressed(static_cast<const QKeyEvent&>(*event));
    if (watched == picture_) {
      if (pressed != QKeyCombination(Qt::Key_Escape) || hand_->HoldsPiece()) return false;
      reject();
      return true;
    }
    if (pressed.keyboardModifiers() == Qt::ControlModifier && TakeKey(pressed)) return true;
  }
  return QDialog::eventFilter(watched, event);
}

/// As over the board of the game.
void TryForm::wheelEvent(QWheelEvent* event) {
  constexpr int notch = QWheelEvent::DefaultDeltasPerStep;
  if (!frame_->geometry().contains(event->position().toPoint())) return;
  wheel_ += event->angleDelta().y();
  bool moved = false;
  for (; wheel_ >= notch; wheel_ -= notch) moved = tree_.Back() || moved;
  for (; wheel_ <= -notch; wheel_ += notch) moved = tree_.Forward() || moved;
  if (moved) Refresh();
  event->accept();
}

}  // namespace ui
