// SPDX-License-Identifier: GPL-3.0-or-later
// The table of sounds, sounds/sounds.txt, whose form is told at its head.
#pragma once

#include <iosfwd>
#include <optional>
#include <string>
#include <vector>

namespace art {

struct Partial {
  double ratio, level, decay;
};

using Timbre = std::vector<Partial>;

struct Strike {
  double at;
  Timbre timbre;
  double pitch, level, stretch;
};

/// Noise in a band that is `width` octaves wide.
struct Brush {
  double at, centre, width, level, decay;
};

struct Sound {
  double seconds;
  std::string file;
  std::vector<Strike> strikes;
  std::vector<Brush> brushes;
};

/// Reads the whole table; `error` names the first line that isn't of that form.
std::optional<std::vector<Sound>> ReadSoundTable(std::istream& in, std::string* error);

}  // namespace art
