// SPDX-License-Identifier: GPL-3.0-or-later
#include "mail/arrivals.h"

#include <algorithm>
#include <exception>
#include <vector>

#include "mail/games_locked.h"
#include "mail/mail_memory.h"
#include "platform/seams.h"

namespace mail {

void NoteMoment(const std::string& thread, std::vector<Arrival>& moments) {
  std::erase_if(moments, [&thread](const Arrival& known) { return known.thread == thread; });
  moments.push_back({thread, platform::TheSeams().clock->Seconds()});
}

void NoteDeparture(const std::string& thread) {
  try {
    WithGamesLocked([&thread] {
      MailMemory memory = LoadMailMemory();
      NoteMoment(thread, memory.departures);
      SaveMailMemory(memory);
    });
  } catch (const std::exception&) {
    // a note, and no reason to call the mail unsent
  }
}

std::optional<std::int64_t> LastArrival(const std::string& thread) {
  try {
    for (const Arrival& known : LoadMailMemory().arrivals) {
      if (known.thread == thread) return known.at;
    }
  } catch (const std::exception&) {
    // a note, and no reason to open no board
  }
  return std::nullopt;
}

std::map<std::string, std::int64_t> LastMails() {
  std::map<std::string, std::int64_t> last;
  try {
    const MailMemory memory = LoadMailMemory();
    for (const auto* moments : {&memory.arrivals, &memory.departures}) {
      for (const Arrival& known : *moments) {
        std::int64_t& at = last[known.thread];
        at = std::max(at, known.at);
      }
    }
  } catch (const std::exception&) {
    // a note, and no reason to show no games
  }
  return last;
}

}  // namespace mail
