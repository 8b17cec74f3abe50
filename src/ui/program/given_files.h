// SPDX-License-Identifier: GPL-3.0-or-later
// Files that the user gave to the program, until it may take them.
#pragma once

#include <QStringList>
#include <QTimer>

#include <functional>
#include <string>
#include <vector>

namespace ui {

class GivenFiles : public QObject {
 public:
  /// `importGames` takes the files of games that other chess programs write.
  explicit GivenFiles(std::function<void(const QStringList& paths)> importGames);

  /// They are taken at once, or as soon as start, dialog or board are over:
  /// moves first, then games.
  void Give(const std::vector<std::string>& paths);

 private:
  void TakeIfFree();
  void TakeNextKind();

  std::function<void(const QStringList& paths)> importGames_;
  QTimer looks_;
  std::vector<std::string> waiting_;
};

}  // namespace ui
