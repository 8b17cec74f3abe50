// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/games/game_list_columns.h"

#include <QDateTime>
#include <QHeaderView>
#include <QLocale>
#include <QTableView>

#include <algorithm>
#include <string>

#include "platform/setting_variables.h"
#include "ui/games/game_list_model.h"
#include "widgets/shown_moment.h"

namespace ui {

using platform::Settings;

namespace {

constexpr int statusTwips = 450;
constexpr int opponentTwips = 2455;
constexpr int titleTwips = 3390;
constexpr int mostRoomOfTitles = 64;  ///< that they may lend to the others
constexpr int cellMargin = 6;
constexpr const char* longDate = "30/09/2026";  ///< a Wednesday
constexpr const char* longMove = "28... Nbxd7+";

int WidthOf(const QTableView& grid, const QString& text) {
  return grid.fontMetrics().horizontalAdvance(text) + 2 * cellMargin;
}

struct ListColumn {
  shell::GameListColumn column;
  const char* stored;  ///< its name in the setting
  const char* caption;
  int (*width)(const QTableView& grid);
};

/// From left to right.
constexpr ListColumn columns[] = {
    {shell::OpponentColumn, "Opponent", "Opponent",
     [](const QTableView&) { return InPixels(opponentTwips); }},
    {shell::TitleColumn, "Title", "Game title",
     [](const QTableView&) { return InPixels(titleTwips); }},
    {shell::LastMoveColumn, "LastMove", "Last move",
     [](const QTableView& grid) { return WidthOf(grid, QString::fromLatin1(longMove)); }},
    {shell::SinceColumn, "Since", "Since",
     [](const QTableView& grid) {
       return WidthOf(grid, ShownMoment(QDateTime({2026, 12, 30}, {22, 58})));
     }},
    {shell::DateColumn, "Date", "Date started",
     [](const QTableView& grid) { return WidthOf(grid, ShownDate(longDate)); }},
};

/// The setting names the hidden ones, each with a ";" behind it.
std::string Entry(const ListColumn& column) { return std::string(column.stored) + ';'; }

bool IsWanted(const ListColumn& column) {
  return (';' + Settings().HiddenColumns).find(';' + Entry(column)) == std::string::npos;
}

void Toggle(const ListColumn& toggled) {
  std::string hidden;
  for (const ListColumn& column : columns) {
    if (IsWanted(column) == (&column == &toggled)) hidden += Entry(column);
  }
  Settings().HiddenColumns = hidden;
}

}  // namespace

void ArrangeColumns(QTableView& grid) {
  QHeaderView& heading = *grid.horizontalHeader();
  int place = shell::StatusColumn + 1;
  for (const ListColumn& column : columns) {
    heading.moveSection(heading.visualIndex(column.column), place++);
  }
  for (const int hidden : {shell::GameIDColumn, shell::OpponentsIDColumn}) {
    grid.setColumnHidden(hidden, true);
  }
}

void ShowWantedColumns(QTableView& grid) {
  for (const ListColumn& column : columns) grid.setColumnHidden(column.column, !IsWanted(column));
}

int WidthOfColumns(const QTableView& grid) {
  int width = InPixels(statusTwips);
  for (const ListColumn& column : columns) {
    if (IsWanted(column)) width += column.width(grid);
  }
  return width;
}

namespace {

bool IsName(const ListColumn& column) {
  return column.column == shell::OpponentColumn || column.column == shell::TitleColumn;
}

int WidthOfNames(const QTableView& grid) {
  int width = 0;
  for (const ListColumn& column : columns) {
    if (IsName(column) && IsWanted(column)) width += column.width(grid);
  }
  return width;
}

int SavedByShortDates(const QTableView& grid) {
  if (grid.isColumnHidden(shell::DateColumn)) return 0;
  return WidthOf(grid, ShownDate(longDate)) -
         WidthOf(grid, ShownDate(longDate, QLocale::ShortFormat));
}

/// What the columns want beyond the width: for long dates, where the titles can lend that much, or
/// else for short ones.
int LackingRoom(const QTableView& grid, int width) {
  int lacking = WidthOfColumns(grid) - width;
  if (lacking > mostRoomOfTitles) lacking -= SavedByShortDates(grid);
  return std::max(0, lacking);
}

/// The titles lend a little alone; where large letters on a small screen lack more, names and
/// titles give up to half.
int LoanOf(const ListColumn& column, const QTableView& grid, int lacking) {
  if (!IsName(column)) return 0;
  if (lacking <= mostRoomOfTitles) return column.column == shell::TitleColumn ? lacking : 0;
  const int names = WidthOfNames(grid);
  return std::min(lacking, names / 2) * column.width(grid) / names;
}

}  // namespace

void FitColumns(QTableView& grid, int width) {
  grid.setColumnWidth(shell::StatusColumn, InPixels(statusTwips));
  const int lacking = LackingRoom(grid, width);
  int rest = width - InPixels(statusTwips);
  const ListColumn* last = nullptr;
  for (const ListColumn& column : columns) {
    if (!IsWanted(column)) continue;
    if (last) {
      const int own = last->width(grid) - LoanOf(*last, grid, lacking);
      grid.setColumnWidth(last->column, own);
      rest -= own;
    }
    last = &column;
  }
  if (last) grid.setColumnWidth(last->column, std::max(0, rest));
}

bool HasRoomForLongDates(const QTableView& grid) {
  return grid.columnWidth(shell::DateColumn) >= WidthOf(grid, ShownDate(longDate));
}

std::vector<MenuRow> ColumnRows(const std::function<void()>& changed) {
  std::vector<MenuRow> rows;
  for (const ListColumn& column : columns) {
    const auto toggle = [&column, changed] {
      Toggle(column);
      changed();
    };
    rows.push_back({.caption = column.caption,
                    .action = toggle,
                    .checked = IsWanted(column),
                    .isSwitch = true});
  }
  return rows;
}

}  // namespace ui
