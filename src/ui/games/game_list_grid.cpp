// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/games/game_list_grid.h"

#include <QContextMenuEvent>
#include <QHelpEvent>
#include <QKeyEvent>
#include <QLabel>
#include <QPushButton>
#include <QScrollBar>
#include <QVBoxLayout>

#include <algorithm>
#include <utility>

#include "ui/games/game_list_columns.h"
#include "ui/games/game_list_heading.h"
#include "ui/games/game_list_model.h"
#include "ui/games/game_preview.h"
#include "widgets/cut_text.h"
#include "widgets/row_table.h"

namespace ui {

using namespace Qt::StringLiterals;

namespace {

constexpr int scrollBarTwips = 230;
constexpr int rowsWithScrollBar = 9;  ///< with the heading

constexpr int usualRows = 6;
constexpr int rowPadding = 8;
constexpr int statusPicture = 22;
constexpr int noticeMargin = 12;
constexpr int noticeButtonHeight = 28;

}  // namespace

GameListGrid::GameListGrid(QWidget* parent)
    : QTableView(parent),
      model_(new GameListModel(this)),
      heading_(new GameListHeading(this)),
      noticeText_(new QLabel),
      account_(new QPushButton(u"&Mail account..."_s)) {
  setObjectName(u"GameList"_s);
  setAccessibleName(u"Games"_s);
  setHorizontalHeader(heading_);
  setModel(model_);
  ArrangeColumns(*this);
  BecomeRowTable(*this, rowPadding);
  setIconSize({statusPicture, statusPicture});
  setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);

  new GamePreview(*this, *model_);
  notice_ = NewNotice();
  connect(heading_, &GameListHeading::SortWanted, this, &GameListGrid::SortWanted);
  connect(this, &QTableView::doubleClicked, this, &GameListGrid::PlayWanted);
}

QWidget* GameListGrid::NewNotice() {
  noticeText_->setObjectName(u"Notice"_s);
  noticeText_->setTextFormat(Qt::PlainText);
  noticeText_->setWordWrap(true);
  noticeText_->setTextInteractionFlags(Qt::TextSelectableByMouse);
  account_->setObjectName(u"NoticeAccount"_s);
  account_->setMinimumHeight(noticeButtonHeight);
  connect(account_, &QPushButton::clicked, this, &GameListGrid::AccountWanted);
  auto* notice = new QWidget(viewport());
  auto* column = new QVBoxLayout(notice);
  column->setContentsMargins(noticeMargin, noticeMargin, noticeMargin, noticeMargin);
  column->setSpacing(noticeMargin);
  column->addWidget(noticeText_);
  column->addWidget(account_, 0, Qt::AlignLeft);
  column->addStretch();
  return notice;
}

void GameListGrid::Fill(shell::GameList list, std::int16_t sortColumn, bool descending,
                        const ListNotice& notice) {
  setUpdatesEnabled(false);
  verticalHeader()->setDefaultSectionSize(fontMetrics().height() + rowPadding);  // of the look
  const bool empty = list.games.empty();
  const bool wasEmpty = model_->rowCount() == 0;
  heading_->ShowSortMark(
      empty ? -1 : sortColumn, descending,
      model_->Picture(descending ? shell::DescendingIcon : shell::AscendingIcon));
  model_->Show(std::move(list.games), std::move(list.news));
  noticeText_->setText(notice.text);
  account_->setVisible(notice.offersAccount);
  notice_->setVisible(empty);
  ShowColumns();
  if (!empty) {
    const QModelIndex selected =
        model_->index(static_cast<int>(list.selected), shell::OpponentColumn);
    setCurrentIndex(selected);
    scrollTo(selected, PositionAtTop);
    // The button by which the first one came has done its work.
    if (wasEmpty) setFocus();
  }
  setUpdatesEnabled(true);
}

void GameListGrid::ShowMails() { model_->ShowMails(); }

const store::GameRecord* GameListGrid::SelectedGame() const {
  return model_->GameAt(currentIndex().row());
}

void GameListGrid::ShowColumns() {
  ShowWantedColumns(*this);
  FitColumns();
}

QSize GameListGrid::sizeHint() const {
  const int around = 2 * frameWidth() + verticalScrollBar()->sizeHint().width();
  const int rows = usualRows * verticalHeader()->defaultSectionSize();
  return {WidthOfColumns(*this) + around,
          rows + horizontalHeader()->sizeHint().height() + 2 * frameWidth()};
}

void GameListGrid::FitColumns() {
  int room = width() - 2 * frameWidth();
  if (model_->rowCount() + 1 >= rowsWithScrollBar) room -= InPixels(scrollBarTwips);
  ui::FitColumns(*this, std::min(room, viewport()->width()));
  model_->WriteDates(HasRoomForLongDates(*this) ? QLocale::LongFormat : QLocale::ShortFormat);
}

void GameListGrid::resizeEvent(QResizeEvent* event) {
  QTableView::resizeEvent(event);
  notice_->setGeometry(viewport()->rect());
  FitColumns();
}

QModelIndex GameListGrid::moveCursor(CursorAction action, Qt::KeyboardModifiers modifiers) {
  // Alone they would go along the columns.
  if (action == MoveHome || action == MoveEnd) modifiers |= Qt::ControlModifier;
  return QTableView::moveCursor(action, modifiers);
}

/// A text that is cut shows as a whole when it is pointed at, and beside a picture what it says.
bool GameListGrid::viewportEvent(QEvent* event) {
  if (event->type() != QEvent::ToolTip) return QTableView::viewportEvent(event);
  const auto& help = static_cast<const QHelpEvent&>(*event);
  if (ShowCutCell(*this, help)) return true;
  const QModelIndex index = indexAt(help.pos());
  const QString tip = index.data(Qt::ToolTipRole).toString();
  if (tip.isEmpty()) return QTableView::viewportEvent(event);
  const QRect cell = visualRect(index);
  ShowCellTip(*this, cell, tip, cell.topRight());
  return true;
}

/// Beside the games a press leaves the selected one as it is.
void GameListGrid::mousePressEvent(QMouseEvent* event) {
  if (indexAt(event->position().toPoint()).isValid()) QTableView::mousePressEvent(event);
}

void GameListGrid::keyPressEvent(QKeyEvent* event) {
  switch (event->key()) {
    case Qt::Key_Backspace:
    case Qt::Key_Delete:
      Q_EMIT DeleteWanted();
      return;
    case Qt::Key_Return:
    case Qt::Key_Enter:
      Q_EMIT PlayWanted();
      return;
    default:
      QTableView::keyPressEvent(event);
  }
}

void GameListGrid::contextMenuEvent(QContextMenuEvent* event) {
  const bool byKey = event->reason() == QContextMenuEvent::Keyboard;
  const QPoint place = byKey ? visualRect(currentIndex()).bottomLeft()
                             : viewport()->mapFromGlobal(event->globalPos());
  if (indexAt(place).isValid()) Q_EMIT MenuWanted(viewport()->mapToGlobal(place));
}

}  // namespace ui
