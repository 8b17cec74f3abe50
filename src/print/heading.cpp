// SPDX-License-Identifier: GPL-3.0-or-later
#include "print/heading.h"

#include "platform/process_state.h"

namespace print {

platform::PrinterFont Arial(double size, bool bold) { return {"Arial", size, bold}; }

void PrintText(platform::Printer& printer, const platform::PrinterFont& font,
               const std::string& text) {
  printer.Print({{font, text}});
}

void PrintBlankLines(platform::Printer& printer, const platform::PrinterFont& font, int count) {
  for (int n = 0; n < count; ++n) PrintText(printer, font, {});
}

Heading::Heading(const store::GameRecord& game)
    : name(game.GAME_NAME),
      white(game.GAME_WHITE_NAME),
      black(game.GAME_BLACK_NAME),
      date(game.GAME_DATE) {}

std::string Heading::Title() const { return "Tarvolenix game, " + white + " vs. " + black; }

void PrintHeading(platform::Printer& printer, const Heading& heading) {
  PrintText(printer, Arial(14, true), heading.Title());
  PrintText(printer, Arial(10), "Tarvolenix v" + platform::GetVersionText());
  PrintBlankLines(printer, Arial(12), 2);
  PrintText(printer, Arial(12), "Game name : " + heading.name);
  PrintText(printer, Arial(12), "White : " + heading.white);
  PrintText(printer, Arial(12), "Black : " + heading.black);
  PrintText(printer, Arial(12), "Date started : " + heading.date);
}

}  // namespace print
