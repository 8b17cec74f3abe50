// SPDX-License-Identifier: GPL-3.0-or-later
#include "shell/tray_games.h"

#include "store/queries.h"

namespace shell {
namespace {

/// A draw that was offered waits for the opponent as a move does. Games that are over have none.
std::string HeadingOf(const store::GameRecord& game) {
  switch (game.GAME_STATUS) {
    case store::MoveWaiting:
      return "NEW ARRIVALS";
    case store::WaitingForOpponent:
    case store::DrawOfferSent:
      return "AWAITING OPPONENTS MOVE";
    default:
      return {};
  }
}

}  // namespace

std::optional<std::vector<TrayGameEntry>> NewTrayGameEntries(std::string& shown) {
  if (store::IsGameFileUnchanged(shown)) return std::nullopt;
  store::GameRecords games;
  const char* const sort = "Game_status;A;Game_opponents_name;A;Game_date;D";
  if (!store::SelectGames(games, {}, sort)) shown.clear();
  std::vector<TrayGameEntry> entries;
  std::string group;
  for (const store::GameRecord& game : games) {
    const std::string heading = HeadingOf(game);
    if (heading.empty()) continue;
    if (heading != group) {
      if (!entries.empty()) entries.push_back({TrayGameEntry::Gap, {}});
      entries.push_back({TrayGameEntry::Heading, heading});
      entries.push_back({TrayGameEntry::Separator, "-"});
      group = heading;
    }
    entries.push_back({TrayGameEntry::Game,
                       game.GAME_OPPONENTS_NAME + "\t\"" + game.GAME_NAME + "\"", game.GAME_ID});
  }
  if (entries.empty()) entries.push_back({TrayGameEntry::None, "No games available"});
  return entries;
}

}  // namespace shell
