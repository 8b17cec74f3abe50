// SPDX-License-Identifier: GPL-3.0-or-later
// The parameters of one chess set, as its .ini file under sets/ gives them.
//
// A key that is missing or unreadable is an error: a set never renders from a value that nobody
// wrote.
#pragma once

#include <QColor>
#include <QString>

#include <optional>

namespace art {

struct Lamp {
  float left, up, front;  // direction towards the lamp
  float ambient;          // light that reaches every surface
  float gloss, glossPower;
  float rim;  // width of the light along the lit edge, in thousandths of a cell
};

struct ShadowParameters {
  float right, down, blur;  // thousandths of a cell
  float strength;
  QColor colour;
};

/// The surface colours of one side's pieces, from away from the lamp to the glint.
struct SidePalette {
  QColor ink, shade, body, lit, glint;
  float rim;  // strength of the light along the lit edge
};

struct WoodParameters {
  QColor base, deep, pale;
  int seed;
  float rings, warp, ringStrength;
  float fibre, fibreStrength;
  float along;  // how often the grain changes along its run, per cell
  float pores;
};

struct FallenParameters {
  float turn;  // degrees clockwise from upright
  float scale;
};

struct SetParameters {
  QString folder, board;
  int cell, quality, iconSide;
  Lamp lamp;
  ShadowParameters shadow;
  SidePalette white, black;
  FallenParameters fallen;
  WoodParameters light, dark;
};

/// Empty when the file lacks a key or holds one that can't be read; `error` then names it.
std::optional<SetParameters> ReadSetParameters(const QString& path, QString* error);

}  // namespace art
