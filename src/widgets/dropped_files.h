// SPDX-License-Identifier: GPL-3.0-or-later
// Files that the user drags from a file manager to a window.
#pragma once

#include <functional>
#include <string>
#include <vector>

class QWidget;

namespace ui {

/// From now on the window takes files. `take` is called from the event loop, when the file manager
/// has been answered.
void TakeDroppedFiles(QWidget& window, std::function<void(const std::vector<std::string>&)> take);

}  // namespace ui
