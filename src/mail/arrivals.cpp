// SPDX-License-Identifier: GPL-3.0-or-later
#include "mail/arrivals.h"

#include <exception>

#include "mail/games_locked.h"
#include "mail/mail_memory.h"
#include "platform/seams.h"

namespace mail {

void NoteArrival(const std::string& thread) {
  try {
    WithGamesLocked([&thread] {
      MailMemory memory = LoadMailMemory();
      std::erase_if(memory.arrivals, [&](const Arrival& known) { return known.thread == thread; });
      memory.arrivals.push_back({thread, platform::TheSeams().clock->Seconds()});
      SaveMailMemory(memory);
    });
  } catch (const std::exception&) {
    // a note, and no reason to refuse the mail
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

}  // namespace mail
