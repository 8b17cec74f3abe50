// SPDX-License-Identifier: GPL-3.0-or-later
// The fonts of a print, and what a printed game begins with.
#pragma once

#include <string>

#include "platform/printing.h"
#include "store/game_record.h"

namespace print {

platform::PrinterFont Arial(double size, bool bold = false);

void PrintText(platform::Printer& printer, const platform::PrinterFont& font,
               const std::string& text);
void PrintBlankLines(platform::Printer& printer, const platform::PrinterFont& font, int count);

/// What is told of a game above its boards or moves.
struct Heading {
  std::string name;
  std::string white;
  std::string black;
  std::string date;

  explicit Heading(const store::GameRecord& game);
  Heading() = default;

  std::string Title() const;
};

void PrintHeading(platform::Printer& printer, const Heading& heading);

}  // namespace print
