// SPDX-License-Identifier: GPL-3.0-or-later
// The program's windows as a player sees them, with imaginary games and people in them, to look at
// and for the help. They stand on the tests' desktop, whose clock stands still.
#pragma once

#include <QImage>
#include <QWidget>

#include <memory>
#include <vector>

namespace boards {
struct ChessGraphics;
}

namespace art {

struct Look {
  const char* skin;  ///< empty: the plain look
  const char* board;
};

/// All windows wear it from now on, and `graphics` is its chess set. False where it isn't there.
bool Wear(const Look& look, boards::ChessGraphics& graphics);

struct ShownWindow {
  const char* name;
  std::unique_ptr<QWidget> (*make)(const boards::ChessGraphics& graphics);
};

/// What the windows show of games stands in the process's records and files from now on.
void StoreGames();

/// Every window, in the order of their use.
const std::vector<ShownWindow>& ShownWindows();

/// A window as it stands on a desktop: only what its outline leaves of it.
QImage Grabbed(QWidget& window);

}  // namespace art
