// SPDX-License-Identifier: GPL-3.0-or-later
// Wave files through the toolkit's sound effect. Whatever is wrong, with the file or with the
// device, means silence.
#pragma once

#include <memory>
#include <string>

#include "platform/sounds.h"

class QSoundEffect;

namespace sounds {

class QtSounds : public platform::Sounds {
 public:
  QtSounds();
  ~QtSounds() override;

  void Play(const std::string& path) override;

 private:
  std::unique_ptr<QSoundEffect> effect_;  // made by the first sound
};

}  // namespace sounds
