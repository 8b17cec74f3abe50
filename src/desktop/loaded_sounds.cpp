// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/loaded_sounds.h"

#include <QLibrary>
#include <QString>

#include <utility>

#include "desktop/folders.h"

namespace desktop {
namespace {

using NewSounds = platform::Sounds*();

std::unique_ptr<platform::Sounds> Load() {
  // Beside a program that lies in one folder with all that is its own.
  for (const std::string& folder : {ProgramFolder(), std::string(TARVOLENIX_MODULES)}) {
    QLibrary module(QString::fromStdString(folder + "tarvolenix-sounds.so"));
    const auto make = reinterpret_cast<NewSounds*>(module.resolve("TarvolenixNewSounds"));
    if (make) return std::unique_ptr<platform::Sounds>(make());
  }
  return nullptr;
}

}  // namespace

void LoadedSounds::Play(const std::string& path) {
  if (!std::exchange(isTried_, true)) sounds_ = Load();
  if (sounds_) sounds_->Play(path);
}

}  // namespace desktop
