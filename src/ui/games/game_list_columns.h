// SPDX-License-Identifier: GPL-3.0-or-later
// Which columns of the game list are seen, in which order and how wide. The picture of how a game
// stands is always seen; each of the others can be hidden, and the last one takes the rest of the
// width.
#pragma once

#include <functional>
#include <vector>

#include "shell/game_list.h"
#include "skin/window_region.h"
#include "widgets/menu_rows.h"

class QTableView;

namespace ui {

/// Columns are as wide as they always were, in twips.
constexpr int InPixels(int twips) { return (twips + twipsPerPixel / 2) / twipsPerPixel; }

/// Puts the columns in their order. Once, behind the model.
void ArrangeColumns(QTableView& grid);

/// Shows those that the user wants to see.
void ShowWantedColumns(QTableView& grid);

/// As wide as they are together, with a long date.
int WidthOfColumns(const QTableView& grid);

/// `width` is what there is for all of them. Where names and titles can make room for the others,
/// they do: cut, they show as a whole where they are pointed at.
void FitColumns(QTableView& grid, int width);

bool HasRoomForLongDates(const QTableView& grid);

/// A row for each that can be hidden. `changed` is called when the user has ticked one.
std::vector<MenuRow> ColumnRows(const std::function<void()>& changed);

}  // namespace ui
