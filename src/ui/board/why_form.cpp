// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/board/why_form.h"

#include <QHeaderView>
#include <QLabel>
#include <QScreen>
#include <QVBoxLayout>

#include <algorithm>
#include <thread>
#include <utility>

#include "ai/heuristics.h"
#include "ai/reason_words.h"
#include "platform/help.h"
#include "platform/process_state.h"
#include "platform/setting_variables.h"
#include "skin/look.h"
#include "ui/board/move_adviser.h"
#include "ui/board/roomy_rows.h"
#include "ui/help/help_key.h"
#include "widgets/reading_dialog.h"
#include "widgets/row_table.h"
#include "widgets/shown_text.h"

namespace ui {

using namespace Qt::StringLiterals;
using rules::LastMove;

namespace {

enum MoveColumn { Place, MoveText, Score };
enum ReasonColumn { Points, Words };

constexpr int bestMoves = 5;
constexpr int fewestRows = 2;
constexpr QSize usualSize(70, 35);  // characters and lines
constexpr int rowPadding = 8;

bool IsMove(const ai::CandidateMove& candidate, LastMove move) {
  return candidate.from == move.from && candidate.to == move.to;
}

bool IsLegal(const board::AskedMove& asked) {
  const ai::CandidateList moves = ai::MovesOf(asked.moment);
  return std::any_of(moves.begin(), moves.end(),
                     [&](const auto& move) { return IsMove(move, asked.move); });
}

bool IsPromotion(const ai::Moment& moment, LastMove move) {
  const rules::PieceCode piece = moment.position.BoardState.At(move.from);
  return rules::KindOf(piece) == rules::WhitePawn && (move.to.y == 1 || move.to.y == 8);
}

/// Both signs are as wide as a digit, and neither is told by its colour.
QString Signed(int points) {
  if (points == 0) return u"0"_s;
  return points > 0 ? u"+%1"_s.arg(points) : u"\u2212%1"_s.arg(-points);
}

RowTable* NewList(const QString& name, const QString& told, const QStringList& headings,
                  QWidget* parent) {
  auto* list = new RowTable(headings, rowPadding, parent);
  list->setObjectName(name);
  list->setAccessibleName(told);
  list->horizontalHeader()->setSectionResizeMode(QHeaderView::ResizeToContents);
  return list;
}

QLabel* NewLabel(const QString& name, const QString& text = {}) {
  auto* label = new QLabel(text);
  label->setObjectName(name);
  label->setTextFormat(Qt::PlainText);
  label->setWordWrap(true);
  return label;
}

void Put(RowTable& list, int row, int column, const QString& text,
         Qt::Alignment alignment = Qt::AlignLeft) {
  auto* cell = new QTableWidgetItem(text);
  cell->setTextAlignment(alignment | Qt::AlignVCenter);
  list.setItem(row, column, cell);
}

LastMove ArrowOf(const ai::Reason& reason) {
  const rules::Square from = reason.doer.square, to = reason.target.square;
  if (!IsOnBoard(from)) return {};
  return {from, IsOnBoard(to) ? to : from};
}

}  // namespace

WhyQuestion QuestionOn(board::AskedMove asked) {
  WhyQuestion question{std::move(asked), platform::Settings().SearchDepth};
  if (!platform::Process().ComputerGame) question.heuristics = ai::DefaultHeuristics();
  return question;
}

WhyForm::WhyForm(WhyQuestion question, ShowWhyPicture show, QWidget* parent)
    : QDialog(parent),
      question_(std::move(question)),
      show_(std::move(show)),
      moves_(NewList(u"BestMoves"_s, u"Moves"_s, {u"Place"_s, u"Move"_s, u"Score"_s}, this)),
      reasons_(NewList(u"Reasons"_s, u"Reasons"_s, {u"Points"_s, u"Reason"_s}, this)),
      sum_(NewLabel(u"WhySum"_s)),
      state_(NewLabel(u"WhyState"_s, u"The computer looks for its own best moves..."_s)),
      adviser_(new MoveAdviser(this)),
      hasMove_(IsLegal(question_.asked)) {
  setObjectName(u"WhyForm"_s);
  setWindowTitle(u"Why this move?"_s);
  GiveHelpKey(*this, platform::HelpOfBoard);
  LayOut();
  connect(moves_, &QTableWidget::itemSelectionChanged, this, [this] {
    chosen_ = true;
    ShowReasons();
  });
  connect(reasons_, &QTableWidget::itemSelectionChanged, this, &WhyForm::ShowPicture);
  connect(adviser_, &MoveAdviser::Advised, this, &WhyForm::TakeAdvice);
  if (hasMove_) ShowLines({{question_.asked.move, {}, true}});
  const auto threads = static_cast<int>(std::max(1U, std::thread::hardware_concurrency()));
  adviser_->Start({question_.asked.moment, question_.depth, threads, question_.heuristics});
  TakeDialogLook(*this);
}

void WhyForm::LayOut() {
  moves_->horizontalHeader()->setSectionResizeMode(Score, QHeaderView::Stretch);
  reasons_->horizontalHeader()->setSectionResizeMode(Words, QHeaderView::Stretch);
  reasons_->verticalHeader()->setSectionResizeMode(QHeaderView::ResizeToContents);
  reasons_->setWordWrap(true);
  reasons_->setItemDelegate(new RoomyRows(rowPadding, reasons_));
  auto* close = NewCloseButton(*this);
  close->setDefault(true);
  auto* layout = new QVBoxLayout(this);
  layout->setContentsMargins(16, 16, 16, 16);
  layout->setSpacing(8);
  layout->addWidget(moves_, 3);
  layout->addWidget(state_);
  layout->addWidget(sum_);
  layout->addWidget(reasons_, 2);
  layout->addWidget(close, 0, Qt::AlignRight);
  ResizeToText(*this, usualSize);
}

/// To the right of it, or else as far to the right as the screen reaches.
void WhyForm::StandBeside(const QWidget& board) {
  const QRect free = board.screen()->availableGeometry();
  const QPoint corner = board.mapToGlobal(QPoint(board.width(), 0));
  const QPoint last = free.bottomRight() - QPoint(frameGeometry().width(), height());
  move(std::max(free.left(), std::min(corner.x(), last.x())),
       std::max(free.top(), std::min(corner.y(), last.y())));
}

void WhyForm::TakeAdvice(int depth, const ai::CandidateList& moves) {
  std::vector<Line> lines;
  for (const ai::CandidateMove& move : moves) {
    Line asked{question_.asked.move, move.Score, true};
    if (question_.asked.becomes != rules::NoPiece) asked.score.reset();
    const bool isAsked = hasMove_ && IsMove(move, asked.move);
    if (isAsked) lines.insert(lines.begin(), asked);
  }
  for (std::size_t n = 0; n < std::min<std::size_t>(bestMoves, moves.size()); ++n) {
    lines.push_back({{moves[n].from, moves[n].to}, moves[n].Score});
  }
  const bool last = depth == question_.depth;
  state_->setText(
      last ? u"So the computer sees it, having looked as far ahead as it does in a game."_s
           : u"The computer is still looking further ahead..."_s);
  ShowLines(std::move(lines));
}

/// The selection stays with its move, if that is still there and anybody wanted it.
void WhyForm::ShowLines(std::vector<Line> lines) {
  const auto was = Selected() && (hasMove_ || chosen_) ? std::optional(*Selected()) : std::nullopt;
  const auto found = was ? std::find(lines.begin(), lines.end(), *was) : lines.end();
  const bool stays = found != lines.end();
  const auto row = stays ? static_cast<int>(found - lines.begin()) : 0;
  lines_ = std::move(lines);
  FillLines(row);
  if (stays) return ShowSum();
  ShowReasons();
}

void WhyForm::FillLines(int selected) {
  const QSignalBlocker quiet(moves_);
  moves_->setRowCount(static_cast<int>(lines_.size()));
  int best = 0;
  for (int n = 0; n < moves_->rowCount(); ++n) {
    const Line& line = lines_[static_cast<std::size_t>(n)];
    const std::string name = board::NameOfMove(question_.asked.moment, line.move);
    Put(*moves_, n, Place,
        line.asked ? QString::fromLatin1(question_.place) : u"Best %1"_s.arg(++best));
    Put(*moves_, n, MoveText,
        line.asked ? ShownLine(question_.asked.text) : QString::fromStdString(name));
    Put(*moves_, n, Score, line.score ? Signed(*line.score) : QString());
  }
  moves_->setCurrentCell(selected, Place);
}

const WhyForm::Line* WhyForm::Selected() const {
  const auto row = static_cast<std::size_t>(moves_->currentRow());
  return row < lines_.size() ? &lines_[row] : nullptr;
}

void WhyForm::ShowReasons() {
  const Line* line = Selected();
  why_ = line ? ai::ReasonsFor(question_.asked.moment, line->move, question_.heuristics,
                               line->asked ? question_.asked.becomes : rules::NoPiece)
              : ai::MoveReasons();
  {
    const QSignalBlocker quiet(reasons_);
    reasons_->setRowCount(static_cast<int>(why_.reasons.size()));
    for (int n = 0; n < reasons_->rowCount(); ++n) {
      const ai::Reason& reason = why_.reasons[static_cast<std::size_t>(n)];
      Put(*reasons_, n, Points, Signed(reason.points), Qt::AlignRight);
      Put(*reasons_, n, Words, QString::fromStdString(SentenceFor(reason)));
    }
    reasons_->setCurrentCell(0, Points);
  }
  ShowSum();
  ShowPicture();
}

/// Beyond depth 0 the score has in it what the computer expects to follow.
void WhyForm::ShowSum() {
  const Line* line = Selected();
  if (!line) return sum_->clear();
  const int follows = line->score.value_or(why_.score) - why_.score;
  QString text = u"The reasons make up %1 points"_s.arg(Signed(why_.score));
  if (follows != 0) text += u", and what may follow makes %1"_s.arg(Signed(follows));
  text += u'.';
  if (IsPromotion(question_.asked.moment, line->move)) {
    text += line->asked ? u" The computer has no score for it: in its search a pawn stays a pawn."_s
                        : u" In the computer's search the pawn stays a pawn."_s;
  }
  sum_->setText(text);
}

void WhyForm::ShowPicture() {
  const Line* line = Selected();
  if (!line) return;
  WhyPicture picture{{}, line->move, {}};
  if (!line->asked) picture.position = board::PositionBehind(question_.asked.moment, line->move);
  const auto reason = static_cast<std::size_t>(reasons_->currentRow());
  if (reason < why_.reasons.size()) picture.arrow = ArrowOf(why_.reasons[reason]);
  show_(picture);
}

void WhyForm::showEvent(QShowEvent* event) {
  QDialog::showEvent(event);
  // The best moves and the one that was played are all, in the look that is worn by now; where the
  // screen is low some are out of sight.
  const auto heightOf = [](const RowTable* list, int rows) {
    return list->verticalHeader()->defaultSectionSize() * rows +
           list->horizontalHeader()->height() + 2 * list->frameWidth();
  };
  for (RowTable* list : {moves_, reasons_}) list->setMinimumHeight(heightOf(list, fewestRows));
  moves_->setMaximumHeight(heightOf(moves_, bestMoves + 1));
  moves_->setFocus();
  ShowPicture();
}

}  // namespace ui
