// SPDX-License-Identifier: GPL-3.0-or-later
#include "mail/move_files.h"

#include <exception>
#include <optional>

#include "mail/judgement.h"
#include "mail/move_mail.h"
#include "mail/move_text_check.h"
#include "mail/sending.h"
#include "mail/status_popup.h"
#include "platform/messages.h"
#include "platform/polling.h"
#include "platform/process_state.h"
#include "platform/registry.h"
#include "platform/seams.h"
#include "platform/whole_file.h"
#include "store/database_lock.h"
#include "store/repair.h"
#include "store/saving.h"

namespace mail {
namespace {

constexpr const char* namePrefix = "Cmove";
constexpr const char* nameSuffix = ".txt";

/// What the file is called while it is written, out of sight of a program that waits for it.
constexpr const char* unfinishedName = "Cmove.new";

/// A file has no sender.
constexpr const char* unknownName = "Unknown";

std::string FirstFreeName() {
  for (int number = 1;; ++number) {
    std::string name = namePrefix + std::to_string(number) + nameSuffix;
    if (!platform::TheFiles().Exists(platform::Process().DataPath + name)) return name;
  }
}

/// What was read from one file; tells how it went by `arrival`.
void ImportText(const std::string& content, bool userPicks, MoveArrival& arrival) {
  const std::string text = ExtractMoveText(content);
  platform::Process().NewMoveArrived = false;
  if (!ValidateMoveText(text, userPicks, &arrival.stage)) return;
  Books books;
  TakeClaim(ReadClaim(text), {unknownName, unknownAddress, arrival.from, content, true}, arrival,
            books);
  Keep(books);
}

void ReportReadError(bool userPicks, const std::string& cause) {
  platform::ShowMessage(
      platform::MailIcon, "File read error",
      platform::WithCause(
          store::WithDamage(userPicks
                                ? "An error occured trying to import the game information.||Please "
                                  "ensure you select a valid chess move file."
                                : "An error occured trying to retrieve the game "
                                  "information.||Please select Retrieve games... from the File "
                                  "menu."),
          cause),
      "OK", {}, false, platform::FailureSound);
}

/// False where the import has to end, which the user hears of unless it happens to a later file.
bool TakeFiles(const std::vector<std::string>& paths, bool userPicks,
               std::vector<MoveArrival>& arrivals) {
  bool opened = false;
  try {
    for (const std::string& path : paths) {
      MoveArrival& arrival = arrivals.emplace_back();
      arrival.from = path;
      const std::string content = platform::TheFiles().Read(path);
      opened = true;
      ImportText(content, userPicks, arrival);
      const bool isKept = arrival.ok || !arrival.held.empty();
      if (isKept && !userPicks) platform::TheFiles().Remove(path);
    }
    return true;
  } catch (const StoreFailure& failure) {
    ReportReadError(userPicks, FileCause(failure));
  } catch (const std::exception& failure) {
    const bool isPicked = !paths.front().empty();
    if (!opened) ReportReadError(userPicks, isPicked ? FileCause(failure) : "");
  }
  return false;
}

std::vector<MoveArrival> ImportPaths(const std::vector<std::string>& paths, bool showStatus,
                                     bool userPicks) {
  const platform::PollingHold hold;
  const StatusPopup popup(showStatus);
  popup.Show("Retrieving games...");
  platform::Process().PendingGames.clear();
  platform::Process().NewMoveArrived = false;  // no file may come that would say so
  std::vector<MoveArrival> arrivals;
  if (!TakeFiles(paths, userPicks, arrivals)) return arrivals;
  store::BackupDatabase();
  platform::TheSeams().tray->BuildGameMenu();
  if (userPicks && arrivals.front().ok) {
    platform::ShowMessage(platform::MailIcon, "Game import",
                          "The game has been successfully imported.", "OK", {}, false,
                          platform::AttentionSound);
  }
  if (userPicks && !arrivals.front().held.empty()) {
    platform::ShowMessage(platform::MailIcon, "Mails set aside",
                          "The file was set aside: its moves aren't those of your game, or the "
                          "game has ended.||You find it under \"Mails set aside...\" in the File "
                          "menu.",
                          "OK", {}, false, platform::AttentionSound);
  }
  return arrivals;
}

/// Nothing where the user picked none.
std::optional<std::string> PickMoveFile() {
  try {
    return platform::TheSeams().windows->PickMoveFile();
  } catch (const std::exception&) {
    return std::nullopt;
  }
}

}  // namespace

bool ExportMoveFile(std::int32_t gameID, std::string* fileName) {
  try {
    // Nobody else may take the same number meanwhile.
    const store::DatabaseLock lock;
    const OutgoingGame game = LoadOutgoingGame(gameID);
    const std::string name = FirstFreeName();
    platform::ReplaceFile(platform::Process().DataPath + name,
                          BuildMailBody(game.record, game.moves) + "\r\n",
                          platform::Process().DataPath + unfinishedName);
    if (fileName) *fileName = name;
  } catch (const std::exception& failure) {
    ReportTransmissionError(FileCause(failure));
    return false;
  }
  // As after a mail: the move is out, whatever becomes of the backup.
  store::BackupDatabase();
  return true;
}

std::vector<MoveArrival> ImportMoveFiles(bool showStatus, bool userPicks) {
  const platform::PollingHold hold;
  if (userPicks) return {ImportPickedFile(PickMoveFile().value_or(""), showStatus)};
  std::vector<std::string> paths;
  try {
    paths = ListMoveFiles();
  } catch (const std::exception&) {
    return {};
  }
  return ImportPaths(paths, showStatus, false);
}

MoveArrival ImportPickedFile(const std::string& path, bool showStatus) {
  return ImportPaths({path}, showStatus, true).front();
}

std::vector<std::string> ListMoveFiles() {
  const std::string& folder = platform::Process().DataPath;
  std::vector<std::string> paths;
  for (const std::string& name : platform::TheFiles().List(folder)) {
    if (name.starts_with(namePrefix) && name.ends_with(nameSuffix)) paths.push_back(folder + name);
  }
  return paths;
}

}  // namespace mail
