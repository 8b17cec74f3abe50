// SPDX-License-Identifier: GPL-3.0-or-later
// What is printed, line by line: the diagrams and their replay, where a page ends, and the numbers.
#include <algorithm>

#include "board/board_fixture.h"
#include "print/diagram.h"
#include "print/move_table.h"
#include "print/printing.h"

namespace print {
namespace {

using fakes::RecordingPrinter;
using platform::Process;
using rules::ThePosition;

const std::string diagrams = platform::diagramFont;

/// A stored game is told as for the tests of the board.
class PrintTest : public board::BoardTest {
 protected:
  RecordingPrinter Printed(const platform::PrintQuestion& question, int columns, int rows,
                           std::size_t linesHigh = 100000) {
    RecordingPrinter printer;
    printer.linesHigh = linesHigh;
    const auto document = question.document(columns, rows);
    if (document) document->write(printer);
    return printer;
  }

  /// The last diagram of a game that is printed as boards.
  std::string LastDiagram(const std::string& told) {
    StoreGame(told);
    const std::string page = Printed(GameBoardsQuestion(1), 1, 1000).Page(1, diagrams);
    constexpr std::size_t diagram = 110;  // ten lines of ten letters
    return page.size() < diagram ? page : page.substr(page.size() - diagram);
  }
};

std::string DiagramOf(const std::string& words, rules::Side viewSide = rules::White) {
  rules::Place(words);
  std::string text;
  for (const std::string& line : DiagramText(viewSide)) text += line + "\n";
  return text;
}

TEST_F(PrintTest, ADiagramHasALetterForEveryPieceOnBothShades) {
  const std::string seen = DiagramOf(
      "Ra1 Nb1 Bc1 Qd1 Ke1 Pf1 Ra2 Nb2 Bc2 Qd2 Ke2 Pf2 ra5 nb5 bc5 qd5 ke5 pf5 ra6 nb6 bc6 qd6 ke6 "
      "pf6");
  EXPECT_EQ(seen,
            "5111111116\n3 / / / /2\n3/ / / / 2\n3RMBWKO /2\n3TNVQLP/ 2\n"
            "3 / / / /2\n3/ / / / 2\n3rmbwko /2\n3tnvqlp/ 2\n7444444448\n");
  EXPECT_EQ(DiagramOf("Ra1 nh8", rules::Black).substr(11, 11), "3 / / / t2\n");
  EXPECT_EQ(DiagramOf("Ra1 nh8", rules::Black).substr(88, 11), "3M / / / 2\n");
}

TEST_F(PrintTest, AReplayPlaysWhatTheEntriesSay) {
  const board::Case rows[] = {
      {"castling short, then long", "Ke1 Rh1 ke8 ra8|e1g1 0-0, e8c8 0-0-0", "Kg1 Rf1 kc8 rd8"},
      {"a rook that has moved stays",
       "Ke1 Rh1 ke8|h1h2 Rh2, e8e7 Ke7, h2h1 Rh1, e7e8 Ke8, e1g1 Kg1", "Kg1 Rh1 ke8"},
      {"en passant", "Pe5 pd7|e5e6 e6, d7d5 d5, e6e5 e5, ....", "Pe5 pd5"},
      {"en passant takes the pawn", "Ph2 Pe5 pd7|h2h3 h3, d7d5 d5, e5d6 exd6ep", "Ph3 Pd6"},
      {"not behind an offer",
       "Ph2 Pe5 pd7|h2h3 h3, d7d5 d5, .... Draw offer, .... Decline, e5d6 d6", "Ph3 Pd6 pd5"},
      {"promotion", "Pa7 ph2|a7a8 a8=N, h2h1 h1=Q", "Na8 qh1"},
      {"no such promotion", "Pa7|a7a8 a8=K", "Pa8"},
      {"a piece set down where it stood", "Ra1|a1a1 Ra1", "Ra1"},
      {"a square beside the board", "Ra1|9999 Ra1", "Ra1"},
      {"from an empty square", "Ra1 nb3|c3b3 Nb3", "Ra1"},
  };
  for (const board::Case& row : rows) {
    std::string told = row.game;
    for (auto dots = told.find("...."); dots != std::string::npos; dots = told.find("....")) {
      told.replace(dots, 4, "0000");
    }
    EXPECT_EQ(LastDiagram(told), DiagramOf(row.expected)) << row.name;
  }
  EXPECT_EQ(LastDiagram("|e2e4 e4|guest"), DiagramOf("start e2e4", rules::Black)) << "Black's view";
}

TEST_F(PrintTest, TheGameOnTheBoardStaysAsItIs) {
  OpenGame("Ke1 Pa7 ke8|a7a8 a8=Q+");
  const std::string before = board::BoardText();
  const std::string flags = Flags();
  const int sideInCheck = ThePosition().SideInCheck;
  Printed(GameBoardsQuestion(1), 4, 4);
  EXPECT_EQ(board::BoardText(), before);
  EXPECT_EQ(Flags(), flags);
  EXPECT_EQ(ThePosition().SideInCheck, sideInCheck);
}

std::string Shuffled(int entries) {
  const char* const moves[] = {"g1f3 Nf3", "g8f6 Nf6", "f3g1 Ng1", "f6g8 Ng8"};
  std::string told = "|";
  for (int n = 0; n < entries; ++n) told += std::string(n ? ", " : "") + moves[n % 4];
  return told;
}

TEST_F(PrintTest, BoardsStandInStripsAndStripsOnPages) {
  const struct {
    const char* name;
    int entries, columns, rows;
    std::size_t linesHigh;
    std::string pages;  ///< the first number of each strip
  } rows[] = {
      {"seven in strips of two", 7, 2, 3, 1000, "1 3 5 / 7"},
      {"as many as a page holds", 6, 2, 3, 1000, "1 3 5"},
      {"fewer than one strip", 1, 4, 4, 1000, "1"},
      {"a page without room for the rows asked for", 5, 1, 20, 32, "1 2 / 3 4 / 5"},
  };
  for (const auto& row : rows) {
    StoreGame(Shuffled(row.entries));
    const RecordingPrinter printer =
        Printed(GameBoardsQuestion(1), row.columns, row.rows, row.linesHigh);
    std::string pages;
    for (std::size_t page = 1; page <= printer.pages.size(); ++page) {
      if (page > 1) pages += " /";
      for (const auto& line : printer.pages[page - 1]) {
        const std::string text = RecordingPrinter::TextOf(line);
        const std::size_t colon = text.find(":N");
        if (colon == std::string::npos) continue;
        pages += pages.empty() ? "" : " ";
        pages += text.substr(0, colon);
      }
    }
    EXPECT_EQ(pages, row.pages) << row.name;
    EXPECT_EQ(printer.documents, 1);
  }
}

TEST_F(PrintTest, AStripHasItsCaptionsInALineAndItsBoardsBesideEachOther) {
  StoreGame("|e2e4 e4, 0000 Draw offer");
  RecordingPrinter printer;
  printer.lettersWide = 15;
  GameBoardsQuestion(1).document(4, 4)->write(printer);
  const auto& lines = printer.pages[0];
  const auto caption = lines.end() - 11;
  EXPECT_EQ(RecordingPrinter::TextOf(*caption), "1:e4           2:Draw offer           ");
  EXPECT_EQ(RecordingPrinter::TextOf(caption[1]), "51111111165111111116");
  EXPECT_EQ(caption->front().font.FontName, "Arial");
  EXPECT_EQ(caption[1].front().font.FontSize, 9) << "smaller than 12 where the paper is too narrow";
  const std::string heading =
      printer.Page(1, "Arial").substr(0, printer.Page(1, "Arial").find("1:"));
  EXPECT_EQ(heading, "Tarvolenix game,  vs. Eva\nTarvolenix v" + platform::GetVersionText() +
                         "\n\n\nGame name : Friendly\nWhite : \nBlack : Eva\n"
                         "Date started : 01/02/2026\n\n");
  EXPECT_TRUE(lines[0].front().font.FontBold);
}

TEST_F(PrintTest, PairsSkipOffersThatWereDeclined) {
  const board::Case rows[] = {
      {"an odd end", "e2e4 e4, e7e5 e5, g1f3 Nf3", "1.e4 e5|2.Nf3|"},
      {"an offer and its answer",
       "e2e4 e4, e7e5 e5, 0000 Draw offer, 0000 Decline, g1f3 Nf3, b8c6 Nc6", "1.e4 e5|2.Nf3 Nc6|"},
      {"an offer that waits", "e2e4 e4, 0000 Draw offer", "1.e4|"},
      {"an end is an entry", "e2e4 e4, 0000 0-1", "1.e4 0-1|"},
      {"nothing but an offer", "0000 Draw offer", ""},
  };
  for (const board::Case& row : rows) {
    std::string pairs;
    for (const std::string& pair : MovePairs(board::Entries(row.game))) pairs += pair + "|";
    EXPECT_EQ(pairs, row.expected) << row.name;
  }
}

TEST_F(PrintTest, TheTableRunsDownItsColumns) {
  const struct {
    int pairs, columns, rows;
    std::string pages;
  } rows[] = {
      {7, 3, 3, "1 4 7, 2 5, 3 6"},
      {9, 3, 3, "1 4 7, 2 5 8, 3 6 9"},
      {10, 3, 3, "1 4 7, 2 5 8, 3 6 9 / 10"},
      {3, 1, 2, "1, 2 / 3"},
  };
  for (const auto& row : rows) {
    StoreGame(Shuffled(row.pairs * 2));
    const RecordingPrinter printer = Printed(MoveListQuestion(1), row.columns, row.rows);
    std::string pages;
    for (std::size_t page = 1; page <= printer.pages.size(); ++page) {
      if (page > 1) pages += " /";
      bool isFirst = true;
      for (const auto& line : printer.pages[page - 1]) {
        if (line.front().font.FontName != "Courier New") continue;
        const std::string text = RecordingPrinter::TextOf(line);
        if (!isFirst) pages += ",";
        isFirst = false;
        for (std::size_t column = 0; column < text.size(); column += 27) {
          pages += pages.empty() ? "" : " ";
          pages += text.substr(column, text.find('.', column) - column);
        }
      }
    }
    EXPECT_EQ(pages, row.pages);
  }
}

TEST_F(PrintTest, NoMoveOfALongGameIsLeftOut) {
  StoreGame(Shuffled(400));
  RecordingPrinter printer = Printed(MoveListQuestion(1), 3, 40);
  std::string running;
  for (const auto& line : printer.pages[0]) {
    const std::string text = RecordingPrinter::TextOf(line);
    if (line.front().font.FontSize != 10 || text.find(".N") == std::string::npos) continue;
    EXPECT_LE(text.size(), 110u);
    running += text;
  }
  std::string expected;
  for (int n = 1; n <= 200; ++n)
    expected += std::to_string(n) + (n % 2 ? ".Nf3 Nf6 " : ".Ng1 Ng8 ");
  EXPECT_EQ(running, expected);
  EXPECT_EQ(printer.pages.size(), 2u);

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
  EXPECT_TRUE(desktop.printers.sent.empty());
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

TEST_F(PrintTest, TheTravelSheetHasTheGamesThatWaitForTheUser) {
  StoreGame("|e2e4 e4, e7e5 e5, g1f3 Nf3|guest");
  const std::string page = Printed(TravelSheetQuestion(), 0, 0).Page(1);
  EXPECT_NE(page.find("1. Eva, \"Friendly\"\n"), std::string::npos) << page;
  EXPECT_NE(page.find("You play Black."), std::string::npos);
  EXPECT_NE(page.find("1.e4 e5\n"), std::string::npos);
  EXPECT_EQ(page.find("2. "), std::string::npos);

  StoreGame("|e2e4 e4", store::WaitingForOpponent);
  PrintTravelSheet();
  EXPECT_NE(Told().find("no game in which you are to move"), std::string::npos);
}

TEST_F(PrintTest, APostcardIsTurnedToTheOneWhoReadsIt) {
  StoreGame("|e2e4 e4#Greetings");
  const std::string page = Printed(PostcardQuestion(1), 0, 0).Page(1);
  EXPECT_NE(page.find("You play Black, below.\n"), std::string::npos) << page;
  EXPECT_NE(page.find("\n3rmblqvnt2"), std::string::npos) << "White's row is above";
  EXPECT_TRUE(page.ends_with("Move 1 : e4 (5254)\nGreetings\n"));
}

}  // namespace
}  // namespace print
