// SPDX-License-Identifier: GPL-3.0-or-later
// The parameters of a chess set and of a board, as the .ini files under sets/ and boards/ give
// them.
#pragma once

#include <QColor>
#include <QString>
#include <QStringList>

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

/// Widths of the drawn lines in thousandths of a cell.
struct Lines {
  float outline, inner;
  float strength;  // how opaque the inner lines are
  float halo;      // width of a second line round the outline
};

/// One side's colours: the outline (ink) and the lines inside it, and the surface from away from
/// the lamp to the glint.
struct SidePalette {
  QColor halo, ink, line, shade, body, lit, glint;
  float rim;  // strength of the light along the lit edge
};

struct GrainParameters {
  QColor base, deep, pale;
  int seed;
  float rings, warp, ringStrength;
  float fibre, fibreStrength;
  float along;  // how often the grain changes along its run, per cell
  float pores;
  float edge;  // shade at the square's border
};

/// Two kinds of square under the name that the user chooses them by.
struct BoardParameters {
  QString name;
  GrainParameters light, dark;
};

struct FallenParameters {
  float turn;  // degrees clockwise from upright
  float scale;
};

struct SetParameters {
  QString folder;
  QStringList boards;  // names of files under boards/, without .ini
  int cell, quality, iconSide;
  Lines lines;
  Lamp lamp;
  ShadowParameters shadow;
  SidePalette white, black;
  FallenParameters fallen;
};

/// Empty when the file lacks a key or holds one that can't be read; `error` then names it.
std::optional<BoardParameters> ReadBoardParameters(const QString& path, QString* error);
std::optional<SetParameters> ReadSetParameters(const QString& path, QString* error);

}  // namespace art
