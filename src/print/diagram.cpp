// SPDX-License-Identifier: GPL-3.0-or-later
#include "print/diagram.h"

#include <string_view>

#include "print/heading.h"

namespace print {

char SquareGlyph(int x, int y) {
  // By piece code: empty, White's pieces, Black's.
  constexpr std::string_view onLight = " rnbqkpRNBQKP";
  constexpr std::string_view onDark = "/tmvwloTMVWLO";
  const auto piece = static_cast<std::size_t>(rules::ThePosition().BoardState.At(x, y));
  return (rules::SquareShade({x, y}) == 0 ? onLight : onDark)[piece];
}

Diagram DiagramText(rules::Side viewSide) {
  const auto fromNear = [viewSide](int n) { return viewSide == rules::White ? n : 9 - n; };
  Diagram lines;
  lines.front() = "5111111116";
  lines.back() = "7444444448";
  for (int down = 1; down <= 8; ++down) {
    std::string row;
    for (int right = 1; right <= 8; ++right)
      row += SquareGlyph(fromNear(right), fromNear(9 - down));
    lines[static_cast<std::size_t>(down)] = "3" + row + "2";
  }
  return lines;
}

platform::PrinterFont DiagramFont(platform::Printer& printer, double size, int beside) {
  const platform::PrinterFont wanted{platform::diagramFont, size};
  const std::string line(static_cast<std::size_t>(beside * diagramWidth), '1');
  return {platform::diagramFont, printer.FittingSize({{wanted, line}})};
}

platform::PrintedLine Beside(platform::Printer& printer, const platform::PrinterFont& diagramFont,
                             const std::string& diagramLine, const std::string& text) {
  platform::PrintedLine line{{diagramFont, diagramLine}, {Arial(10), "      " + text}};
  line.back().font.FontSize = printer.FittingSize(line);
  return line;
}

}  // namespace print
