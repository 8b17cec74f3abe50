// SPDX-License-Identifier: GPL-3.0-or-later
#include "surface_material.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace art {

Material::Material(const MaterialParameters& parameters)
    : parameters_(parameters),
      base_(Tint::Of(parameters.base)),
      deep_(Tint::Of(parameters.deep)),
      pale_(Tint::Of(parameters.pale)),
      noise_(parameters.seed) {}

float Material::ToneAt(float x, float y) const {
  const MaterialParameters& m = parameters_;
  float tone = 0;
  if (m.cloudStrength > 0) {
    tone += m.cloudStrength * noise_.Turbulence(x / m.cloudWidth, y / m.cloudWidth, 3);
  }
  if (m.cellStrength > 0) {
    tone += m.cellStrength * (noise_.Cells(x / m.cellWidth, y / m.cellWidth) - 0.6F);
  }
  if (m.ringStrength == 0 && m.fibreStrength == 0) return tone;
  // The rings wander, and the fibre follows them.
  const float bend = m.ringBend * noise_.Turbulence(x / 260, y / 70, 3);
  const float across = y + bend;
  const float ring = std::sin(2 * std::numbers::pi_v<float> * across / m.ringWidth +
                              3 * noise_.At(x / 400, across / (m.ringWidth * 2.3F)));
  tone += m.ringStrength * ring;
  // Each fibre begins elsewhere, else their ends would line up.
  const float along = x / m.fibreLength + 0.7F * noise_.At(x / 170, across / 5);
  tone += m.fibreStrength * noise_.Turbulence(along, across / m.fibreWidth, 4);
  if (m.poreStrength > 0) {
    const float pore = noise_.At(x / 13 + 91, across / 0.9F + 37);
    tone -= m.poreStrength * std::max(0.0F, pore - 0.35F) * 2;
  }
  return tone;
}

Tint Material::At(float x, float y) const {
  const float tone = ToneAt(x, y);
  return Mix(base_, tone < 0 ? deep_ : pale_, std::min(1.0F, std::abs(tone)));
}

}  // namespace art
