// SPDX-License-Identifier: GPL-3.0-or-later
// A piece's drawing, taken apart into the layers that the lamp treats differently.
//
// A drawing is an SVG document with three kinds of placeholder:
//
//   {turned} {carved} {raised}       a part's paint; the document is rendered once per layer
//   {ink} {line} {glint}             a line's paint
//   {outline} {inner} {strength}     widths of the lines and opacity of the inner ones
//   {mirror M0,66 L34,66 C...}       path data: the right half of an outline, from the axis x = 0
//                                    to the axis again; M, L and C, absolute
//
// Turned parts are round about the axis; carved ones are flat and round off at their edge; raised
// ones lie on carved ones. Ink is the outline, line every line inside it, glint a drawn light.
#pragma once

#include <QString>

#include <optional>

#include "plane.h"
#include "set_parameters.h"

namespace art {

struct PieceDrawing {
  Plane turned, carved, raised;  // whole coverage of each kind, hidden parts included
  Plane ink, line, glint;        // what is seen of the drawn lines
  Plane cover;                   // the piece's whole silhouette, with its outline
  Plane halo;                    // that silhouette grown by the second line; empty without one
};

/// Renders the document at `path` into layers of `side` pixels; on failure `error` says why.
std::optional<PieceDrawing> ReadPieceDrawing(const QString& path, const Lines& lines, int side,
                                             QString* error);

/// Closes a half outline by its mirror image; empty when `half` is not of the form told above.
QString MirroredPath(const QString& half);

}  // namespace art
