// SPDX-License-Identifier: GPL-3.0-or-later
// The application object, which draws all windows as large as the user wants them.
#pragma once

#include <QApplication>
#include <QByteArray>

#include <optional>
#include <vector>

#include "front/start_wishes.h"

namespace front {

/// The toolkit takes its scale before there is a screen to look at, and keeps it. So the scale of
/// the last start is taken first, and the application object is made once more where the screen or
/// the user's wish has become another one; to look first would make every start a third longer.
class ScaledApplication {
 public:
  ScaledApplication(const StartWishes& wishes, int argc, char** argv);

  double Scale() const { return scale_; }

 private:
  void Make(double scale);

  const std::vector<char*> given_;
  const QByteArray ownScale_;  ///< what the user wants of all programs, as they are told it
  std::vector<char*> arguments_;
  int count_ = 0;
  double scale_ = 1;
  std::optional<QApplication> application_;
};

}  // namespace front
