// SPDX-License-Identifier: GPL-3.0-or-later
#include "surface_noise.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <numbers>

namespace art {

namespace {

constexpr uint32_t kDirections = 256;

struct Vector {
  float x, y;
};

// Looked up, since a sine at each corner of each octave would be most of the time.
const std::array<Vector, kDirections>& Directions() {
  static const auto directions = [] {
    std::array<Vector, kDirections> table{};
    for (uint32_t i = 0; i < kDirections; ++i) {
      const float angle = 2 * std::numbers::pi_v<float> * static_cast<float>(i) / kDirections;
      table[i] = {std::cos(angle), std::sin(angle)};
    }
    return table;
  }();
  return directions;
}

uint32_t Scrambled(uint32_t value) {
  value ^= value >> 16;
  value *= 0x7feb352dU;
  value ^= value >> 15;
  value *= 0x846ca68bU;
  return value ^ (value >> 16);
}

float Eased(float t) { return t * t * t * (t * (t * 6 - 15) + 10); }

}  // namespace

uint32_t SurfaceNoise::Corner(int x, int y) const {
  return Scrambled(static_cast<uint32_t>(x) * 0x9e3779b9U ^
                   Scrambled(static_cast<uint32_t>(y) + seed_));
}

float SurfaceNoise::Pull(int ix, int iy, float dx, float dy) const {
  const Vector& pull = Directions()[Corner(ix, iy) % kDirections];
  return pull.x * dx + pull.y * dy;
}

float SurfaceNoise::At(float x, float y) const {
  const float left = std::floor(x), top = std::floor(y);
  const float fx = x - left, fy = y - top;
  const int ix = static_cast<int>(left), iy = static_cast<int>(top);
  const float ease = Eased(fx);
  const float upper = std::lerp(Pull(ix, iy, fx, fy), Pull(ix + 1, iy, fx - 1, fy), ease);
  const float lower =
      std::lerp(Pull(ix, iy + 1, fx, fy - 1), Pull(ix + 1, iy + 1, fx - 1, fy - 1), ease);
  return 1.5F * std::lerp(upper, lower, Eased(fy));
}

float SurfaceNoise::Turbulence(float x, float y, int octaves) const {
  float sum = 0, strength = 0.5F, fineness = 1;
  for (int octave = 0; octave < octaves; ++octave) {
    const float offset = static_cast<float>(octave) * 17.3F;
    sum += strength * At(x * fineness + offset, y * fineness - offset);
    strength /= 2;
    fineness *= 2;
  }
  return sum;
}

float SurfaceNoise::Cells(float x, float y) const {
  const int ix = static_cast<int>(std::floor(x)), iy = static_cast<int>(std::floor(y));
  float nearest = 9, second = 9;
  for (int cy = iy - 1; cy <= iy + 1; ++cy) {
    for (int cx = ix - 1; cx <= ix + 1; ++cx) {
      const uint32_t corner = Corner(cx, cy);
      const float px = static_cast<float>(cx) + static_cast<float>(corner & 0xffffU) / 65536;
      const float py = static_cast<float>(cy) + static_cast<float>(corner >> 16) / 65536;
      const float away = std::hypot(px - x, py - y);
      second = std::min(second, std::max(nearest, away));
      nearest = std::min(nearest, away);
    }
  }
  return std::min(1.0F, (second - nearest) * 2);
}

}  // namespace art
