// SPDX-License-Identifier: GPL-3.0-or-later
// Work on very many games: beside the window, which shows how far it is and lets the user cancel.
#pragma once

#include <QString>
#include <QWidget>

#include <atomic>
#include <cstdint>
#include <functional>

namespace ui {

/// Shared by the work and the window.
struct WorkProgress {
  std::atomic<std::int64_t> done = 0;
  std::atomic<std::int64_t> whole = 0;  ///< 0 while nobody knows, and where the end can't be told
  std::atomic<bool> isCancelled = false;

  /// The rest of the way is short, and of a length that nobody knows.
  void BeginLastStep() { whole = 0; }
};

struct WorkWords {
  const char* name;  ///< of the dialog
  const char* title;
  QString what;  ///< such as "Reading the games of x.pgn"
};

/// Does a work on another thread, while the window is modal, and returns at its end. What takes no
/// time shows no dialog. A work that is cancelled should end soon; until then its dialog stays.
/// What it raises is raised here.
void DoWatched(QWidget& window, const WorkWords& words, WorkProgress& progress,
               const std::function<void()>& work);

}  // namespace ui
