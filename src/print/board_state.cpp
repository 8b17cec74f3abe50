// SPDX-License-Identifier: GPL-3.0-or-later
#include "print/board_state.h"

#include "platform/conversions.h"
#include "platform/process_state.h"
#include "platform/seams.h"
#include "print/heading.h"
#include "print/stored_game.h"

namespace print {
namespace {

std::string CaptionOf(const board::MoveList& moves) {
  const store::MoveRecord& move = moves.Row(moves.Selected());
  const std::string tail = move.MoveComment.empty() ? "" : " - " + move.MoveComment;
  return "Move " + std::to_string(moves.Selected()) + " : " + move.MoveText + tail;
}

Heading HeadingOfNewGame() {
  platform::Clock& clock = *platform::TheSeams().clock;
  const platform::LocalTime now = clock.Now();
  const platform::NewGameFields& game = platform::Process().NewGame;
  Heading heading;
  heading.name = game.Game_name;
  heading.white = "You";
  heading.black = game.Game_opponents_name;
  heading.date = clock.LongDate({now.year, now.month, now.day});
  return heading;
}

/// A date that can't be read is printed as it is stored.
Heading WithLongDate(Heading heading) {
  const auto day = platform::ToDate(heading.date);
  if (day) heading.date = platform::TheSeams().clock->LongDate(*day);
  return heading;
}

std::optional<Heading> HeadingOf(std::int32_t gameID) {
  if (gameID == -1) return HeadingOfNewGame();
  const auto record = ReadRecord(gameID);
  if (!record) return std::nullopt;
  return WithLongDate(Heading(*record));
}

}  // namespace

ShownBoard::ShownBoard(const board::Game& game)
    : gameID(platform::Process().CurrentGameID),
      caption(CaptionOf(game.Moves)),
      diagram(DiagramText(game.ViewSide)) {}

std::optional<platform::Document> BoardState(const ShownBoard& shown) {
  const auto heading = HeadingOf(shown.gameID);
  if (!heading) return std::nullopt;
  return platform::Document{.title = heading->Title(),
                            .write = [shown, heading = *heading](platform::Printer& printer) {
                              PrintHeading(printer, heading);
                              PrintText(printer, Arial(12), shown.caption);
                              PrintBlankLines(printer, Arial(12), 1);
                              const platform::PrinterFont font = DiagramFont(printer, 36, 1);
                              for (const std::string& line : shown.diagram)
                                PrintText(printer, font, line);
                              printer.EndDoc();
                            }};
}

}  // namespace print
