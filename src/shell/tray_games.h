// SPDX-License-Identifier: GPL-3.0-or-later
// The tray menu's list of the games that go on.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace shell {

struct TrayGameEntry {
  enum Kind {
    Game,       ///< opens its game; the opponent, a tab and the title in double quotes
    Heading,    ///< disabled, above a group
    Gap,        ///< disabled and empty, between two groups
    Separator,  ///< a line below a heading
    None        ///< disabled, the only entry where no game goes on
  };

  Kind kind = Game;
  std::string caption;
  std::int32_t gameID = -1;  ///< of a game
};

/// The entries from top to bottom, at least one; nothing where they are those that the menu shows
/// already. `shown`: the stamp of the game file that they were made from, which is kept up to date
/// here.
std::optional<std::vector<TrayGameEntry>> NewTrayGameEntries(std::string& shown);

}  // namespace shell
