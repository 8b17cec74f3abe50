// SPDX-License-Identifier: GPL-3.0-or-later
#include "shell/game_file_check.h"

#include <optional>
#include <string>

#include "platform/messages.h"
#include "platform/process_state.h"
#include "store/repair.h"

namespace shell {
namespace {

constexpr const char* title = "Game file";

void Tell(int icon, const std::string& text) {
  platform::ShowMessage(
      icon, title, text, "OK", {}, false,
      icon == platform::DatabaseIcon ? platform::FailureSound : platform::AttentionSound);
}

/// An answer that the end of the session gave counts as a no.
bool Agrees(const std::string& text, const std::string& yes, const std::string& no) {
  return platform::ShowMessage(platform::DatabaseIcon, title, text, yes, no, false,
                               platform::AttentionSound) &&
         !platform::Process().Stopping;
}

/// Short enough to be read without scrolling.
bool AgreesToRepair(const store::Examination& found) {
  return Agrees(store::DescribeDamage(found) +
                    "||Shall Tarvolenix repair it now?  The damaged file is kept, too.",
                "Repair", "Later");
}

bool AgreesToSource(const store::Examination& found, bool backup) {
  const std::string inFile = store::CountedGames(found.games);
  if (!backup) {
    return Agrees("Keep the games of the damaged file itself?||" + inFile +
                      " in it can be read.  The damaged lines are left out.",
                  "Keep", "No");
  }
  return Agrees("Take the games of the backup?||It holds " +
                    store::CountedGames(*found.backupGames) +
                    ", as they were before the latest change.  In the damaged file itself " +
                    inFile + " can be read.",
                "Backup", "No");
}

/// Whether to take the backup, asked for the richer source first; nothing where neither is wanted.
std::optional<bool> AskForSource(const store::Examination& found) {
  if (!found.backupGames) return false;
  const bool richerIsBackup = *found.backupGames > found.games;
  for (const bool backup : {richerIsBackup, !richerIsBackup}) {
    if (AgreesToSource(found, backup)) return backup;
    if (platform::Process().Stopping) break;
  }
  return std::nullopt;
}

void TellOutcome(const store::RepairOutcome& outcome) {
  if (!outcome.failure.empty()) return Tell(platform::DatabaseIcon, outcome.failure);
  Tell(platform::InformationIcon,
       "Your game file is in order and holds " + store::CountedGames(outcome.kept) + "." +
           (outcome.aside.empty() ? ""
                                  : "||The damaged file is kept as " + outcome.aside +
                                        " in the folder " + platform::Process().DataPath + "."));
}

}  // namespace

void CheckGameFile() {
  const store::Examination found = store::ExamineGameFile();
  if (!found.unreadable.empty()) {
    return Tell(platform::DatabaseIcon,
                "The file with your games can't be read: " + found.unreadable +
                    ".||Nothing was changed, and your games may all be there.  See that its disk "
                    "and folder can be reached, and start Tarvolenix again.");
  }
  if (found.damaged.empty() || !AgreesToRepair(found)) return;
  if (const auto fromBackup = AskForSource(found)) TellOutcome(store::Repair(*fromBackup));
}

}  // namespace shell
