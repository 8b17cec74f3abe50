// SPDX-License-Identifier: GPL-3.0-or-later
// What is printed, line by line: the diagrams and their replay, where a page ends, and the numbers.
#include <regex>
#include <sstream>

#include "board/board_fixture.h"
#include "print/diagram.h"
#include "print/move_table.h"
#include "print/printing.h"

namespace print {
namespace {

using fakes::RecordingPrinter;
using platform::Process;
using rules::ThePosition;

/// A stored game is told as for the tests of the board.
class PrintTest : public board::BoardTest {
 protected:
  RecordingPrinter Printed(const platform::PrintQuestion& question, int columns, int rows,
                           std::size_t linesHigh = 100000) {
    RecordingPrinter printer;
    printer.linesHigh = linesHigh;
    question.document(columns, rows)->write(printer);
    return printer;
  }

  /// The last diagram of a game that is printed as boards.
  std::string LastDiagram(const std::string& told) {
    StoreGame(told);
    const std::string page = Printed(GameBoardsQuestion(1), 1, 1000).Page(1, platform::diagramFont);
    return page.substr(page.size() - 110);
  }
};

std::string DiagramOf(const std::string& words, rules::Side viewSide = rules::White) {
  rules::Place(words);
  std::string text;
  for (const std::string& line : DiagramText(viewSide)) text += line + "\n";
  return text;
}

TEST_F(PrintTest, ADiagramHasALetterForEveryPieceOnBothShades) {
  EXPECT_EQ(DiagramOf("Ra1 Nb1 Bc1 Qd1 Ke1 Pf1 Ra2 Nb2 Bc2 Qd2 Ke2 Pf2 ra5 nb5 bc5 qd5 ke5 pf5 ra6 "
                      "nb6 bc6 qd6 ke6 "
                      "pf6"),
            "5111111116\n3 / / / /2\n3/ / / / 2\n3RMBWKO /2\n3TNVQLP/ 2\n"
            "3 / / / /2\n3/ / / / 2\n3rmbwko /2\n3tnvqlp/ 2\n7444444448\n");
  EXPECT_EQ(DiagramOf("Ra1 nh8", rules::Black).substr(11, 11), "3 / / / t2\n");
}

TEST_F(PrintTest, AReplayPlaysWhatTheEntriesSay) {
  const board::Case rows[] = {
      {"castling short, then long", "Ke1 Rh1 ke8 ra8|e1g1 0-0, e8c8 0-0-0", "Kg1 Rf1 kc8 rd8"},
      {"en passant takes the pawn", "Ph2 Pe5 pd7|h2h3 h3, d7d5 d5, e5d6 exd6ep", "Ph3 Pd6"},
      {"not behind an offer",
       "Ph2 Pe5 pd7|h2h3 h3, d7d5 d5, 0000 Draw offer, 0000 Decline, e5d6 d6", "Ph3 Pd6 pd5"},
      {"promotion", "Pa7 ph2|a7a8 a8=N, h2h1 h1=Q", "Na8 qh1"},
      {"no such promotion", "Pa7|a7a8 a8=K", "Pa8"},
      {"a piece set down where it stood", "Ra1|a1a1 Ra1", "Ra1"},
      {"a square beside the board", "Ra1|9999 Ra1", "Ra1"},
      {"from an empty square", "Ra1 nb3|c3b3 Nb3", "Ra1"},
  };
  for (const board::Case& row : rows) {
    EXPECT_EQ(LastDiagram(row.game), DiagramOf(row.expected)) << row.name;
  }
  EXPECT_EQ(LastDiagram("|e2e4 e4|guest"), DiagramOf("start e2e4", rules::Black)) << "Black's view";
}

TEST_F(PrintTest, TheGameOnTheBoardStaysAsItIs) {
  OpenGame("Ke1 Pa7 ke8|a7a8 a8=Q+");
  const std::string before = board::BoardText();
  const std::string flags = Flags() + std::to_string(ThePosition().SideInCheck);
  Printed(GameBoardsQuestion(1), 4, 4);
  EXPECT_EQ(board::BoardText(), before);
  EXPECT_EQ(Flags() + std::to_string(ThePosition().SideInCheck), flags);
}

std::string Shuffled(int entries) {
  const char* const moves[] = {"g1f3 Nf3", "g8f6 Nf6", "f3g1 Ng1", "f6g8 Ng8"};
  std::string told = "|";
  for (int n = 0; n < entries; ++n) told += std::string(n ? ", " : "") + moves[n % 4];
  return told;
}

/// The numbers of the moves in a font: "," ends a line, "/" a page.
std::string Numbers(const RecordingPrinter& printer, const std::string& font) {
  const std::regex number("(\\d+)[:.]N");
  std::string seen;
  for (std::size_t page = 1; page <= printer.pages.size(); ++page) {
    if (page > 1) seen += " /";
    std::istringstream lines(printer.Page(page, font));
    bool isFirst = true;
    for (std::string line; std::getline(lines, line);) {
      std::sregex_iterator found(line.begin(), line.end(), number), end;
      if (found == end) continue;
      if (!std::exchange(isFirst, false)) seen += ",";
      for (; found != end; ++found) (seen += " ") += (*found)[1].str();
    }
  }
  return seen;
}

struct PageCase {
  int entries, columns, rows;
  std::string numbers;
  std::size_t linesHigh = 1000;
};

TEST_F(PrintTest, BoardsStandInStripsAndStripsOnPages) {
  const PageCase rows[] = {
      {7, 2, 3, " 1 2, 3 4, 5 6 / 7"},
      {6, 2, 3, " 1 2, 3 4, 5 6"},
      {5, 1, 20, " 1, 2 / 3, 4 / 5", 32},  // a page without room for the rows asked for
  };
  for (const PageCase& row : rows) {
    StoreGame(Shuffled(row.entries));
    const auto printer = Printed(GameBoardsQuestion(1), row.columns, row.rows, row.linesHigh);
    EXPECT_EQ(Numbers(printer, "Arial"), row.numbers);
  }
}

TEST_F(PrintTest, TheTableRunsDownItsColumns) {
  const PageCase rows[] = {
      {13, 3, 3, " 1 4 7, 2 5, 3 6"},
      {18, 3, 3, " 1 4 7, 2 5 8, 3 6 9"},
      {20, 3, 3, " 1 4 7, 2 5 8, 3 6 9 / 10"},
  };
  for (const PageCase& row : rows) {
    StoreGame(Shuffled(row.entries));
    const auto printer = Printed(MoveListQuestion(1), row.columns, row.rows);
    EXPECT_EQ(Numbers(printer, "Courier New"), row.numbers);
  }
}

TEST_F(PrintTest, BoardsThatAreTooWideForThePaperArePrintedSmaller) {
  StoreGame("|e2e4 e4, 0000 Draw offer");
  RecordingPrinter printer;
  printer.lettersWide = 15;
  GameBoardsQuestion(1).document(4, 4)->write(printer);
  const auto caption = printer.pages[0].end() - 11;
  EXPECT_EQ(RecordingPrinter::TextOf(*caption), "1:e4           2:Draw offer           ");
  EXPECT_EQ(RecordingPrinter::TextOf(caption[1]), "51111111165111111116");
  EXPECT_EQ(caption[1][0].font.FontSize, 9);
}

TEST_F(PrintTest, PairsSkipOffersThatWereDeclined) {
  const board::Case rows[] = {
      {"an odd end", "e2e4 e4, e7e5 e5, g1f3 Nf3", "1.e4 e5|2.Nf3|"},
      {"an offer and its answer",
       "e2e4 e4, e7e5 e5, 0000 Draw offer, 0000 Decline, g1f3 Nf3, b8c6 Nc6", "1.e4 e5|2.Nf3 Nc6|"},
      {"an offer that waits", "e2e4 e4, 0000 Draw offer", "1.e4|"},
  };
  for (const board::Case& row : rows) {
    std::string pairs;
    for (const std::string& pair : MovePairs(board::Entries(row.game))) pairs += pair + "|";
    EXPECT_EQ(pairs, row.expected) << row.name;
  }
}

TEST_F(PrintTest, NoMoveOfALongGameIsLeftOut) {
  StoreGame(Shuffled(400));
  RecordingPrinter printer = Printed(MoveListQuestion(1), 3, 40);
  std::string running;
  for (const auto& line : printer.pages[0]) {
    const std::string text = RecordingPrinter::TextOf(line);
    if (line[0].font.FontSize == 10 && text.find(".N") != std::string::npos) running += text;
    EXPECT_LE(text.size(), 110u);
  }
  std::string expected;
  for (int n = 1; n <= 200; ++n)
    expected += std::to_string(n) + (n % 2 ? ".Nf3 Nf6 " : ".Ng1 Ng8 ");
  EXPECT_EQ(running, expected);

  StoreGame("|e2e4 Nbxd7=Q1/2-1/2, e7e5 Nbxd7=Q1/2-1/2, e2e4 e4, e7e5 e5");
  printer = Printed(MoveListQuestion(1), 2, 1);
  EXPECT_EQ(printer.Page(1, "Courier New").substr(0, 39), "1.Nbxd7=Q1/2-1/2 Nbxd7=Q1/2-1/2 2.e4 e5")
      << "a pair that is too wide keeps off the next";
}

TEST_F(PrintTest, ThePositionIsTheOneThatTheBoardShows) {
  OpenGame("|e2e4 e4#well?, e7e5 e5|guest");
  board::MoveList_RowColChange(*game, 1);
  const std::string page = Printed(BoardStateQuestion(*game), 1, 1).Page(1);
  EXPECT_NE(page.find("Date started : day 1 of month 2\nMove 1 : e4 - well?\n\n5111111116\n"),
            std::string::npos)
      << page;
  EXPECT_TRUE(page.ends_with(DiagramOf("start e2e4", rules::Black)));

  Process().CurrentGameID = -1;
  Process().NewGame = {"Spring", "Max", ""};
  EXPECT_NE(
      Printed(BoardStateQuestion(*game), 1, 1)
          .Page(1)
          .find("Game name : Spring\nWhite : You\nBlack : Max\nDate started : day 9 of month 3\n"),
      std::string::npos);

  Process().CurrentGameID = 99;
  PrintCurrentBoardState(*game);
  EXPECT_EQ(desktop.LastMessage().first, "Database error");
}

TEST_F(PrintTest, WhatFailsIsToldAndWhatIsCancelledIsNot) {
  const std::string unknown =
      "There was an unknown error printing the board.  Please check the printer before trying "
      "again.";
  StoreGame("|e2e4 e4");
  const struct {
    const char* name;
    bool isDone;
    const char* why;
    bool cancels;
    std::string told;
  } rows[] = {
      {"printed", true, "", false, ""},
      {"cancelled", false, "", true, ""},
      {"a printer that vanished", false, "", false, "Printing error: " + unknown},
      {"a reason", false, "The disk is full.", false, "Printing error: The disk is full."},
  };
  for (const auto& row : rows) {
    desktop.printers.outcome.isDone = row.isDone;
    desktop.printers.outcome.why = row.why;
    desktop.printers.cancels = row.cancels;
    PrintGameBoards(1);
    EXPECT_EQ(Told(), row.told) << row.name;
  }
  EXPECT_EQ(desktop.printers.sent.size(), 3u);

  StoreGame("|");
  PrintGameBoards(1);
  PrintMoveList(1);
  EXPECT_EQ(Told(), "") << "a game without moves prints nothing and says nothing";
  EXPECT_EQ(desktop.printers.sent.size(), 3u);
}

TEST_F(PrintTest, ATravelSheetIsForTheUserAndAPostcardForTheOpponent) {
  StoreGame("|e2e4 e4, e7e5 e5, g1f3 Nf3#Greetings|guest");
  const std::string sheet = Printed(TravelSheetQuestion(), 0, 0).Page(1);
  const std::string card = Printed(PostcardQuestion(1), 0, 0).Page(1);
  for (const char* text :
       {"1. Eva, \"Friendly\"\n", "You play Black.", "2.Nf3\n", "\n3r/blqvnt2"}) {
    EXPECT_NE(sheet.find(text), std::string::npos) << sheet;
  }
  for (const char* text :
       {"You play White, below.\n", "\n3RMBWKVNT2", "\nMove 3 : Nf3 (7163)\nGreetings\n"}) {
    EXPECT_NE(card.find(text), std::string::npos) << card;
  }
  StoreGame("|e2e4 e4", store::WaitingForOpponent);
  PrintTravelSheet();
  EXPECT_NE(Told().find("no game in which you are to move"), std::string::npos);
  EXPECT_EQ(desktop.printers.asked, 0);
}

}  // namespace
}  // namespace print
