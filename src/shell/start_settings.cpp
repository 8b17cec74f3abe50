// SPDX-License-Identifier: GPL-3.0-or-later
#include "shell/start_settings.h"

#include "platform/conversions.h"
#include "platform/registry.h"

namespace shell {
namespace {

std::optional<std::string> Read(const char* setting) {
  return platform::ReadRegistry(platform::productSection, setting);
}

}  // namespace

std::optional<std::string> WindowSizeAtStart() {
  if (Read(simpleUI) == "True") return std::nullopt;
  const bool isNew = platform::IsEmptyValue(Read(displaySplash));
  return platform::ReturnValue(Read(windowSize), isNew ? newUsersWindowSize : usualWindowSize);
}

bool BeginsWithSplash() { return Read(displaySplash) == "True" && Read("RunBefore") == "True"; }

}  // namespace shell
