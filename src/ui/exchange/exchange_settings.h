// SPDX-License-Identifier: GPL-3.0-or-later
// What the exchange with other programs reads and keeps of the settings.
#pragma once

#include <QString>

#include <string>

namespace ui {

inline const QString pgnFilter = QStringLiteral("Games of chess (*.pgn *.PGN);;All files (*)");

/// Who the user is in his games.
struct Myself {
  std::string name;
  std::string address;
};

Myself WhoIAm();

/// Where the last file was, or the user's home.
QString LastFolder();
void KeepFolderOf(const QString& path);

}  // namespace ui
