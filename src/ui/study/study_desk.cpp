// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/study/study_desk.h"

#include <QEvent>

#include <utility>

#include "board/controls.h"
#include "board/ends.h"
#include "platform/messages.h"
#include "platform/process_state.h"
#include "rules/board_text.h"
#include "store/queries.h"
#include "ui/study/notes_form.h"
#include "ui/study/try_form.h"
#include "widgets/front_window.h"
#include "widgets/shown_text.h"
#include "widgets/window_places.h"

namespace ui {

using namespace Qt::StringLiterals;
using platform::Process;
using study::VariationTree;

namespace {

constexpr int keepMilliseconds = 800;
constexpr int retryMilliseconds = 3000;

bool IsMove(const store::MoveRecord& entry) {
  const auto move = rules::LastMove::FromText(entry.MoveCoordinates);
  return move.from != move.to && IsOnBoard(move.from) && IsOnBoard(move.to);
}

/// The last entry up to the selected one that moves a piece; 0 where there is none.
int ShownRow(const board::Game& game) {
  int row = game.Moves.Selected();
  while (row > 0 && !IsMove(game.Moves.Row(row))) --row;
  return row;
}

std::string ShownKey(const board::Game& game) {
  const rules::Side side = ShownRow(game) % 2 == 0 ? rules::White : rules::Black;
  return study::PositionKey(rules::ThePosition().BoardState, side);
}

/// Such as "after 12. Nf3".
QString Where(const board::Game& game) {
  const int row = ShownRow(game);
  if (row == 0) return u"the start of the game"_s;
  return u"after %1%2 %3"_s.arg((row + 1) / 2)
      .arg(row % 2 == 1 ? u"."_s : u"..."_s, ShownLine(game.Moves.Row(row).MoveText));
}

/// The game as it was sent and received, at the position that the board shows. A move that is still
/// to be sent is one that is tried.
VariationTree TreeOf(const board::Game& game, const std::vector<study::TriedLines>& lines,
                     std::vector<study::TriedLines>& strange) {
  const int pending = board::EntryIsPending(game) && game.Moves.Count() > 0 ? 1 : 0;
  store::MoveRecords entries;
  for (int row = 1; row <= game.Moves.Count() - pending; ++row) {
    entries.push_back(game.Moves.Row(row));
  }
  const rules::BoardSquares start = rules::ReadBoardText(game.StartBoard);
  VariationTree tree = study::NewTree(start, entries);
  strange = study::HangUp(lines, tree);
  if (pending == 1 && IsMove(game.Moves.Last())) {
    entries.push_back(game.Moves.Last());
    const VariationTree ahead = study::NewTree(start, entries);
    tree.Try(ahead.MoveTo(ahead.Present()));
  }
  int ahead = 0;
  for (int row = game.Moves.Selected() + 1; row <= game.Moves.Count(); ++row) {
    if (IsMove(game.Moves.Row(row))) ++ahead;
  }
  for (; ahead > 0; --ahead) tree.Back();
  return tree;
}

void TellUser(const std::string& text) {
  platform::ShowMessage(platform::DatabaseIcon, "Your notes", text, "OK", {}, false,
                        platform::FailureSound);
}

QString WhyNotPlay(const board::Game& game) {
  if (board::GameIsOver(game)) return u"The game is over"_s;
  if (board::EntryIsPending(game) && game.Moves.Count() > 0) {
    return u"You have made a move that is not sent yet; undo it first"_s;
  }
  if (board::LastMoveIsMine(game)) return u"It isn't your turn in the game"_s;
  if (game.Moves.Last().MoveText == "Draw offer") return u"Answer the offer of a draw first"_s;
  return board::OpponentIsReachable(game) || Process().ComputerGame ? QString()
                                                                    : u"You are working offline"_s;
}

}  // namespace

StudyDesk::StudyDesk(const boards::ChessGraphics& graphics) : graphics_(graphics) {
  keepTimer_.setSingleShot(true);
  connect(&keepTimer_, &QTimer::timeout, this, &StudyDesk::GoOn);
}

StudyDesk::~StudyDesk() { Keep(); }

void StudyDesk::Open() {
  Keep();
  game_.reset();
  isRead_ = false;
  thoughts_ = {};
  strange_.clear();
}

bool StudyDesk::IsAvailable() const { return Process().CurrentGameID >= 1; }

/// Reads what there is on the open game. False where that has no record yet.
bool StudyDesk::Take() {
  if (!IsAvailable()) return false;
  if (!game_ || game_->number != Process().CurrentGameID) {
    Open();
    std::optional<store::GameRecord> record;
    if (!store::FindGame(record, Process().CurrentGameID) || !record) return false;
    game_ = study::GameIdentity{record->GAME_ID, record->GAME_DATESTAMP};
  }
  if (!isRead_) ReadThoughts();
  return true;
}

void StudyDesk::ReadThoughts() {
  const auto read = file_.Read(*game_);
  isRead_ = read.has_value();
  thoughts_ = read.value_or(study::GameStudy());
  const auto waiting = unsaved_.find(*game_);
  if (waiting != unsaved_.end()) study::Apply(waiting->second, thoughts_);
  if (isRead_) Q_EMIT ThoughtsRead();
}

/// What couldn't be done is done again, as long as there is somebody who waits for it.
void StudyDesk::GoOn() {
  Keep();
  if (!isRead_ && Take() && isRead_) Q_EMIT NotesChanged();
  TellWindows();
}

void StudyDesk::TellWindows() {
  const QString trouble = AsItIs(file_.WhyNot());
  if (notes_) notes_->ShowTrouble(trouble, isRead_);
  if (trying_) trying_->ShowTrouble(trouble, isRead_);
  const bool waits = !isRead_ && (notes_ || trying_);
  if (waits || !unsaved_.empty()) keepTimer_.start(retryMilliseconds);
}

std::string StudyDesk::PositionNote(const std::string& position) const {
  const auto note = thoughts_.positionNotes.find(position);
  return note == thoughts_.positionNotes.end() ? std::string() : note->second;
}

QString StudyDesk::NoteOn(const board::Game& game) {
  if (!Take()) return {};
  ShowThoughts(game);
  const std::string note = PositionNote(ShownKey(game));
  return AsItIs(note.empty() ? thoughts_.note : note);
}

void StudyDesk::ShowThoughts(const board::Game& game) {
  if (!notes_) return;
  notes_->ShowGame(thoughts_.note);
  notes_->ShowPosition(Where(game), PositionNote(ShownKey(game)));
}

void StudyDesk::ShowNotes(const board::Game& game, QWidget& window) {
  if (!Take()) return;
  if (!notes_) {
    notes_ = new NotesForm(&window);
    notes_->setAttribute(Qt::WA_DeleteOnClose);
    connect(notes_, &NotesForm::GameNoteChanged, this, &StudyDesk::TakeGameNote);
    connect(notes_, &NotesForm::PositionNoteChanged, this,
            [this, &game](const std::string& note) { TakePositionNote(ShownKey(game), note); });
    connect(notes_, &QDialog::finished, this, &StudyDesk::Leave);
    window.installEventFilter(this);
    ShowThoughts(game);
    TellWindows();
    PutBeside(window, *notes_);
  }
  ShowThoughts(game);
  BringToFront(*notes_);
}

study::StudyChanges& StudyDesk::Changes() { return unsaved_[*game_]; }

void StudyDesk::TakeGameNote(const std::string& note) {
  if (!isRead_) return;
  thoughts_.note = note;
  Changes().note = note;
  KeepSoon();
}

void StudyDesk::TakePositionNote(const std::string& position, const std::string& note) {
  if (!isRead_) return;
  study::Apply({{}, {{position, note}}, {}}, thoughts_);
  Changes().positionNotes[position] = note;
  KeepSoon();
}

/// Those that are tried while nothing could be read join the others when these come.
void StudyDesk::TakeLines(const VariationTree& tree) {
  if (!isRead_) return;
  thoughts_.lines = study::TakeDown(tree);
  thoughts_.lines.insert(thoughts_.lines.end(), strange_.begin(), strange_.end());
  Changes().lines = thoughts_.lines;
  KeepSoon();
}

void StudyDesk::KeepSoon() {
  keepTimer_.start(keepMilliseconds);
  Q_EMIT NotesChanged();
}

/// A message of the file may let others in here.
void StudyDesk::Keep() {
  keepTimer_.stop();
  while (!unsaved_.empty()) {
    const auto [game, changes] = *unsaved_.begin();
    if (!file_.Keep(game, changes)) return;
    unsaved_.erase(game);
  }
  toldWaiting_ = false;
}

/// The user turns away from what he noted. What waits is told once, and once at the program's end.
void StudyDesk::Leave() {
  Keep();
  bool& told = Process().Stopping ? toldLost_ : toldWaiting_;
  if (!unsaved_.empty() && !std::exchange(told, true)) {
    TellUser(Process().Stopping
                 ? "What you noted last couldn't be kept. " + file_.WhyNot()
                 : "What you noted last isn't kept yet: Tarvolenix goes on trying until it ends, "
                   "and you can open your notes again to copy it.");
  }
  TellWindows();
}

/// The board closes, with the notes beside it.
bool StudyDesk::eventFilter(QObject* window, QEvent* event) {
  if (event->type() == QEvent::Close) Leave();
  return BoardStudy::eventFilter(window, event);
}

/// What was read at last joins what is tried meanwhile.
void StudyDesk::Join(VariationTree& tree, TryForm& form) {
  const VariationTree::Node here = tree.Cursor();
  strange_ = study::HangUp(thoughts_.lines, tree);
  tree.GoTo(here);
  TakeLines(tree);
  form.Refresh();
}

TryForm* StudyDesk::NewTryForm(const board::Game& game, const QWidget& window, VariationTree& tree,
                               std::function<bool()> mayAskWhy) {
  const QRectF square = window.findChild<BoardPicture*>()->RectOf({1, 1});
  auto* form =
      new TryForm(tree, graphics_,
                  {game.ViewSide, true, static_cast<int>(8 * square.width()), WhyNotPlay(game),
                   [this](const std::string& position) { return PositionNote(position); },
                   std::move(mayAskWhy)});
  connect(form, &TryForm::LinesChanged, this, [this, &tree] { TakeLines(tree); });
  connect(form, &TryForm::NoteChanged, this, &StudyDesk::TakePositionNote);
  connect(this, &StudyDesk::ThoughtsRead, form, [this, form, &tree] { Join(tree, *form); });
  return form;
}

std::optional<WantedMove> StudyDesk::TryMoves(const board::Game& game, QWidget& window,
                                              std::function<bool()> mayAskWhy) {
  if (!Take()) return std::nullopt;
  VariationTree tree = TreeOf(game, thoughts_.lines, strange_);
  const std::vector<study::TriedLines> before = study::TakeDown(tree);
  const QPointer<QWidget> board(&window);
  const QPointer<TryForm> form(NewTryForm(game, window, tree, std::move(mayAskWhy)));
  trying_ = form;
  TellWindows();
  if (notes_) notes_->close();
  PutInPlaceOf(window, *form);
  window.hide();
  form->exec();
  const bool wanted = form && form->WantsToPlay();
  if (board && !Process().Stopping) board->show();
  if (!isRead_) Take();
  if (!isRead_ && study::TakeDown(tree) != before) {
    TellUser("The moves that you tried aren't kept, as your notes couldn't be read.");
  }
  delete form;
  Leave();
  const auto move = tree.NextMoveOfGame();
  if (!wanted || !move || !board) return std::nullopt;
  return WantedMove{move->from, move->to, move->becomes};
}

}  // namespace ui
