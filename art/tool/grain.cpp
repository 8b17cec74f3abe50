// SPDX-License-Identifier: GPL-3.0-or-later
#include "grain.h"

#include <algorithm>
#include <cmath>
#include <numbers>

#include "surface_noise.h"

namespace art {

namespace {

constexpr int kOctaves = 4;
// The noise is drawn finer than the square and scaled down, so that no fibre breaks into pixels.
constexpr int kOversampling = 3;
// How wide the shade at a square's border is, in parts of a cell.
constexpr float kEdgeWidth = 0.012F;

bool IsEven(const GrainParameters& grain) {
  return grain.ringStrength == 0 && grain.fibreStrength == 0 && grain.pores == 0 && grain.edge == 0;
}

// The shade at the border: 1 on it, 0 from the edge's width inwards.
float EdgeShade(float x, float y) {
  const float nearest = std::min({x, y, 1 - x, 1 - y});
  return std::max(0.0F, 1 - nearest / kEdgeWidth);
}

// How far the material at (x, y), in cells, is from its base tone: -1 deep to 1 pale.
float ToneAt(const GrainParameters& grain, const SurfaceNoise& noise, float x, float y) {
  const float bend = grain.warp * noise.Turbulence(x * 1.3F, y * grain.along * 0.35F, kOctaves);
  const float ring = std::sin(2 * std::numbers::pi_v<float> * (grain.rings * x + bend));
  const float fibre = noise.Turbulence(x * grain.fibre + 3 * bend, y * grain.along, kOctaves);
  const float pore = noise.At(x * grain.fibre * 2.3F + 91, y * grain.along * 6 + 37);
  const float sunk = std::max(0.0F, pore - 0.45F) * 2;
  return grain.ringStrength * ring + grain.fibreStrength * fibre - grain.pores * sunk -
         grain.edge * EdgeShade(x, y);
}

QColor Toned(const GrainParameters& grain, float tone) {
  const QColor& towards = tone < 0 ? grain.deep : grain.pale;
  const float share = std::min(1.0F, std::abs(tone));
  return QColor::fromRgbF(std::lerp(grain.base.redF(), towards.redF(), share),
                          std::lerp(grain.base.greenF(), towards.greenF(), share),
                          std::lerp(grain.base.blueF(), towards.blueF(), share));
}

}  // namespace

QImage PaintGrain(const GrainParameters& grain, int side) {
  if (IsEven(grain)) {
    QImage even(side, side, QImage::Format_RGB32);
    even.fill(grain.base);
    return even;
  }
  const SurfaceNoise noise(grain.seed);
  const int fine = side * kOversampling;
  QImage picture(fine, fine, QImage::Format_RGB32);
  for (int y = 0; y < fine; ++y) {
    QRgb* line = reinterpret_cast<QRgb*>(picture.scanLine(y));
    for (int x = 0; x < fine; ++x) {
      const float cells = static_cast<float>(fine);
      const float tone =
          ToneAt(grain, noise, static_cast<float>(x) / cells, static_cast<float>(y) / cells);
      line[x] = Toned(grain, tone).rgb();
    }
  }
  return picture.scaled(side, side, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
}

}  // namespace art
