// SPDX-License-Identifier: GPL-3.0-or-later
// The button strips of a skin.
#pragma once

#include <QImage>
#include <QString>

#include "skin/layouts/strips.h"
#include "skin_parameters.h"

namespace art {

/// The face that all buttons share, up and down. The program cuts the corners.
QImage PaintSystemButtons(const SkinParameters& skin);

/// A strip of buttons with icons: a row for each name of a drawing in `glyphs`, where an empty one
/// leaves the face bare, and a column for each state. A null image with `error` where a drawing
/// can't be read.
QImage PaintToolStrip(const SkinParameters& skin, const ui::layouts::Strip& strip,
                      const QString& glyphFolder, const QStringList& glyphs, QString* error);

}  // namespace art
