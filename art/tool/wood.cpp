// SPDX-License-Identifier: GPL-3.0-or-later
#include "wood.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <numbers>

namespace art {

namespace {

constexpr int kOctaves = 4;
// The noise is drawn finer than the square and scaled down, so that no fibre breaks into pixels.
constexpr int kOversampling = 3;

uint32_t Scrambled(uint32_t value) {
  value ^= value >> 16;
  value *= 0x7feb352dU;
  value ^= value >> 15;
  value *= 0x846ca68bU;
  return value ^ (value >> 16);
}

// Gradient noise over a lattice of random directions, about -1 to 1.
class Noise {
 public:
  explicit Noise(int seed) : seed_(static_cast<uint32_t>(seed)) {}

  float At(float x, float y) const {
    const float left = std::floor(x), top = std::floor(y);
    const float fx = x - left, fy = y - top;
    const int ix = static_cast<int>(left), iy = static_cast<int>(top);
    const float upper = std::lerp(Pull(ix, iy, fx, fy), Pull(ix + 1, iy, fx - 1, fy), Ease(fx));
    const float lower =
        std::lerp(Pull(ix, iy + 1, fx, fy - 1), Pull(ix + 1, iy + 1, fx - 1, fy - 1), Ease(fx));
    return 1.5F * std::lerp(upper, lower, Ease(fy));
  }

  /// Octaves of half the strength and twice the fineness added up.
  float Turbulence(float x, float y) const {
    float sum = 0, strength = 0.5F, fineness = 1;
    for (int octave = 0; octave < kOctaves; ++octave) {
      const float offset = static_cast<float>(octave) * 17.3F;
      sum += strength * At(x * fineness + offset, y * fineness - offset);
      strength /= 2;
      fineness *= 2;
    }
    return sum;
  }

 private:
  static float Ease(float t) { return t * t * t * (t * (t * 6 - 15) + 10); }

  float Pull(int ix, int iy, float dx, float dy) const {
    const uint32_t corner = Scrambled(static_cast<uint32_t>(ix) * 0x9e3779b9U ^
                                      Scrambled(static_cast<uint32_t>(iy) + seed_));
    const float angle = static_cast<float>(corner & 0xffffU) * (std::numbers::pi_v<float> / 32768);
    return std::cos(angle) * dx + std::sin(angle) * dy;
  }

  uint32_t seed_;
};

// How far the wood at (x, y), in cells, is from its base tone: -1 deep to 1 pale.
float Grain(const WoodParameters& wood, const Noise& noise, float x, float y) {
  const float bend = wood.warp * noise.Turbulence(x * 1.3F, y * wood.along * 0.35F);
  const float ring = std::sin(2 * std::numbers::pi_v<float> * (wood.rings * x + bend));
  const float fibre = noise.Turbulence(x * wood.fibre + 3 * bend, y * wood.along);
  const float pore = noise.At(x * wood.fibre * 2.3F + 91, y * wood.along * 6 + 37);
  const float sunk = std::max(0.0F, pore - 0.45F) * 2;
  return wood.ringStrength * ring + wood.fibreStrength * fibre - wood.pores * sunk;
}

QColor Toned(const WoodParameters& wood, float tone) {
  const QColor& towards = tone < 0 ? wood.deep : wood.pale;
  const float share = std::min(1.0F, std::abs(tone));
  return QColor::fromRgbF(std::lerp(wood.base.redF(), towards.redF(), share),
                          std::lerp(wood.base.greenF(), towards.greenF(), share),
                          std::lerp(wood.base.blueF(), towards.blueF(), share));
}

}  // namespace

QImage PaintWood(const WoodParameters& wood, int side) {
  const Noise noise(wood.seed);
  const int fine = side * kOversampling;
  QImage picture(fine, fine, QImage::Format_RGB32);
  for (int y = 0; y < fine; ++y) {
    QRgb* line = reinterpret_cast<QRgb*>(picture.scanLine(y));
    for (int x = 0; x < fine; ++x) {
      const float cells = static_cast<float>(fine);
      const float tone =
          Grain(wood, noise, static_cast<float>(x) / cells, static_cast<float>(y) / cells);
      line[x] = Toned(wood, tone).rgb();
    }
  }
  return picture.scaled(side, side, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
}

}  // namespace art
