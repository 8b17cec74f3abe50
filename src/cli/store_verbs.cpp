// SPDX-License-Identifier: GPL-3.0-or-later
// The verbs that look into the game file and tend it.
#include <iostream>
#include <limits>

#include "cli/game_argument.h"
#include "cli/played_board.h"
#include "cli/verbs.h"
#include "pgn/fen.h"
#include "platform/harmless_text.h"
#include "rules/board_text.h"
#include "rules/notation.h"
#include "store/queries.h"
#include "store/repair.h"
#include "store/saving.h"
#include "study/study_file.h"

namespace cli {
namespace {

using rules::ThePosition;

void PrintGame(const store::GameRecord& game) {
  JsonObject()
      .Add("GAME_ID", game.GAME_ID)
      .Add("GAME_DATESTAMP", game.GAME_DATESTAMP)
      .Add("GAME_OPPONENTS_ID", game.GAME_OPPONENTS_ID)
      .Add("GAME_NAME", game.GAME_NAME)
      .Add("GAME_DATE", game.GAME_DATE)
      .Add("GAME_OPPONENTS_EMAIL", game.GAME_OPPONENTS_EMAIL)
      .Add("GAME_WHITE_NAME", game.GAME_WHITE_NAME)
      .Add("GAME_BLACK_NAME", game.GAME_BLACK_NAME)
      .Add("GAME_HOST", game.GAME_HOST)
      .Add("GAME_OPPONENTS_NAME", game.GAME_OPPONENTS_NAME)
      .Add("GAME_STATUS", int{game.GAME_STATUS})
      .Add("GAME_VS_COMPUTER", game.GAME_VS_COMPUTER)
      .Add("GAME_START_BOARD", game.GAME_START_BOARD)
      .Print();
}

void PrintBoard(const board::Game& game) {
  for (int y = 8; y >= 1; --y) {
    std::cout << ' ' << y << ' ';
    for (int x = 1; x <= 8; ++x) {
      const rules::PieceCode piece = ThePosition().BoardState.At(x, y);
      char letter = piece == rules::NoPiece ? '.'
                    : rules::IsPawn(piece)  ? 'P'
                                            : rules::LetterOf(piece);
      if (rules::IsBlackPiece(piece)) letter = static_cast<char>(letter - 'A' + 'a');
      std::cout << ' ' << letter;
    }
    std::cout << '\n';
  }
  std::cout << "\n    a b c d e f g h\n\n";
  for (const std::string& line : {game.Caption, game.PlayersTag}) {
    std::cout << platform::Harmless(line, platform::LineEnds::Blanks) << '\n';
  }
  std::cout.flush();
}

store::MoveRecords MovesOf(const store::GameRecord& game) {
  store::MoveRecords moves;
  if (!store::SelectMoves(moves, game.GAME_ID)) {
    throw GameFileRefusal("The game's moves can't be read.");
  }
  return moves;
}

}  // namespace

bool Games(const Call& call) {
  store::GameRecords games;
  if (!store::SelectGames(games, call.arguments.Value("--select"),
                          call.arguments.Value("--sort"))) {
    throw GameFileRefusal(
        "The games can't be listed: the game file is damaged or can't be read, or the "
        "selection or sort text asks for something that isn't there.");
  }
  if (!call.messages.Empty()) throw Refusal(call.messages.TakeSentence({}));
  for (const store::GameRecord& game : games) PrintGame(game);
  return true;
}

bool Moves(const Call& call) {
  const store::GameRecord game = GameArgument(call.arguments);
  for (const store::MoveRecord& move : MovesOf(game)) {
    JsonObject()
        .Add("MoveNumber", move.MoveNumber)
        .Add("MoveCoordinates", move.MoveCoordinates)
        .Add("MoveText", move.MoveText)
        .Add("MoveComment", move.MoveComment)
        .Print();
  }
  return true;
}

bool Show(const Call& call) {
  const store::GameRecord game = GameArgument(call.arguments);
  PlayedBoard played(call.messages);
  OpenGame(game.GAME_ID, played, call.messages);
  const board::Game& logic = played.logic;
  if (call.arguments.Has("--text")) {
    PrintBoard(logic);
    return true;
  }
  const int entries = logic.Moves.Count();
  const std::string position = call.arguments.Has("--fen")
                                   ? pgn::FenOfGame(game, MovesOf(game))
                                   : rules::WriteBoardText(ThePosition().BoardState);
  JsonObject()
      .Add("game", game.GAME_ID)
      .Add("white", logic.WhiteName)
      .Add("black", logic.BlackName)
      .Add("board", position)
      .Add("toMove", entries % 2)
      .Add("mine", (entries % 2 == 0) == logic.PlaysWhite)
      .Add("status", int{logic.GameStatus})
      .Add("check", ThePosition().SideInCheck)
      .Add("mate", ThePosition().CheckmateFlag)
      .Add("drawn", logic.GameDrawn)
      .Add("surrendered", logic.Surrendered)
      .Add("drawOffered", logic.DrawOffered)
      .Add("moves", entries)
      .Print();
  return true;
}

bool Remove(const Call& call) {
  const int gameID = call.arguments.Number(0, 1, std::numeric_limits<int>::max());
  std::string removed;
  if (!store::RemoveGame(gameID, &removed)) throw GameFileRefusal("The game can't be deleted.");
  if (!removed.empty()) study::ForgetGames({removed});
  JsonObject().Add("ok", true).Print();
  return true;
}

bool Backup(const Call&) {
  if (!store::BackupDatabase()) throw GameFileRefusal("The backup can't be written.");
  JsonObject().Add("ok", true).Print();
  return true;
}

bool Repair(const Call& call) {
  const store::RepairOutcome outcome = store::Repair(call.arguments.Has("--from-backup"));
  if (!outcome.failure.empty()) throw Refusal(outcome.failure);
  std::vector<std::string> lost;
  for (const store::DamagedLine& line : outcome.lost) {
    lost.push_back(JsonObject().Add("line", line.number).Add("why", line.why).Text());
  }
  const Json aside{outcome.aside.empty() ? "null" : Quoted(outcome.aside)};
  JsonObject()
      .Add("ok", true)
      .Add("kept", outcome.kept)
      .Add("lost", JsonArray(lost))
      .Add("aside", aside)
      .Print();
  return true;
}

}  // namespace cli
