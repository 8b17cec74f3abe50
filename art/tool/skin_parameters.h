// SPDX-License-Identifier: GPL-3.0-or-later
// The parameters of one skin, as its .ini file under skins/ gives them.
//
// A key that is missing or unreadable is an error: a skin never renders from a value that nobody
// wrote. Lengths are logical pixels.
#pragma once

#include <QColor>
#include <QString>
#include <QStringList>

#include <optional>

#include "surface_material.h"

namespace art {

/// The one lamp, upper left. A surface is `near` times as bright next to it, `far` times across.
struct SkinLamp {
  float near, far;
  QColor light, shade;
  float lightStrength, shadeStrength;
};

/// How edges are cut.
struct SkinEdges {
  float rim, round;  // width of the raised rim along the outline, and of its rounded edges
  float panelRadius, wellRadius;
  float bevel;                        // width of the cut round panels, wells and frames
  float shadowReach, shadowStrength;  // of soft shadows
};

/// The thin line of metal that follows the outline, the frame of the board and the panels.
struct SkinLine {
  QColor shade, body, lit;
  float at, width;  // its distance from the outline
  float frame;      // its strength on the frame of the board
  float tooling;    // and on a panel
  float glow;       // how strongly its light falls beside it
};

struct SkinButtons {
  QColor face, lit, shade, border, accent;
  QColor ink, glyphAccent;
};

struct SkinTextColours {
  QColor text, title, link;
};

struct SkinFieldColours {
  QColor back, fore;
};

/// What longer texts are read on.
struct SkinPaper {
  QColor back, fore, link;
};

struct SkinGridColours {
  QColor backFixed, foreFixed, back, fore, backSelected, foreSelected;
};

struct SkinParameters {
  QString folder;
  int quality;
  QStringList titleFonts;
  SkinLamp lamp;
  SkinEdges edges;
  SkinLine line;
  MaterialParameters body, rim, frame, panel, inlay;
  SkinButtons buttons;
  SkinTextColours text;
  SkinFieldColours field;
  SkinPaper paper;
  SkinGridColours grid;
  QColor page;  // of the options pages
};

/// Empty when the file lacks a key or holds one that can't be read; `error` then names it.
std::optional<SkinParameters> ReadSkinParameters(const QString& path, QString* error);

}  // namespace art
