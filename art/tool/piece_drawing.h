// SPDX-License-Identifier: GPL-3.0-or-later
// A piece's drawing, taken apart into the layers that the lamp treats differently.
//
// A drawing is an SVG document with two kinds of placeholder:
//
//   {turned} {carved} {raised} {ink} {glint}   a paint; the document is rendered once per layer
//   {mirror M0,66 L34,66 C...}                 path data: the right half of an outline, from the
//   axis
//                                              x = 0 to the axis again; M, L and C, absolute
//
// Turned parts are round about the axis; carved ones are flat and round off at their edge; raised
// ones lie on carved ones. Ink is every drawn line, glint a drawn light.
#pragma once

#include <QString>

#include <optional>

#include "plane.h"

namespace art {

struct PieceDrawing {
  Plane turned, carved, raised;  // whole coverage of each kind, hidden parts included
  Plane ink, glint;              // what is seen of the lines
  Plane cover;                   // the piece's whole silhouette, with its outline
};

/// Renders the document at `path` into layers of `side` pixels; on failure `error` says why.
std::optional<PieceDrawing> ReadPieceDrawing(const QString& path, int side, QString* error);

/// Closes a half outline by its mirror image; empty when `half` is not of the form told above.
QString MirroredPath(const QString& half);

}  // namespace art
