// SPDX-License-Identifier: GPL-3.0-or-later
// What the front has done when the program proper comes, a module that goes on from there. Both are
// built together, but each has a process state of its own: what stands here knows none.
#pragma once

#include <QPointer>

#include <memory>
#include <string>

#include "desktop/folders.h"
#include "desktop/single_instance.h"
#include "skin/splash_screen.h"

namespace front {

struct BegunStart {
  desktop::Folders folders;
  std::string commandLine;
  double windowScale = 1;
  std::unique_ptr<desktop::SingleInstance> instance;  ///< null where nobody has looked for it yet
  QPointer<ui::SplashScreen> splash;  ///< it shows already; null where it isn't the first to show
};

/// Runs the program until its end. The answer is the process's.
using RunProgram = int(BegunStart& start);

inline constexpr const char* programModule = "program";
inline constexpr const char* runProgram = "TarvolenixRunProgram";

}  // namespace front
