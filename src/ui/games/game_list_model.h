// SPDX-License-Identifier: GPL-3.0-or-later
// The games as the grid of the game list asks for them. Texts are made only for the rows that are
// seen, so that a list of any length opens at once.
#pragma once

#include <QAbstractTableModel>
#include <QDateTime>
#include <QIcon>
#include <QLocale>

#include <array>
#include <string>

#include "shell/game_list.h"
#include "shell/mail_watch.h"
#include "store/game_record.h"

namespace ui {

class GameListModel : public QAbstractTableModel {
  Q_OBJECT

 public:
  explicit GameListModel(QObject* parent);

  void Show(store::GameRecords games, shell::GameNews news);

  /// The days on which games were begun, with all that belongs to a date, or in short.
  void WriteDates(QLocale::FormatType format);

  /// Shows how the mails of the games fare by now.
  void ShowMails();

  const store::GameRecord* GameAt(int row) const;

  /// How many it has, for telling whether it has moved on.
  std::int32_t MovesOf(const store::GameRecord& game) const { return news_.Moves(game); }

  /// The list's pictures count from 1; without a file it is a null icon.
  const QIcon& Picture(int number) const { return pictures_[static_cast<std::size_t>(number)]; }

  int rowCount(const QModelIndex& parent = {}) const override;
  int columnCount(const QModelIndex& parent = {}) const override;
  QVariant data(const QModelIndex& index, int role) const override;
  QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

 private:
  const shell::GameMail* MailOf(const QModelIndex& index) const;

  QString TextOf(const store::GameRecord& game, int column) const;
  QVariant TipOf(const QModelIndex& index) const;

  store::GameRecords games_;
  QLocale::FormatType dates_ = QLocale::LongFormat;
  shell::GameNews news_;
  shell::GameMails mails_;
  std::array<QIcon, shell::statusIconCount + 1> pictures_;  // the first one is empty
};

/// A date in the desktop's long form; one that can't be read shows as it is stored.
QString ShownDate(const std::string& storedDate, QLocale::FormatType format = QLocale::LongFormat);

}  // namespace ui
