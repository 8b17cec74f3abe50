// SPDX-License-Identifier: GPL-3.0-or-later
// What was left out of an import, to be read and copied.
#pragma once

#include <QStringList>
#include <QWidget>

#include <vector>

#include "pgn/import.h"
#include "pgn/known_games.h"

namespace ui {

/// A line for each game that was refused or is known, or whose comments were taken out of it, by
/// their numbers. `areKept` tells whether these are in the notes.
QStringList LeftOutLines(const pgn::ImportedGames& games, const std::vector<pgn::KnownGame>& known,
                         bool areKept);

/// Modal.
void ShowImportResult(QWidget& window, const QString& heading, const QStringList& lines);

}  // namespace ui
