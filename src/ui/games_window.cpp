// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/games_window.h"

#include <QCloseEvent>
#include <QDate>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLabel>
#include <QLocale>
#include <QPushButton>
#include <QStackedWidget>
#include <QVBoxLayout>

#include "platform/conversions.h"
#include "platform/process_state.h"
#include "platform/registry.h"
#include "platform/text_fields.h"
#include "store/queries.h"
#include "ui/row_table.h"
#include "ui/shown_text.h"

namespace ui {

using namespace Qt::StringLiterals;

namespace {

constexpr const char* waitingFirst = "Game_status;A;Game_opponents_name;A;Game_date;D";
constexpr const char* waitingFirstUndated = "Game_status;A;Game_opponents_name;A";

enum Column { Opponent, Title, Date, Standing, columnCount };

QString StandingOf(std::int16_t status) {
  switch (status) {
    case store::MoveWaiting:
      return u"Your move"_s;
    case store::WaitingForOpponent:
      return u"Waiting for opponent"_s;
    case store::GameWon:
      return u"Won"_s;
    case store::GameLost:
      return u"Lost"_s;
    case store::DrawOfferSent:
      return u"Draw offered, waiting"_s;
    case store::GameDrawn:
      return u"Draw"_s;
    default:
      return {};
  }
}

/// A date that can't be read shows as it is stored.
QString DateOf(const std::string& stored) {
  const auto date = platform::ToDate(stored);
  if (!date) return Shown(stored);
  return QLocale().toString(QDate(date->year, date->month, date->day), QLocale::LongFormat);
}

QString EmptyNotice() {
  const QString address =
      Shown(platform::ReturnValue(platform::ReadRegistry(platform::mailSection, "MyAddress"),
                                  "not set yet (Retrieve games asks for it)"));
  const QString console = Shown(platform::Process().ProgramFolder) + u"tarvolenix-cli"_s;
  return u"There are no games yet.\n\n"
         u"If somebody has invited you, wait for the mail with the first move and choose Retrieve "
         u"games. Your own address, for those who want to play with you, is:\n\n%1\n\n"
         u"To start a game yourself, open a terminal and play the first move as White, here from "
         u"e2 (column 5, row 2) to e4:\n\n"
         u"\"%2\" new --name \"Title\" --opponent \"Name\" --email address --move 5254 "
         u"--send"_s.arg(address, console);
}

QString DamageNotice() {
  return u"The file with your games can't be read, so none can be shown.\n\n"
         u"It may be damaged or not accessible: %1\n\n"
         u"The file \"tvgdb.bak\" beside it holds the games as they were before the latest "
         u"change."_s.arg(Shown(platform::Process().DataPath + platform::Process().DatabaseFile));
}

}  // namespace

bool ReadGames(store::GameRecords& games, std::string_view selection) {
  if (store::SelectGames(games, selection, waitingFirst)) return true;
  // A date that can't be read fails the sort alone; the games are all there then.
  store::SortGames(games, waitingFirstUndated);
  return !games.empty();
}

GamesWindow::GamesWindow()
    : pages_(new QStackedWidget(this)),
      games_(new RowTable({u"Opponent"_s, u"Game title"_s, u"Date started"_s, u"Status"_s}, 12)),
      notice_(new QLabel),
      open_(new QPushButton(u"&Open"_s, this)),
      retrieve_(new QPushButton(u"&Retrieve games"_s, this)),
      account_(new QPushButton(u"&Mail account..."_s, this)) {
  setObjectName(u"GameInterface"_s);
  games_->setObjectName(u"GameList"_s);
  games_->setAccessibleName(u"Games"_s);
  notice_->setObjectName(u"Notice"_s);
  open_->setObjectName(u"OpenButton"_s);
  retrieve_->setObjectName(u"RetrieveButton"_s);
  account_->setObjectName(u"AccountButton"_s);
  LayOut();
  connect(games_, &QTableWidget::activated, this, &GamesWindow::OpenSelected);
  connect(open_, &QPushButton::clicked, this, &GamesWindow::OpenSelected);
  connect(retrieve_, &QPushButton::clicked, this, &GamesWindow::RetrieveWanted);
  connect(account_, &QPushButton::clicked, this, &GamesWindow::AccountWanted);
}

void GamesWindow::LayOut() {
  games_->horizontalHeader()->setSectionResizeMode(Title, QHeaderView::Stretch);
  games_->setColumnWidth(Opponent, 180);
  for (const Column column : {Date, Standing}) {
    games_->horizontalHeader()->setSectionResizeMode(column, QHeaderView::ResizeToContents);
  }
  games_->setAlternatingRowColors(true);

  notice_->setTextFormat(Qt::PlainText);
  notice_->setWordWrap(true);
  notice_->setTextInteractionFlags(Qt::TextSelectableByMouse);
  notice_->setAlignment(Qt::AlignTop | Qt::AlignLeft);
  notice_->setMargin(24);
  notice_->setFrameStyle(QFrame::StyledPanel | QFrame::Sunken);
  notice_->setBackgroundRole(QPalette::Base);
  notice_->setAutoFillBackground(true);

  pages_->addWidget(games_);
  pages_->addWidget(notice_);

  auto* buttons = new QHBoxLayout;
  buttons->setSpacing(8);
  buttons->addWidget(account_);
  buttons->addStretch();
  buttons->addWidget(retrieve_);
  buttons->addWidget(open_);
  for (QPushButton* button : {account_, retrieve_, open_}) {
    button->setMinimumSize(120, 30);
    button->setAutoDefault(true);  // so that Enter presses it too
  }

  auto* layout = new QVBoxLayout(this);
  layout->setContentsMargins(16, 16, 16, 16);
  layout->setSpacing(16);
  layout->addWidget(pages_, 1);
  layout->addLayout(buttons);
  resize(800, 460);
  QWidget::setTabOrder(games_, account_);
  QWidget::setTabOrder(account_, retrieve_);
  QWidget::setTabOrder(retrieve_, open_);
}

void GamesWindow::Fill(std::optional<std::int32_t> selectGame) {
  setWindowTitle(platform::Process().Offline ? u"Tarvolenix - Game list (offline)"_s
                                             : u"Tarvolenix - Game list"_s);
  store::GameRecords games;
  const bool read = ReadGames(games);
  games_->setRowCount(0);
  for (const store::GameRecord& game : games) AddGame(game);
  notice_->setText(read ? EmptyNotice() : DamageNotice());
  pages_->setCurrentWidget(games.empty() ? static_cast<QWidget*>(notice_) : games_);
  open_->setEnabled(!games.empty());

  if (!selectGame) {
    selectGame =
        platform::ToInteger32(platform::GetField(platform::Process().PendingGames, 1, ';'));
  }
  int selected = 0;
  for (std::size_t row = 0; row < games.size(); ++row) {
    if (games[row].GAME_ID == selectGame) selected = static_cast<int>(row);
  }
  if (!games.empty()) games_->setCurrentCell(selected, Opponent);
  (games.empty() ? static_cast<QWidget*>(retrieve_) : games_)->setFocus();
}

void GamesWindow::AddGame(const store::GameRecord& game) {
  const int row = games_->rowCount();
  games_->insertRow(row);
  const QString texts[] = {Shown(game.GAME_OPPONENTS_NAME), Shown(game.GAME_NAME),
                           DateOf(game.GAME_DATE), StandingOf(game.GAME_STATUS)};
  for (int column = 0; column < columnCount; ++column) {
    auto* item = new QTableWidgetItem(texts[column]);
    item->setData(Qt::UserRole, game.GAME_ID);
    QFont font = games_->font();
    font.setBold(game.GAME_STATUS == store::MoveWaiting);
    item->setFont(font);
    games_->setItem(row, column, item);
  }
}

std::optional<std::int32_t> GamesWindow::SelectedGame() const {
  const QTableWidgetItem* item = games_->currentItem();
  if (!item) return std::nullopt;
  return item->data(Qt::UserRole).toInt();
}

void GamesWindow::OpenSelected() {
  if (const auto game = SelectedGame()) Q_EMIT OpenWanted(*game);
}

void GamesWindow::keyPressEvent(QKeyEvent* event) {
  if (event->key() == Qt::Key_Escape) {
    showMinimized();
  } else {
    QWidget::keyPressEvent(event);
  }
}

void GamesWindow::closeEvent(QCloseEvent* event) {
  if (!isEnabled()) {
    event->ignore();
    return;
  }
  Q_EMIT Closed();
}

}  // namespace ui
