// SPDX-License-Identifier: GPL-3.0-or-later
#include "shell/other_games.h"

#include <exception>

#include "mail/mail_memory.h"
#include "platform/address_book.h"
#include "platform/messages.h"
#include "platform/polling.h"
#include "platform/process_state.h"
#include "platform/seams.h"
#include "shell/tray_status.h"
#include "store/data_files.h"
#include "store/other_games.h"
#include "store/repair.h"
#include "study/study_file.h"

namespace shell {
namespace {

using platform::Process;

constexpr const char* title = "Use games from another folder";

void Tell(int icon, const std::string& text) {
  platform::ShowMessage(
      icon, title, text, "OK", {}, false,
      icon == platform::DatabaseIcon ? platform::FailureSound : platform::AttentionSound);
}

/// How many there are, as far as they can be read.
int OwnGames() { return store::ExamineGameFile().games; }

bool Agrees(const store::OtherGames& other) {
  const int own = OwnGames();
  return own == 0 ||
         (platform::ShowMessage(platform::DatabaseIcon, title,
                                "Shall the list hold the " + store::CountedGames(other.games) +
                                    " of " + other.path + " instead of your " +
                                    store::CountedGames(own) + "?  Yours are kept, too.",
                                "Yes", "No", false, platform::AttentionSound) &&
          !Process().Stopping);
}

/// What is known of games by their numbers is nothing to these.
void ForgetFormerGames() {
  Process().PendingGames.clear();
  Process().DeletedGames.clear();
  Process().NewMoveArrived = false;
}

/// The people of the address book join those who are here.
std::string AddPeopleOf(const std::string& folder) {
  const std::string path = folder + platform::addressBookFile;
  if (!platform::TheFiles().Exists(path)) return {};
  const int damaged = platform::TheSeams().addressBook->Import(path).leftOut;
  return damaged == 0 ? "" : std::to_string(damaged) + " of its entries can't be used";
}

std::string AddMemoryOf(const std::string& folder) {
  mail::AddMailMemoryOf(folder);
  return {};
}

/// What else lies in a folder of games. Answers what went wrong.
constexpr struct {
  const char* name;
  std::string (*take)(const std::string& folder);
} companions[] = {
    {"The notes", study::UseNotesOf},
    {"The address book", AddPeopleOf},
    {"What was remembered of the mails", AddMemoryOf},
};

/// Sentences on what stayed behind. `keepsNotes`: those that are here stand.
std::string TakeCompanionsOf(const store::OtherGames& other, bool keepsNotes) {
  const std::string folder = other.path.substr(0, other.path.rfind('/') + 1);
  std::string told;
  for (const auto& companion : companions) {
    if (keepsNotes && companion.take == study::UseNotesOf) continue;
    std::string trouble;
    try {
      trouble = companion.take(folder);
    } catch (const std::exception& error) {
      trouble = error.what();
    }
    if (trouble.empty()) continue;
    told += std::string("|") + companion.name + " beside them didn't come along whole: " + trouble +
            '.';
  }
  return told;
}

void Use(const store::OtherGames& other) {
  const std::string kept = store::UseGames(other);
  const std::string trouble = TakeCompanionsOf(other, false);
  ForgetFormerGames();
  UpdateTrayStatus(platform::TrayOperation::Modify);
  Tell(platform::InformationIcon,
       "Copied " + store::CountedGames(other.games) + " from " + other.path +
           (kept.empty() ? "."
                         : "; the games that were here are kept as " + kept + " in the folder " +
                               Process().DataPath + ".") +
           trouble);
}

}  // namespace

bool UseGamesOfFolder(const std::string& folder) {
  const platform::PollingHold hold;
  try {
    const store::OtherGames other = store::LookAtGamesIn(folder);
    if (other.content == store::ReadGameFile()) {
      Tell(platform::InformationIcon, "The games of " + other.path +
                                          " are the same as those in your list." +
                                          TakeCompanionsOf(other, study::HasNotes()));
      return false;
    }
    if (!Agrees(other)) return false;
    Use(other);
    return true;
  } catch (const std::exception& error) {
    Tell(platform::DatabaseIcon,
         "The games of " + folder + " weren't copied: " + error.what() + ".");
    return false;
  }
}

}  // namespace shell
