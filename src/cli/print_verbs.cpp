// SPDX-License-Identifier: GPL-3.0-or-later
// The verbs that print into a PDF file. Their application must have fonts.
#include "cli/game_argument.h"
#include "cli/played_board.h"
#include "cli/verbs.h"
#include "desktop/pdf_file.h"
#include "print/printing.h"

namespace cli {
namespace {

constexpr int mostColumns = 10;

bool PrintPdf(const Call& call, const platform::PrintQuestion& question) {
  const Arguments& arguments = call.arguments;
  const int columns = arguments.Number("--columns", 1, mostColumns, question.columns);
  const int rows = arguments.Number("--rows", 1, question.mostRows, question.rows);
  const auto document = question.document(columns, rows);
  if (!document) throw Refusal(call.messages.TakeSentence("The game has no move yet."));
  const std::string file = arguments.Value("--pdf");
  const auto [outcome, pages] = desktop::WritePdf(*document, QString::fromStdString(file));
  if (!outcome.isDone) {
    throw Refusal(outcome.why.empty() ? "The file can't be printed." : outcome.why);
  }
  JsonObject().Add("file", file).Add("pages", pages).Print();
  return true;
}

}  // namespace

bool PrintBoards(const Call& call) {
  return PrintPdf(call, print::GameBoardsQuestion(GameArgument(call.arguments).GAME_ID));
}

bool PrintMoves(const Call& call) {
  return PrintPdf(call, print::MoveListQuestion(GameArgument(call.arguments).GAME_ID));
}

bool PrintPosition(const Call& call) {
  PlayedBoard played(call.messages);
  OpenGame(GameArgument(call.arguments).GAME_ID, played, call.messages);
  return PrintPdf(call, print::BoardStateQuestion(played.logic));
}

bool PrintTravel(const Call& call) { return PrintPdf(call, print::TravelSheetQuestion()); }

bool PrintPostcard(const Call& call) {
  return PrintPdf(call, print::PostcardQuestion(GameArgument(call.arguments).GAME_ID));
}

}  // namespace cli
