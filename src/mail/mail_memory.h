// SPDX-License-Identifier: GPL-3.0-or-later
// What the program remembers of mails beyond its games, in the file "Tvmail.dat" beside them: which
// further addresses the user took or refused for a game, when strangers began games, which bad
// mails and reports he has been told of, whose last mail couldn't be delivered, and when the last
// one of each game came and went. A line an entry, its kind in front, fields separated by "|".
//
// Losing the file loses no game: the user is asked again. Loading and saving raise
// platform::FileError; who decides by what is remembered must not go on without it.
#pragma once

#include <cstdint>
#include <map>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "platform/process_state.h"
#include "store/game_record.h"

namespace mail {

/// What the user said of one address that wrote for one game.
struct KnownAddress {
  bool accepted = true;
  std::int32_t gameID = 0;
  std::string dateStamp;
  std::string address;  ///< comparable
};

struct Arrival {
  std::string thread;
  std::int64_t at = 0;  ///< seconds since 1970
};

enum class AddressStanding { Unknown, Accepted, Refused };

struct MailMemory {
  std::vector<KnownAddress> addresses;
  std::vector<std::int64_t> foundings;  ///< seconds since 1970 at which strangers began games
  std::vector<std::string> told;        ///< identifiers of bad mails and reports, the latest last
  std::set<std::string> silenced;       ///< those of which the user doesn't want to hear again

  /// Of a thread, why its last mail couldn't be delivered.
  std::map<std::string, std::string, std::less<>> undelivered;

  std::vector<Arrival> arrivals;    ///< one of a thread, the latest last
  std::vector<Arrival> departures;  ///< of the user's own mails, likewise

  AddressStanding StandingOf(std::string_view address, const store::GameRecord& game) const;
  void Remember(std::string_view address, const store::GameRecord& game, bool accepted);
  bool WasTold(std::string_view id) const;
};

/// Of the folder of the games, where none is named; blank where there is no such file.
MailMemory LoadMailMemory(const std::string& folder = platform::Process().DataPath);
void SaveMailMemory(const MailMemory& memory);

/// Adds what is remembered in the folder of other games. Raises platform::FileError.
void AddMailMemoryOf(const std::string& folder);

}  // namespace mail
