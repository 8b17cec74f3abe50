// SPDX-License-Identifier: GPL-3.0-or-later
// Reading the games of a file, which may be very long: beside the window, which shows how far it is
// and lets the user cancel.
#pragma once

#include <QString>
#include <QWidget>

#include <string>

#include "pgn/import.h"

namespace ui {

struct FileReading {
  bool isDone = false;  ///< else it failed, or the user cancelled
  std::string why = {};  ///< why it failed, as a sentence
  pgn::ImportedGames games = {};
};

FileReading ReadFile(QWidget& window, const QString& path, const pgn::ImportOptions& options);

}  // namespace ui
