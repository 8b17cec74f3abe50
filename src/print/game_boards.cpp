// SPDX-License-Identifier: GPL-3.0-or-later
#include "print/game_boards.h"

#include <algorithm>
#include <string>
#include <vector>

#include "print/heading.h"
#include "print/replay.h"

namespace print {
namespace {

using platform::PrintedLine;
using platform::PrinterFont;

struct CaptionedBoard {
  std::string caption;
  Diagram diagram;
};

std::vector<CaptionedBoard> BoardsOf(const StoredGame& game) {
  const rules::Side viewSide = game.record.GAME_HOST ? rules::White : rules::Black;
  const std::vector<Diagram> diagrams = DiagramsOf(game.record, game.moves, viewSide);
  std::vector<CaptionedBoard> boards;
  for (std::size_t n = 1; n < diagrams.size(); ++n) {
    const std::string& text = game.moves[n - 1].MoveText;
    boards.push_back({std::to_string(n) + ":" + text + std::string(11, ' '), diagrams[n]});
  }
  return boards;
}

/// The boards beside each other, and their captions above them.
std::vector<PrintedLine> Strip(const CaptionedBoard* first, const CaptionedBoard* end,
                               const PrinterFont& font) {
  std::vector<PrintedLine> lines(1 + first->diagram.size());
  lines[0] = {{Arial(12), {}}};
  for (std::size_t n = 1; n < lines.size(); ++n) lines[n] = {{font, {}}};
  for (const CaptionedBoard* board = first; board != end; ++board) {
    lines[0][0].text += board->caption;
    for (std::size_t n = 1; n < lines.size(); ++n) lines[n][0].text += board->diagram[n - 1];
  }
  return lines;
}

void PrintBoards(platform::Printer& printer, const std::vector<CaptionedBoard>& boards, int columns,
                 int rows) {
  const int count = static_cast<int>(boards.size());
  const PrinterFont font = DiagramFont(printer, 12, std::min(columns, count));
  int strips = 0;  // on this page
  for (int i = 0; i < count; i += columns) {
    auto lines = Strip(&boards[i], boards.data() + std::min(i + columns, count), font);
    lines[0][0].font.FontSize = printer.FittingSize(lines[0]);  // as the boards are smaller, too
    if (strips == rows || !printer.HasRoomFor(lines)) {
      printer.NewPage();
      strips = 0;
    }
    for (const PrintedLine& line : lines) printer.Print(line);
    ++strips;
  }
}

}  // namespace

platform::Document GameBoards(const StoredGame& game, int columns, int rows) {
  const Heading heading(game.record);
  return {.title = heading.Title(),
          .write = [heading, boards = BoardsOf(game), columns, rows](platform::Printer& printer) {
            PrintHeading(printer, heading);
            PrintBlankLines(printer, Arial(12), 1);
            PrintBoards(printer, boards, columns, rows);
            printer.EndDoc();
          }};
}

}  // namespace print
