// SPDX-License-Identifier: GPL-3.0-or-later
// Turns a sound of the table into samples. Nothing is recorded: strikes are sums of decaying
// partials, brushes are filtered noise, and the same table always gives the same samples.
#pragma once

#include <vector>

#include "sound_table.h"

namespace art {

constexpr int kSampleRate = 44100;

/// Samples from -1 to 1, one channel, with their peak at -6 dB of full scale. Begins and ends in
/// silence, so that nothing clicks.
std::vector<double> Synthesise(const Sound& sound);

}  // namespace art
