// SPDX-License-Identifier: GPL-3.0-or-later
// A wave file of 16 bits and one channel.
//
//   0  "RIFF", bytes that follow (4), "WAVE"
//  12  "fmt ", 16 (4), format 1 (2), channels 1 (2), samples a second (4), bytes a second (4),
//      bytes a sample (2), bits a sample (2)
//  36  "data", bytes of the samples (4), the samples (2 each); all numbers are little-endian
#pragma once

#include <string>
#include <vector>

namespace art {

/// Samples are from -1 to 1. False when the file can't be written.
bool SaveWave(const std::vector<double>& samples, int sampleRate, const std::string& path);

}  // namespace art
