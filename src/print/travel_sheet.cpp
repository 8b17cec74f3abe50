// SPDX-License-Identifier: GPL-3.0-or-later
#include "print/travel_sheet.h"

#include <algorithm>

#include "platform/messages.h"
#include "platform/seams.h"
#include "print/heading.h"
#include "print/move_table.h"
#include "print/replay.h"
#include "store/queries.h"

namespace print {
namespace {

using platform::PrintedLine;

constexpr std::size_t lastPairs = 3;
constexpr std::size_t ruleLength = 40;

/// What stands beside a line of a diagram.
std::array<std::string, 10> NotesOf(const StoredGame& game) {
  const std::string rule(ruleLength, '_');
  std::array<std::string, 10> notes;
  notes[0] = game.record.GAME_HOST ? "You play White." : "You play Black.";
  const std::vector<std::string> pairs = MovePairs(game.moves);
  const std::size_t first = pairs.size() - std::min(pairs.size(), lastPairs);
  for (std::size_t n = first; n < pairs.size(); ++n) notes[2 + n - first] = pairs[n];
  if (!game.moves.empty() && game.moves.back().MoveText == "Draw offer") {
    notes[5] = "Your opponent offers a draw.";
  }
  notes[7] = "Your move: " + rule;
  notes[9] = "Notes: " + rule;
  return notes;
}

std::vector<PrintedLine> GameLines(platform::Printer& printer, const StoredGame& game, int number) {
  const rules::Side viewSide = game.record.GAME_HOST ? rules::White : rules::Black;
  const Diagram diagram = DiagramsOf(game.record, game.moves, viewSide).back();
  const auto notes = NotesOf(game);
  const platform::PrinterFont font = DiagramFont(printer, 12, 1);
  std::vector<PrintedLine> lines{
      {{Arial(12), {}}},
      {{Arial(12, true), std::to_string(number) + ". " + game.record.GAME_OPPONENTS_NAME + ", \"" +
                             game.record.GAME_NAME + "\""}}};
  for (std::size_t n = 0; n < diagram.size(); ++n) {
    lines.push_back(Beside(printer, font, diagram[n], notes[n]));
  }
  return lines;
}

std::string SheetTitle(std::size_t games) {
  return games == 1 ? "1 game in which you are to move"
                    : std::to_string(games) + " games in which you are to move";
}

void WriteSheet(platform::Printer& printer, const std::vector<StoredGame>& games) {
  platform::Clock& clock = *platform::TheSeams().clock;
  const platform::LocalTime now = clock.Now();
  PrintText(printer, Arial(14, true), SheetTitle(games.size()));
  PrintText(printer, Arial(10), clock.LongDate({now.year, now.month, now.day}));
  int number = 0;
  for (const StoredGame& game : games) {
    const auto lines = GameLines(printer, game, ++number);
    if (!printer.HasRoomFor(lines)) printer.NewPage();
    for (const PrintedLine& line : lines) printer.Print(line);
  }
  printer.EndDoc();
}

}  // namespace

std::optional<platform::Document> TravelSheet() {
  store::GameRecords records;
  if (!store::SelectGames(records, "Game_status;1", "Game_opponents_name;A;Game_ID;A")) {
    TellDatabaseError();
    return std::nullopt;
  }
  std::vector<StoredGame> games;
  for (const store::GameRecord& record : records) {
    auto game = ReadGame(record.GAME_ID);
    if (!game) return std::nullopt;
    games.push_back(std::move(*game));
  }
  if (games.empty()) {
    platform::ShowMessage(platform::InformationIcon, "Print travel sheet",
                          "There is no game in which you are to move.", "OK");
    return std::nullopt;
  }
  return platform::Document{.title = SheetTitle(games.size()),
                            .write = [games](auto& printer) { WriteSheet(printer, games); }};
}

}  // namespace print
