// SPDX-License-Identifier: GPL-3.0-or-later
#include "mail/mail_memory.h"

#include <algorithm>
#include <charconv>
#include <functional>
#include <tuple>

#include "platform/conversions.h"
#include "platform/mail_address.h"
#include "platform/process_state.h"
#include "platform/seams.h"
#include "platform/text_fields.h"
#include "platform/whole_file.h"

namespace mail {
namespace {

/// Bad mails that are told apart, and games whose last mail is known; of more the oldest are
/// forgotten.
constexpr std::size_t mostTold = 2000;
constexpr std::size_t mostArrivals = 2000;

constexpr const char* memoryFile = "Tvmail.dat";

void ReadAddress(platform::FieldWalk& fields, bool accepted, MailMemory& memory) {
  KnownAddress known;
  known.accepted = accepted;
  known.gameID = platform::ToInteger32(fields.Next()).value_or(0);
  known.dateStamp = fields.Next();
  known.address = fields.Next();
  memory.addresses.push_back(std::move(known));
}

std::int64_t SecondsOf(std::string_view text) {
  std::int64_t seconds = 0;
  std::from_chars(text.data(), text.data() + text.size(), seconds);
  return seconds;
}

/// The first of the latest that may be kept.
template <typename Entries>
auto LatestOf(const Entries& entries, std::size_t most) {
  return entries.end() - static_cast<std::ptrdiff_t>(std::min(entries.size(), most));
}

/// Of two that are about the same the later ones stand.
template <typename Entry, typename Subject>
void Append(std::vector<Entry>& entries, const std::vector<Entry>& later, Subject subject) {
  std::erase_if(entries, [&](const Entry& entry) {
    return std::ranges::any_of(later, [&](const Entry& other) {
      return std::invoke(subject, other) == std::invoke(subject, entry);
    });
  });
  entries.insert(entries.end(), later.begin(), later.end());
}

/// What can't be read is passed over: a line that was damaged costs a question more.
void ReadLine(std::string_view line, MailMemory& memory) {
  platform::FieldWalk fields(line, '|');
  const std::string_view kind = fields.Next();
  if (kind == "accepted" || kind == "refused") {
    ReadAddress(fields, kind == "accepted", memory);
  } else if (kind == "founded") {
    memory.foundings.push_back(SecondsOf(fields.Next()));
  } else if (kind == "told" || kind == "silenced") {
    const std::string id(fields.Next());
    if (kind == "silenced") memory.silenced.insert(id);
    memory.told.push_back(id);
  } else if (kind == "undelivered") {
    const std::string thread(fields.Next());
    memory.undelivered[thread] = fields.Next();
  } else if (kind == "arrived" || kind == "departed") {
    std::string thread(fields.Next());
    auto& known = kind == "arrived" ? memory.arrivals : memory.departures;
    known.push_back({std::move(thread), SecondsOf(fields.Next())});
  }
}

}  // namespace

AddressStanding MailMemory::StandingOf(std::string_view address,
                                       const store::GameRecord& game) const {
  const std::string comparable = platform::ComparableAddress(address);
  for (const KnownAddress& known : addresses) {
    if (known.gameID == game.GAME_ID && known.dateStamp == game.GAME_DATESTAMP &&
        known.address == comparable) {
      return known.accepted ? AddressStanding::Accepted : AddressStanding::Refused;
    }
  }
  return AddressStanding::Unknown;
}

void MailMemory::Remember(std::string_view address, const store::GameRecord& game, bool accepted) {
  const KnownAddress entry{accepted, game.GAME_ID, game.GAME_DATESTAMP,
                           platform::ComparableAddress(address)};
  if (entry.address.empty()) return;
  std::erase_if(addresses, [&entry](const KnownAddress& known) {
    return known.gameID == entry.gameID && known.dateStamp == entry.dateStamp &&
           known.address == entry.address;
  });
  addresses.push_back(entry);
}

bool MailMemory::WasTold(std::string_view id) const {
  return std::find(told.begin(), told.end(), id) != told.end();
}

MailMemory LoadMailMemory(const std::string& folder) {
  platform::Files& files = *platform::TheSeams().files;
  MailMemory memory;
  if (!files.Exists(folder + memoryFile)) return memory;
  const std::string content = files.Read(folder + memoryFile);
  platform::FieldWalk lines(content, '\n');
  for (int count = platform::CountFields(content, '\n'); count > 0; --count) {
    ReadLine(lines.Next(), memory);
  }
  return memory;
}

void SaveMailMemory(const MailMemory& memory) {
  std::string content;
  for (const auto& [accepted, gameID, dateStamp, address] : memory.addresses) {
    content.append(accepted ? "accepted|" : "refused|").append(std::to_string(gameID));
    content.append("|").append(dateStamp).append("|").append(address).append("\n");
  }
  for (const std::int64_t seconds : memory.foundings) {
    content.append("founded|").append(std::to_string(seconds)).append("\n");
  }
  for (const auto& [thread, reason] : memory.undelivered) {
    content.append("undelivered|").append(thread).append("|").append(reason).append("\n");
  }
  for (const auto& [kind, known] :
       {std::pair("arrived|", &memory.arrivals), std::pair("departed|", &memory.departures)}) {
    for (auto it = LatestOf(*known, mostArrivals); it != known->end(); ++it) {
      content.append(kind).append(it->thread).append("|");
      content.append(std::to_string(it->at)).append("\n");
    }
  }
  for (auto it = LatestOf(memory.told, mostTold); it != memory.told.end(); ++it) {
    content.append(memory.silenced.contains(*it) ? "silenced|" : "told|").append(*it).append("\n");
  }
  platform::ReplaceFile(platform::Process().DataPath + memoryFile, content);
}

void AddMailMemoryOf(const std::string& folder) {
  if (!platform::TheFiles().Exists(folder + memoryFile)) return;
  MailMemory memory = LoadMailMemory(folder);
  MailMemory own = LoadMailMemory();
  Append(memory.addresses, own.addresses, [](const KnownAddress& known) {
    return std::tie(known.gameID, known.dateStamp, known.address);
  });
  Append(memory.foundings, own.foundings, std::identity());
  Append(memory.told, own.told, std::identity());
  Append(memory.arrivals, own.arrivals, &Arrival::thread);
  Append(memory.departures, own.departures, &Arrival::thread);
  memory.silenced.merge(own.silenced);
  memory.undelivered.merge(own.undelivered);
  SaveMailMemory(memory);
}

}  // namespace mail
