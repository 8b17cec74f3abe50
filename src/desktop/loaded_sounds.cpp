// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/loaded_sounds.h"

#include <utility>

#include "desktop/modules.h"

namespace desktop {
namespace {

using NewSounds = platform::Sounds*();

std::unique_ptr<platform::Sounds> Load() {
  QString failure;  // is silence
  const auto make =
      reinterpret_cast<NewSounds*>(ModuleFunction("sounds", "TarvolenixNewSounds", failure));
  return std::unique_ptr<platform::Sounds>(make ? make() : nullptr);
}

}  // namespace

void LoadedSounds::Play(const std::string& path) {
  if (!std::exchange(isTried_, true)) sounds_ = Load();
  if (sounds_) sounds_->Play(path);
}

}  // namespace desktop
