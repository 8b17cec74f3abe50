// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/study/study_desk.h"

#include <utility>

#include "board/controls.h"
#include "board/ends.h"
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
  keepTimer_.setInterval(keepMilliseconds);
  connect(&keepTimer_, &QTimer::timeout, this, &StudyDesk::Keep);
}

StudyDesk::~StudyDesk() { Keep(); }

void StudyDesk::Open() {
  Keep();
  game_.reset();
  thoughts_ = {};
}

bool StudyDesk::IsAvailable() const { return Process().CurrentGameID >= 1; }

/// Reads what there is on the open game. False where that has no record yet.
bool StudyDesk::Take() {
  if (!IsAvailable()) return false;
  if (game_ && game_->number == Process().CurrentGameID) return true;
  Open();
  std::optional<store::GameRecord> record;
  if (!store::FindGame(record, Process().CurrentGameID) || !record) return false;
  game_ = study::GameIdentity{record->GAME_ID, record->GAME_DATESTAMP};
  thoughts_ = file_.Read(*game_);
  return true;
}

QString StudyDesk::NoteOn(const board::Game& game) {
  if (!Take()) return {};
  ShowPosition(game);
  const auto note = thoughts_.positionNotes.find(ShownKey(game));
  return AsItIs(note == thoughts_.positionNotes.end() ? thoughts_.note : note->second);
}

void StudyDesk::ShowPosition(const board::Game& game) {
  if (!notes_) return;
  const auto note = thoughts_.positionNotes.find(ShownKey(game));
  const bool none = note == thoughts_.positionNotes.end();
  notes_->ShowPosition(Where(game), none ? std::string() : note->second);
}

void StudyDesk::ShowNotes(const board::Game& game, QWidget& window) {
  if (!Take()) return;
  if (!notes_) {
    notes_ = new NotesForm(&window);
    notes_->setAttribute(Qt::WA_DeleteOnClose);
    connect(notes_, &NotesForm::GameNoteChanged, this, &StudyDesk::TakeGameNote);
    connect(notes_, &NotesForm::PositionNoteChanged, this,
            [this, &game](const std::string& note) { TakePositionNote(ShownKey(game), note); });
    connect(notes_, &QDialog::finished, this, &StudyDesk::Keep);
    notes_->ShowGame(thoughts_.note);
    PutBeside(window, *notes_);
  }
  ShowPosition(game);
  BringToFront(*notes_);
}

void StudyDesk::TakeGameNote(const std::string& note) {
  thoughts_.note = note;
  noteChanged_ = true;
  KeepSoon();
}

void StudyDesk::TakePositionNote(const std::string& position, const std::string& note) {
  if (note.empty()) {
    thoughts_.positionNotes.erase(position);
  } else {
    thoughts_.positionNotes[position] = note;
  }
  positionsChanged_.insert(position);
  KeepSoon();
}

void StudyDesk::TakeLines(const VariationTree& tree) {
  thoughts_.lines = study::TakeDown(tree);
  thoughts_.lines.insert(thoughts_.lines.end(), strange_.begin(), strange_.end());
  linesChanged_ = true;
  KeepSoon();
}

void StudyDesk::KeepSoon() {
  keepTimer_.start();
  Q_EMIT NotesChanged();
}

/// What can't be kept is tried again with the next change.
void StudyDesk::Keep() {
  keepTimer_.stop();
  if (!game_) return;
  if (noteChanged_) noteChanged_ = !file_.KeepNote(*game_, thoughts_.note);
  if (linesChanged_) linesChanged_ = !file_.KeepLines(*game_, thoughts_.lines);
  std::erase_if(positionsChanged_, [this](const std::string& position) {
    const auto note = thoughts_.positionNotes.find(position);
    const bool none = note == thoughts_.positionNotes.end();
    return file_.KeepPositionNote(*game_, position, none ? std::string() : note->second);
  });
}

TryForm* StudyDesk::NewTryForm(const board::Game& game, const QWidget& window, VariationTree& tree,
                               std::function<bool()> mayAskWhy) {
  const QRectF square = window.findChild<BoardPicture*>()->RectOf({1, 1});
  auto* form =
      new TryForm(tree, graphics_,
                  {game.ViewSide, true, static_cast<int>(8 * square.width()), WhyNotPlay(game),
                   [this](const std::string& position) {
                     const auto note = thoughts_.positionNotes.find(position);
                     return note == thoughts_.positionNotes.end() ? std::string() : note->second;
                   },
                   std::move(mayAskWhy)});
  connect(form, &TryForm::LinesChanged, this, [this, &tree] { TakeLines(tree); });
  connect(form, &TryForm::NoteChanged, this, &StudyDesk::TakePositionNote);
  return form;
}

std::optional<WantedMove> StudyDesk::TryMoves(const board::Game& game, QWidget& window,
                                              std::function<bool()> mayAskWhy) {
  if (!Take()) return std::nullopt;
  VariationTree tree = TreeOf(game, thoughts_.lines, strange_);
  const QPointer<QWidget> board(&window);
  const QPointer<TryForm> form(NewTryForm(game, window, tree, std::move(mayAskWhy)));
  if (notes_) notes_->close();
  PutInPlaceOf(window, *form);
  window.hide();
  form->exec();
  const bool wanted = form && form->WantsToPlay();
  if (board && !Process().Stopping) board->show();
  delete form;
  Keep();
  const auto move = tree.NextMoveOfGame();
  if (!wanted || !move || !board) return std::nullopt;
  return WantedMove{move->from, move->to, move->becomes};
}

}  // namespace ui
