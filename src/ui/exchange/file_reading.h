// SPDX-License-Identifier: GPL-3.0-or-later
// Reading the games of a file, which may be very long: beside the window, which shows how far it
// is and lets the user cancel.
#pragma once

#include <QString>
#include <QWidget>

#include <functional>
#include <iosfwd>
#include <string>

#include "pgn/import.h"

namespace ui {

struct FileReading {
  bool isDone = false;   ///< else it failed, or the user cancelled
  std::string why = {};  ///< why it failed, as a sentence
  pgn::ImportedGames games = {};
};

/// `read` does its work on another thread, while the window is modal.
FileReading ReadFile(QWidget& window, const QString& path,
                     const std::function<pgn::ImportedGames(std::istream& text)>& read);

}  // namespace ui
