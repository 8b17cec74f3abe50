// SPDX-License-Identifier: GPL-3.0-or-later
// Stored games as PGN, for other chess programs: to the clipboard, and into a file that the user
// picks. Each tells the user of a failure.
#pragma once

#include <QWidget>

#include <cstdint>

namespace ui {

void CopyGame(const QWidget& window, std::int32_t gameID);

/// Modal. The mail addresses are in the file only where the user wants that.
void SaveGameAsPgn(QWidget& window, std::int32_t gameID);
void SaveAllGamesAsPgn(QWidget& window);

}  // namespace ui
