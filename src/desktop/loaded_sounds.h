// SPDX-License-Identifier: GPL-3.0-or-later
// The sound device, out of a module that is loaded by the first sound. Without the module there is
// silence.
#pragma once

#include <memory>
#include <string>

#include "platform/sounds.h"

namespace desktop {

class LoadedSounds : public platform::Sounds {
 public:
  void Play(const std::string& path) override;

 private:
  bool isTried_ = false;
  std::unique_ptr<platform::Sounds> sounds_;
};

}  // namespace desktop
