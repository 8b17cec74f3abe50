// SPDX-License-Identifier: GPL-3.0-or-later
#include "print/move_table.h"

#include <algorithm>

#include "print/heading.h"

namespace print {
namespace {

using Pairs = std::vector<std::string>;
using Lines = std::vector<std::string>;

constexpr std::size_t longestLine = 110;
constexpr std::size_t columnWidth = 27;

Lines RunningText(const Pairs& pairs) {
  Lines lines(1);
  for (const std::string& pair : pairs) {
    if (lines.back().size() + pair.size() + 1 > longestLine) lines.emplace_back();
    lines.back() += pair + " ";
  }
  return lines;
}

/// A pair that is wider than its column still keeps off its neighbour.
std::string Padded(const std::string& pair) {
  if (pair.size() > columnWidth) return pair + " ";
  return pair + std::string(columnWidth - pair.size(), ' ');
}

/// The rows of each page.
std::vector<Lines> TablePages(const Pairs& pairs, std::size_t columns, std::size_t rows) {
  std::vector<Lines> pages;
  for (std::size_t first = 0; first < pairs.size(); first += columns * rows) {
    Lines& page = pages.emplace_back();
    for (std::size_t row = first; row < std::min(first + rows, pairs.size()); ++row) {
      std::string& line = page.emplace_back();
      for (std::size_t column = 0; column < columns; ++column) {
        const std::size_t pair = row + column * rows;
        if (pair < pairs.size()) line += Padded(pairs[pair]);
      }
    }
  }
  return pages;
}

/// The blanks behind a row need no room.
std::string Widest(const std::vector<Lines>& pages) {
  std::string widest;
  for (const Lines& page : pages) {
    for (const std::string& line : page) {
      const std::string text = line.substr(0, line.find_last_not_of(' ') + 1);
      if (text.size() > widest.size()) widest = text;
    }
  }
  return widest;
}

void PrintTable(platform::Printer& printer, const std::vector<Lines>& pages) {
  platform::PrinterFont font{"Courier New", 12};
  font.FontSize = printer.FittingSize({{font, Widest(pages)}});
  for (const Lines& page : pages) {
    if (&page != &pages.front()) printer.NewPage();
    for (const std::string& line : page) PrintText(printer, font, line);
  }
}

}  // namespace

std::vector<std::string> MovePairs(const store::MoveRecords& moves) {
  Pairs pairs;
  bool isWhites = true;
  for (const store::MoveRecord& move : moves) {
    if (move.MoveText == "Draw offer" || move.MoveText == "Decline") continue;
    if (isWhites) {
      pairs.push_back(std::to_string(pairs.size() + 1) + "." + move.MoveText);
    } else {
      pairs.back() += " " + move.MoveText;
    }
    isWhites = !isWhites;
  }
  return pairs;
}

platform::Document MoveTable(const StoredGame& game, int columns, int rows) {
  const Heading heading(game.record);
  const Pairs pairs = MovePairs(game.moves);
  const auto pages =
      TablePages(pairs, static_cast<std::size_t>(columns), static_cast<std::size_t>(rows));
  return {.title = heading.Title(),
          .hasDiagrams = false,
          .write = [heading, text = RunningText(pairs), pages](platform::Printer& printer) {
            PrintHeading(printer, heading);
            PrintBlankLines(printer, Arial(10), 2);
            for (const std::string& line : text) PrintText(printer, Arial(10), line);
            PrintBlankLines(printer, Arial(10), 2);
            PrintTable(printer, pages);
            printer.EndDoc();
          }};
}

}  // namespace print
