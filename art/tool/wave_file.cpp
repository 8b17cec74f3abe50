// SPDX-License-Identifier: GPL-3.0-or-later
#include "wave_file.h"

#include <cmath>
#include <cstdint>
#include <fstream>

namespace art {

namespace {

constexpr int kBytesASample = 2;
constexpr size_t kBytesBeforeSamples = 36;

void Put(std::string& out, size_t value, int bytes) {
  for (int i = 0; i < bytes; ++i) out += static_cast<char>(value >> (8 * i) & 0xff);
}

}  // namespace

bool SaveWave(const std::vector<double>& samples, int sampleRate, const std::string& path) {
  const size_t rate = static_cast<size_t>(sampleRate), size = samples.size() * kBytesASample;
  std::string out = "RIFF";
  Put(out, kBytesBeforeSamples + size, 4);
  out += "WAVEfmt ";
  Put(out, 16, 4);
  Put(out, 1, 2);
  Put(out, 1, 2);
  Put(out, rate, 4);
  Put(out, rate * kBytesASample, 4);
  Put(out, kBytesASample, 2);
  Put(out, size_t{8} * kBytesASample, 2);
  out += "data";
  Put(out, size, 4);
  for (double sample : samples) {
    Put(out, static_cast<size_t>(std::lround(sample * INT16_MAX)), kBytesASample);
  }
  std::ofstream file(path, std::ios::binary);
  file.write(out.data(), static_cast<std::streamsize>(out.size()));
  return static_cast<bool>(file.flush());
}

}  // namespace art
