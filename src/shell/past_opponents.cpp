// SPDX-License-Identifier: GPL-3.0-or-later
#include "shell/past_opponents.h"

#include <set>
#include <string>

#include "store/queries.h"

namespace shell {

std::vector<platform::Recipient> PastOpponents() {
  store::GameRecords games;
  if (!store::SelectGames(games, {}, "Game_ID;D")) return {};
  std::vector<platform::Recipient> opponents;
  std::set<std::string> addresses;
  for (const store::GameRecord& game : games) {
    const std::string& address = game.GAME_OPPONENTS_EMAIL;
    // An imported game's address reaches nobody.
    if (game.GAME_VS_COMPUTER || address.ends_with(".invalid")) continue;
    if (addresses.insert(address).second) opponents.push_back({game.GAME_OPPONENTS_NAME, address});
  }
  return opponents;
}

}  // namespace shell
