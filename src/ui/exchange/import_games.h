// SPDX-License-Identifier: GPL-3.0-or-later
// Games of other chess programs, from a PGN file into the list.
#pragma once

#include <QStringList>
#include <QWidget>

#include <cstdint>
#include <optional>

namespace ui {

/// By its name.
bool IsPgnFile(const QString& path);

/// Empty where the user cancelled.
QStringList AskForPgnFiles(QWidget& window);

/// Modal, with a message on what became of the games. Games that are in the list already aren't
/// stored again. The number of the first game that was stored; nothing where none was.
std::optional<std::int32_t> ImportGames(QWidget& window, const QString& path);

}  // namespace ui
