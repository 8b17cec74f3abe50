// SPDX-License-Identifier: GPL-3.0-or-later
// How well a colour can be read on another one.
#pragma once

#include <QColor>

namespace ui {

inline constexpr double legibleContrast = 4.5;  // for text, as is generally advised

/// From 1, for the same colour twice, to 21.
double Contrast(const QColor& one, const QColor& other);

/// The faintest mixture of a text's colour with its ground, from half of each on, that is legible;
/// the text's own colour where there is none.
QColor LegiblyFaint(const QColor& text, const QColor& ground);

/// `colour`, with as much of the text's own in it as makes it legible.
QColor LegiblyColoured(const QColor& colour, const QColor& text, const QColor& ground);

/// Hints in empty fields and what is grey stay legible, whatever palette the desktop has and
/// changes to. Until the application ends.
void KeepFaintTextLegible();

}  // namespace ui
