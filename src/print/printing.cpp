// SPDX-License-Identifier: GPL-3.0-or-later
#include "print/printing.h"

#include "platform/busy_pointer.h"
#include "platform/messages.h"
#include "platform/polling.h"
#include "platform/seams.h"
#include "print/board_state.h"
#include "print/game_boards.h"
#include "print/move_table.h"
#include "print/postcard.h"
#include "print/stored_game.h"
#include "print/travel_sheet.h"

namespace print {
namespace {

using platform::Document;
using platform::PrintQuestion;

void Send(const Document& document) {
  platform::PrintOutcome outcome;
  {
    const platform::BusyPointer busy;
    outcome = platform::TheSeams().printers->Send(document);
  }
  if (outcome.isDone) return;
  const std::string unknown =
      "There was an unknown error printing the board.  Please check the printer before trying "
      "again.";
  platform::ShowMessage(platform::ErrorIcon, "Printing error",
                        outcome.why.empty() ? unknown : outcome.why, "OK");
}

void Print(const PrintQuestion& question) {
  const platform::PollingHold hold;
  const auto choice = platform::TheSeams().printers->SelectPrinter(question);
  if (!choice) return;
  const auto document = question.document(choice->columns, choice->rows);
  if (document) Send(*document);
}

/// A game without moves has nothing to print.
std::optional<StoredGame> ReadPlayedGame(std::int32_t gameID) {
  auto game = ReadGame(gameID);
  if (game && game->moves.empty()) game.reset();
  return game;
}

PrintQuestion SingleSheet(const std::string& instructions) {
  return {.columns = 0,
          .rows = 0,
          .numbersAreFixed = true,
          .instructions = instructions,
          .document = {}};
}

}  // namespace

PrintQuestion GameBoardsQuestion(std::int32_t gameID) {
  return {.document = [gameID](int columns, int rows) -> std::optional<Document> {
    const auto game = ReadPlayedGame(gameID);
    if (!game) return std::nullopt;
    return GameBoards(*game, columns, rows);
  }};
}

PrintQuestion MoveListQuestion(std::int32_t gameID) {
  return {.columns = 3,
          .rows = 40,
          .mostRows = 80,
          .instructions = "3 columns by 40 rows will just fit on an A4 page.",
          .document = [gameID](int columns, int rows) -> std::optional<Document> {
            const auto game = ReadPlayedGame(gameID);
            if (!game) return std::nullopt;
            return MoveTable(*game, columns, rows);
          }};
}

PrintQuestion BoardStateQuestion(const board::Game& game) {
  return {.columns = 1,
          .rows = 1,
          .numbersAreFixed = true,
          .instructions = "Cols and Rows are set to 1 as only one board is being printed",
          .document = [shown = ShownBoard(game)](int, int) { return BoardState(shown); }};
}

PrintQuestion TravelSheetQuestion() {
  PrintQuestion question = SingleSheet("One board for each game in which you are to move.");
  question.document = [](int, int) { return TravelSheet(); };
  return question;
}

PrintQuestion PostcardQuestion(std::int32_t gameID) {
  PrintQuestion question = SingleSheet("A postcard is a sheet of A6: lay one into the printer.");
  question.document = [gameID](int, int) -> std::optional<Document> {
    const auto game = ReadGame(gameID);
    if (!game) return std::nullopt;
    return Postcard(*game);
  };
  return question;
}

void PrintGameBoards(std::int32_t gameID) { Print(GameBoardsQuestion(gameID)); }
void PrintMoveList(std::int32_t gameID) { Print(MoveListQuestion(gameID)); }
void PrintCurrentBoardState(const board::Game& game) { Print(BoardStateQuestion(game)); }
void PrintPostcard(std::int32_t gameID) { Print(PostcardQuestion(gameID)); }

/// Nobody is asked for a printer where there is nothing to print.
void PrintTravelSheet() {
  const auto sheet = TravelSheet();
  if (!sheet) return;
  PrintQuestion question = TravelSheetQuestion();
  question.document = [&sheet](int, int) { return std::optional(*sheet); };
  Print(question);
}

}  // namespace print
