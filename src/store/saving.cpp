// SPDX-License-Identifier: GPL-3.0-or-later
// Both the game file and its backup are only ever replaced whole, by a rename of "tvgdb.new". So no
// full disk and no crash costs more than the change in hand, and a roll-back has something to do
// only where the rename took place and then failed to reach the disk.
#include "store/saving.h"

#include <exception>
#include <functional>
#include <optional>
#include <string>
#include <string_view>

#include "platform/desktop.h"
#include "platform/process_state.h"
#include "store/database_lock.h"
#include "store/game_file.h"
#include "store/queries.h"

namespace store {
namespace {

constexpr std::string_view lineEnd = "\r\n";

platform::Files& Files() { return *platform::TheDesktop().files; }

std::string TemporaryPath() { return platform::Process().DataPath + "tvgdb.new"; }
std::string BackupPath() { return platform::Process().DataPath + "tvgdb.bak"; }

void RemoveQuietly(const std::string& path) {
  try {
    if (Files().Exists(path)) Files().Remove(path);
  } catch (const std::exception&) {
    // It stays behind, and the next save overwrites it.
  }
}

void ReplaceFile(const std::string& path, std::string_view content) {
  try {
    Files().Write(TemporaryPath(), content);
    Files().Rename(TemporaryPath(), path);
  } catch (const std::exception&) {
    RemoveQuietly(TemporaryPath());
    throw;
  }
}

/// The game file's content; nothing where there is no file.
std::optional<std::string> ReadGameFile() {
  if (!Files().Exists(GameFilePath())) return std::nullopt;
  return Files().Read(GameFilePath());
}

/// Replaces the game file by what `change` makes of its content, after a backup. A file that
/// `change` can't read raises there, before the last good backup is given up.
bool ChangeGameFile(const std::function<std::string(std::string_view)>& change) {
  std::optional<DatabaseLock> lock;
  std::optional<std::string> before;
  std::string after;
  try {
    lock.emplace();
    before = ReadGameFile();
    after = change(before.value_or(""));
    if (before) ReplaceFile(BackupPath(), *before);
  } catch (const std::exception&) {
    return false;
  }
  try {
    ReplaceFile(GameFilePath(), after);
    return true;
  } catch (const std::exception&) {
    // Without a game file no backup was made, and an earlier one is none of this state.
    if (before) {
      RestoreDatabase();
    } else {
      RemoveQuietly(GameFilePath());
    }
    return false;
  }
}

/// Copies all lines but that of one game, which is handed back.
std::optional<std::string_view> CopyOtherGames(std::string_view content, std::int32_t gameID,
                                               std::string& copy) {
  copy.reserve(content.size());
  std::optional<std::string_view> oldLine;
  LineWalk lines(content);
  while (const auto line = lines.Next()) {
    if (GameIDOfLine(*line) == gameID) {
      oldLine = line;
    } else {
      copy.append(*line).append(lineEnd);
    }
  }
  return oldLine;
}

}  // namespace

bool SaveGame(GameRecord& record, const MoveRecords& moves, bool* changed) {
  if (changed) *changed = false;
  return ChangeGameFile([&](std::string_view content) {
    std::string saved;
    const auto oldLine = CopyOtherGames(content, record.GAME_ID, saved);
    const bool newMove =
        oldLine && !moves.empty() && StoredMoves(*oldLine) < moves.back().MoveNumber;
    const bool news = !oldLine || newMove;
    if (changed && news) {
      *changed = true;
      record.GAME_STATUS = MoveWaiting;
    }
    AppendGame(saved, record);
    const bool movesCount = news && !moves.empty();
    const bool movesContinue = newMove && moves.size() == 1;
    if (oldLine && (!movesCount || movesContinue)) saved += MovesText(*oldLine);
    if (movesCount) {
      for (const MoveRecord& move : moves) AppendMove(saved, move);
    }
    return saved.append(lineEnd);
  });
}

bool ReplaceGame(const GameRecord& record, const MoveRecords& moves) {
  return ChangeGameFile([&](std::string_view content) {
    std::string saved;
    CopyOtherGames(content, record.GAME_ID, saved);
    AppendGame(saved, record);
    for (const MoveRecord& move : moves) AppendMove(saved, move);
    return saved.append(lineEnd);
  });
}

bool RemoveGame(std::int32_t gameID) {
  try {
    if (!Files().Exists(GameFilePath())) return true;
  } catch (const std::exception&) {
    return false;
  }
  return ChangeGameFile([gameID](std::string_view content) {
    std::string kept;
    CopyOtherGames(content, gameID, kept);
    return kept;
  });
}

bool BackupDatabase() {
  try {
    const DatabaseLock lock;
    // Most ticks of the polling loop find the file that the last one has backed up.
    std::string& backedUp = platform::Process().BackedUpGameFile;
    const std::string stamp = GameFileStamp();
    if (stamp == backedUp && Files().Exists(BackupPath())) return true;
    // A backup of a damaged file would cost the last good one.
    GameRecords games;
    if (!SelectGames(games, {})) return false;
    if (const auto content = ReadGameFile()) ReplaceFile(BackupPath(), *content);
    backedUp = stamp;
    return true;
  } catch (const std::exception&) {
    return false;
  }
}

void RestoreDatabase() {
  try {
    const DatabaseLock lock;
    if (!Files().Exists(BackupPath())) return;
    const std::string backup = Files().Read(BackupPath());
    if (Files().Exists(GameFilePath()) && Files().Read(GameFilePath()) == backup) return;
    ReplaceFile(GameFilePath(), backup);
  } catch (const std::exception&) {
    // The game file stands as it was.
  }
}

}  // namespace store
