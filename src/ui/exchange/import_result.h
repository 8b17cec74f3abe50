// SPDX-License-Identifier: GPL-3.0-or-later
// What was left out of an import, to be read and copied.
#pragma once

#include <QStringList>
#include <QWidget>

#include <vector>

#include "pgn/import.h"

namespace ui {

/// A line for each game that was refused or is known, by their numbers.
QStringList LeftOutLines(const std::vector<pgn::RefusedGame>& refused,
                         const std::vector<int>& known, const std::vector<int>& withoutComments);

/// Modal.
void ShowImportResult(QWidget& window, const QString& heading, const QStringList& lines);

}  // namespace ui
