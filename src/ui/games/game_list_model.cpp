// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/games/game_list_model.h"

#include <QDate>

#include <utility>

#include "platform/setting_variables.h"
#include "skin/program_pictures.h"
#include "ui/games/mail_mark.h"
#include "widgets/shown_moment.h"
#include "widgets/shown_text.h"

namespace ui {

using namespace Qt::StringLiterals;

namespace {

constexpr const char* pictureFiles[] = {"1-ascending.ico", "2-descending.ico", "3-new-move.ico",
                                        "4-waiting.ico",   "5-won.ico",        "6-lost.ico",
                                        "7-drawn.ico"};

/// Without the tint that a selected row would give it.
QIcon ReadPictureIcon(const char* file) {
  const QIcon stored = ProgramPicture(u"status/"_s + QLatin1StringView(file));
  QIcon icon;
  for (const QSize& size : stored.availableSizes()) {
    const QPixmap picture = stored.pixmap(size, 1.0);
    for (const auto mode : {QIcon::Normal, QIcon::Selected}) icon.addPixmap(picture, mode);
  }
  return icon;
}

/// What the picture says, to those who don't see it.
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

/// With how its mail fares.
QString SpokenStanding(std::int16_t status, const shell::GameMail* mail) {
  const QString standing = StandingOf(status);
  return mail ? standing + u". "_s + Shown(mail->text) : standing;
}

QVariant AlignmentOf(int column) {
  return QVariant::fromValue<Qt::Alignment>(
      (column == shell::DateColumn ? Qt::AlignRight : Qt::AlignLeft) | Qt::AlignVCenter);
}

}  // namespace

QString ShownDate(const std::string& storedDate, QLocale::FormatType format) {
  const auto day = shell::DayOfGame(storedDate);
  if (!day) return ShownLine(storedDate);
  return QLocale().toString(QDate(day->year, day->month, day->day), format);
}

QString GameListModel::TextOf(const store::GameRecord& game, int column) const {
  switch (column) {
    case shell::GameIDColumn:
      return QString::number(game.GAME_ID);
    case shell::OpponentColumn:
      return ShownLine(game.GAME_OPPONENTS_NAME);
    case shell::TitleColumn:
      return ShownLine(game.GAME_NAME);
    case shell::DateColumn:
      return ShownDate(game.GAME_DATE, dates_);
    case shell::LastMoveColumn:
      return ShownLine(news_.LastMove(game));
    case shell::SinceColumn: {
      const auto since = news_.Since(game);
      return since ? ShownMoment(QDateTime::fromSecsSinceEpoch(*since)) : QString();
    }
    case shell::OpponentsIDColumn:
      return game.GAME_OPPONENTS_ID == 0 ? QString() : QString::number(game.GAME_OPPONENTS_ID);
    default:
      return {};
  }
}

GameListModel::GameListModel(QObject* parent) : QAbstractTableModel(parent) {
  for (std::size_t i = 0; i < std::size(pictureFiles); ++i) {
    pictures_[i + 1] = ReadPictureIcon(pictureFiles[i]);
  }
}

void GameListModel::Show(store::GameRecords games, shell::GameNews news) {
  beginResetModel();
  games_ = std::move(games);
  news_ = std::move(news);
  mails_ = {};
  endResetModel();
}

void GameListModel::WriteDates(QLocale::FormatType format) {
  if (std::exchange(dates_, format) == format || games_.empty()) return;
  Q_EMIT dataChanged(index(0, shell::DateColumn), index(rowCount() - 1, shell::DateColumn));
}

void GameListModel::ShowMails() {
  mails_ = {};
  if (games_.empty()) return;
  Q_EMIT dataChanged(index(0, shell::StatusColumn), index(rowCount() - 1, shell::StatusColumn));
}

/// Null but for the status of a game whose mail has something to tell.
const shell::GameMail* GameListModel::MailOf(const QModelIndex& index) const {
  return index.column() == shell::StatusColumn ? mails_.Of(*GameAt(index.row())) : nullptr;
}

const store::GameRecord* GameListModel::GameAt(int row) const {
  return row >= 0 && row < rowCount() ? &games_[static_cast<std::size_t>(row)] : nullptr;
}

int GameListModel::rowCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : static_cast<int>(games_.size());
}

int GameListModel::columnCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : shell::gameListColumns;
}

/// What the mail tells is news, and shown also to whoever wants no tips.
QVariant GameListModel::TipOf(const QModelIndex& index) const {
  const shell::GameMail* mail = MailOf(index);
  const bool isWanted = mail || platform::Settings().ShowToolTips;
  if (index.column() != shell::StatusColumn || !isWanted) return {};
  return SpokenStanding(GameAt(index.row())->GAME_STATUS, mail);
}

QVariant GameListModel::data(const QModelIndex& index, int role) const {
  const store::GameRecord* game = GameAt(index.row());
  if (!game) return {};
  const int column = index.column();
  const shell::GameMail* mail = MailOf(index);
  switch (role) {
    case Qt::DisplayRole:
      return TextOf(*game, column);
    case Qt::DecorationRole:
      if (column != shell::StatusColumn) return {};
      if (mail) return WithMailMark(Picture(shell::StatusIconOf(game->GAME_STATUS)), mail->kind);
      return Picture(shell::StatusIconOf(game->GAME_STATUS));
    case Qt::AccessibleTextRole:
      if (column == shell::StatusColumn) return SpokenStanding(game->GAME_STATUS, mail);
      return TextOf(*game, column);
    case Qt::ToolTipRole:
      return TipOf(index);
    case Qt::TextAlignmentRole:
      return AlignmentOf(column);
    default:
      return {};
  }
}

QVariant GameListModel::headerData(int section, Qt::Orientation orientation, int role) const {
  static constexpr const char* headings[shell::gameListColumns] = {
      "Game_ID",           "",          "Opponent", "Game title", "Date started",
      "Game_opponents_ID", "Last move", "Since"};
  if (orientation != Qt::Horizontal || section < 0 || section >= shell::gameListColumns) return {};
  if (role == Qt::DisplayRole) return QString(QLatin1StringView(headings[section]));
  if (role == Qt::TextAlignmentRole) return AlignmentOf(section);
  return {};
}

}  // namespace ui
