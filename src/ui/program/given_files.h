// SPDX-License-Identifier: GPL-3.0-or-later
// Files that the user gave to the program, until it may take them.
#pragma once

#include <QTimer>

#include <string>
#include <vector>

namespace ui {

class GivenFiles : public QObject {
 public:
  GivenFiles();

  /// They are taken at once, or as soon as start, dialog or board are over.
  void Give(const std::vector<std::string>& paths);

 private:
  void TakeIfFree();

  QTimer looks_;
  std::vector<std::string> waiting_;
};

}  // namespace ui
