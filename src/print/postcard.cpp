// SPDX-License-Identifier: GPL-3.0-or-later
#include "print/postcard.h"

#include "print/heading.h"
#include "print/replay.h"

namespace print {
namespace {

constexpr std::size_t ruleLength = 30;

/// In figures, too, which are the same in every language.
std::string LastMoveText(const store::MoveRecords& moves) {
  if (moves.empty()) return "No move yet.";
  const store::MoveRecord& last = moves.back();
  const std::string text = "Move " + std::to_string(moves.size()) + " : " + last.MoveText;
  const bool movesPiece = bool(rules::LastMove::FromText(last.MoveCoordinates));
  return movesPiece ? text + " (" + last.MoveCoordinates + ")" : text;
}

/// The right half, for a name and an address.
std::array<std::string, 10> AddressOf(const store::GameRecord& game) {
  const std::string rule(ruleLength, '_');
  return {"", "", game.GAME_OPPONENTS_NAME, "", rule, "", rule, "", rule, ""};
}

void WriteCard(platform::Printer& printer, const StoredGame& game, const Diagram& diagram) {
  const auto address = AddressOf(game.record);
  const platform::PrinterFont font = DiagramFont(printer, 14, 1);
  PrintText(printer, Arial(11, true), "Tarvolenix game \"" + game.record.GAME_NAME + "\"");
  PrintText(printer, Arial(9),
            game.record.GAME_HOST ? "You play Black, below." : "You play White, below.");
  for (std::size_t n = 0; n < diagram.size(); ++n) {
    printer.Print(Beside(printer, font, diagram[n], address[n]));
  }
  PrintText(printer, Arial(12, true), LastMoveText(game.moves));
  if (!game.moves.empty()) PrintText(printer, Arial(10), game.moves.back().MoveComment);
  printer.EndDoc();
}

}  // namespace

platform::Document Postcard(const StoredGame& game) {
  const rules::Side readerSide = game.record.GAME_HOST ? rules::Black : rules::White;
  const Diagram diagram = DiagramsOf(game.record, game.moves, readerSide).back();
  return {.title = Heading(game.record).Title(),
          .paper = platform::Paper::Postcard,
          .write = [game, diagram](auto& printer) { WriteCard(printer, game, diagram); }};
}

}  // namespace print
