// SPDX-License-Identifier: GPL-3.0-or-later
// Reading a file that may be very long: beside the window, which shows how far it is and lets the
// user cancel.
#pragma once

#include <QString>
#include <QWidget>

#include <functional>
#include <iosfwd>
#include <string>

#include "ui/exchange/watched_work.h"

namespace ui {

struct FileReading {
  bool isDone = false;   ///< else it failed, or the user cancelled
  std::string why = {};  ///< why it failed, as a sentence
};

/// `read` does its work on another thread, while the window is modal. What it does behind the end
/// of the text should end soon where the user cancels.
FileReading ReadFile(QWidget& window, const QString& path,
                     const std::function<void(std::istream& text, WorkProgress& progress)>& read);

}  // namespace ui
