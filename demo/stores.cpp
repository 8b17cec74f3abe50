// SPDX-License-Identifier: GPL-3.0-or-later
#include "demo/stores.h"

#include <algorithm>
#include <cstdio>
#include <iterator>
#include <optional>

#include "desktop/posix_files.h"
#include "platform/process_state.h"
#include "platform/seams.h"
#include "store/queries.h"

namespace demo {

namespace {

struct Copy {
  store::GameRecord game;
  store::MoveRecords moves;
};

/// The last game of a player.
std::optional<Copy> LastGame(const std::string& folder) {
  platform::Process().DataPath = folder + "/Data/";
  store::GameRecords games;
  if (!store::SelectGames(games, {}, "Game_ID;D") || games.empty()) return std::nullopt;
  Copy copy{games.front(), {}};
  if (!store::SelectMoves(copy.moves, copy.game.GAME_ID)) return std::nullopt;
  return copy;
}

bool SameMove(const store::MoveRecord& one, const store::MoveRecord& other) {
  return one.MoveNumber == other.MoveNumber && one.MoveCoordinates == other.MoveCoordinates &&
         one.MoveText == other.MoveText && one.MoveComment == other.MoveComment;
}

void TellMoves(const store::MoveRecords& moves) {
  std::printf("The game:");
  for (const store::MoveRecord& move : moves) {
    std::printf(" %s", move.MoveText.c_str());
    if (!move.MoveComment.empty()) std::printf(" (\"%s\")", move.MoveComment.c_str());
  }
  std::printf("\n");
}

}  // namespace

bool EndEqual(const std::string& winner, const std::string& loser) {
  desktop::PosixFiles files;
  platform::TheSeams().files = &files;
  const auto won = LastGame(winner);
  const auto lost = LastGame(loser);
  platform::TheSeams().files = nullptr;
  if (!won || !lost) {
    std::printf("A player has no game, or it can't be read.\n");
    return false;
  }
  TellMoves(won->moves);
  struct Demand {
    const char* told;
    bool holds;
  };
  const store::GameRecord& ofWinner = won->game;
  const store::GameRecord& ofLoser = lost->game;
  const Demand demands[] = {
      {"both copies are of the same game", ofWinner.GAME_DATESTAMP == ofLoser.GAME_DATESTAMP},
      {"it began on the same board", ofWinner.GAME_START_BOARD == ofLoser.GAME_START_BOARD},
      {"the moves, their texts and comments are the same",
       std::equal(won->moves.begin(), won->moves.end(), lost->moves.begin(), lost->moves.end(),
                  SameMove)},
      {"the last one mates", !won->moves.empty() && won->moves.back().MoveText.ends_with("++")},
      {"each copy knows the other's number", ofWinner.GAME_OPPONENTS_ID == ofLoser.GAME_ID &&
                                                 ofLoser.GAME_OPPONENTS_ID == ofWinner.GAME_ID},
      {"one has won and the other has lost",
       ofWinner.GAME_STATUS == store::GameWon && ofLoser.GAME_STATUS == store::GameLost},
  };
  for (const Demand& demand : demands) {
    std::printf("  %-3s  %s\n", demand.holds ? "yes" : "NO", demand.told);
  }
  return std::all_of(std::begin(demands), std::end(demands),
                     [](const Demand& demand) { return demand.holds; });
}

}  // namespace demo
