// SPDX-License-Identifier: GPL-3.0-or-later
// The drawings of the icon family.
//
// An icon is an SVG document in which {name} stands for the file <name>.svg of a folder of parts:
// the family's paints, and shapes that several icons share. So one ivory, one line and one badge
// serve them all.
#pragma once

#include <QByteArray>
#include <QImage>
#include <QString>

#include <optional>

#include "set_parameters.h"

namespace art {

/// The document at `path` with its parts put in; on failure `error` names the file.
std::optional<QByteArray> ReadIconDrawing(const QString& path, const QString& parts,
                                          QString* error);

/// Draws the document at exactly `side` pixels. Pictures below 32 pixels go without the shadow,
/// which would only blur them.
QImage PaintIcon(const QByteArray& document, int side, const ShadowParameters& shadow);

}  // namespace art
