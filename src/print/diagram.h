// SPDX-License-Identifier: GPL-3.0-or-later
// A board as text in the font for diagrams, whose letters are pieces on squares and whose digits
// are the border.
#pragma once

#include <array>
#include <string>

#include "platform/printing.h"
#include "rules/position.h"

namespace print {

/// The character of that font for a square of the position.
char SquareGlyph(int x, int y);

/// The lines from top to bottom, all of the same length.
using Diagram = std::array<std::string, 10>;
inline constexpr int diagramWidth = 10;

/// The position as a player sees it, whose own side is below.
Diagram DiagramText(rules::Side viewSide);

/// A line of diagrams at the largest size, up to `size`, at which so many stand beside each other.
platform::PrinterFont DiagramFont(platform::Printer& printer, double size, int beside);

/// A line of a diagram with a text beside it, which is smaller where there is little room.
platform::PrintedLine Beside(platform::Printer& printer, const platform::PrinterFont& diagramFont,
                             const std::string& diagramLine, const std::string& text);

}  // namespace print
