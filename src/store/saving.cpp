// SPDX-License-Identifier: GPL-3.0-or-later
// Both the game file and its backup are only ever replaced whole, by a rename of "tvgdb.new". So no
// full disk and no crash costs more than the change in hand, and a roll-back has something to do
// only where the rename took place and was told as a failure all the same.
#include "store/saving.h"

#include <algorithm>
#include <exception>
#include <functional>
#include <limits>
#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "platform/mail_address.h"
#include "platform/process_state.h"
#include "platform/seams.h"
#include "store/batch.h"
#include "store/data_files.h"
#include "store/database_lock.h"
#include "store/game_file.h"
#include "store/queries.h"

namespace store {
namespace {

/// Whether every query reads this. A backup of a damaged file would cost the last good one.
bool IsWorthABackup(std::string_view content) {
  try {
    GameRecord record;
    LineWalk lines(content);
    while (const auto line = lines.Next()) ReadGameLine(*line, record);
    return true;
  } catch (const std::invalid_argument&) {
    return false;
  }
}

/// False, with the reason where somebody asks for it.
bool Fail(const std::exception& error, std::string* why) {
  if (why) *why = error.what();
  return false;
}

bool ChangeBatch(Batch& batch, const std::function<std::string(std::string_view)>& change,
                 std::string* why) {
  try {
    batch.Change(change(batch.Content() ? std::string_view(*batch.Content()) : ""));
    return true;
  } catch (const std::exception& error) {
    return Fail(error, why);
  }
}

/// Replaces the game file by what `change` makes of its content, after a backup.
bool ChangeGameFile(const std::function<std::string(std::string_view)>& change,
                    std::string* why = nullptr) {
  if (Batch* batch = Batch::Open()) return ChangeBatch(*batch, change, why);
  std::optional<DatabaseLock> lock;
  std::optional<std::string> before;
  std::string after;
  bool backUp = false;
  try {
    lock.emplace();
    before = ReadGameFile();
    after = change(before.value_or(""));
    backUp = before && IsWorthABackup(*before);
    if (backUp) ReplaceFile(BackupPath(), *before);
  } catch (const std::exception& error) {
    return Fail(error, why);
  }
  try {
    ReplaceFile(GameFilePath(), after);
    return true;
  } catch (const std::exception& error) {
    // Where no backup was made an earlier one is none of this state.
    if (backUp) {
      RestoreDatabase();
    } else {
      RestoreGameFile(before);
    }
    return Fail(error, why);
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

bool ComeFromOneStart(const GameRecord& one, const GameRecord& other) {
  return one.GAME_DATESTAMP == other.GAME_DATESTAMP && one.GAME_HOST == other.GAME_HOST &&
         one.GAME_NAME == other.GAME_NAME &&
         platform::SameAddress(one.GAME_OPPONENTS_EMAIL, other.GAME_OPPONENTS_EMAIL);
}

bool BeginAlike(const MoveRecords& one, const MoveRecords& other) {
  const auto end = static_cast<std::ptrdiff_t>(std::min(one.size(), other.size()));
  return std::equal(one.begin(), one.begin() + end, other.begin(),
                    [](const MoveRecord& its, const MoveRecord& others) {
                      return its.MoveCoordinates == others.MoveCoordinates;
                    });
}

/// The number of a game that its opponent's mail has brought anew, with what came later.
std::optional<std::int32_t> SameGameIn(std::string_view content, const std::string& removed) {
  GameRecord game;
  ReadGameLine(removed, game);
  const MoveRecords moves = ReadWholeMoves(removed);
  LineWalk lines(content);
  while (const auto line = lines.Next()) {
    if (line->find(game.GAME_DATESTAMP) == std::string_view::npos) continue;
    GameRecord other;
    ReadGameLine(*line, other);
    if (ComeFromOneStart(game, other) && BeginAlike(moves, ReadWholeMoves(*line))) {
      return other.GAME_ID;
    }
  }
  return std::nullopt;
}

/// The first of `count` free numbers in a row: behind the greatest, or where that leaves too few,
/// in the first gap that has room for all.
std::int64_t FreeNumbers(std::vector<std::int64_t> taken, std::int64_t count) {
  constexpr std::int64_t greatest = std::numeric_limits<std::int32_t>::max();
  std::ranges::sort(taken);
  std::int64_t free = taken.empty() ? 1 : std::max<std::int64_t>(taken.back() + 1, 1);
  if (free + count - 1 <= greatest) return free;
  free = 1;
  for (const std::int64_t number : taken) {
    if (number - free >= count) return free;
    free = std::max(free, number + 1);
  }
  throw std::invalid_argument("there are no numbers left for new games");
}

}  // namespace

bool SaveGame(GameRecord& record, const MoveRecords& moves, bool* changed) {
  if (changed) *changed = false;
  return ChangeGameFile([&](std::string_view content) {
    std::string saved;
    const auto oldLine = CopyOtherGames(content, record.GAME_ID, saved);
    const bool newMove =
        oldLine && !moves.empty() && HoldsFewerMoves(*oldLine, moves.back().MoveNumber);
    const bool news = !oldLine || newMove;
    if (changed && news) {
      *changed = true;
      record.GAME_STATUS = MoveWaiting;
    }
    AppendGame(saved, record);
    const bool movesCount = news && !moves.empty();
    const bool movesContinue = newMove && moves.size() == 1;
    if (movesContinue) saved += WholeMovesText(*oldLine);
    if (oldLine && !movesCount) saved += MovesText(*oldLine);
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

void NewGames::Add(const GameRecord& record, const MoveRecords& moves) {
  std::string line;
  AppendGame(line, record);
  for (const MoveRecord& move : moves) AppendMove(line, move);
  lines_ += std::string_view(line).substr(line.find('|'));
  ends_.push_back(lines_.size());
}

void NewGames::Append(const NewGames& more) {
  const std::size_t before = lines_.size();
  lines_ += more.lines_;
  for (const std::size_t end : more.ends_) ends_.push_back(before + end);
}

std::string_view NewGames::Line(std::size_t index) const {
  const std::size_t begin = index == 0 ? 0 : ends_[index - 1];
  return std::string_view(lines_).substr(begin, ends_[index] - begin);
}

std::optional<std::int32_t> AddGames(const NewGames& games, std::string* why,
                                     const std::function<bool()>& isCancelled) {
  std::int64_t first = 1;
  const auto add = [&](std::string_view content) {
    std::string all;
    std::vector<std::int64_t> taken;
    LineWalk lines(content);
    while (const auto line = lines.Next()) {
      all.append(*line).append(lineEnd);
      taken.push_back(GameIDOfLine(*line));
    }
    for (const std::string& line : platform::Process().DeletedGames) {
      taken.push_back(GameIDOfLine(line));  // as long as it can be put back
    }
    first = FreeNumbers(std::move(taken), static_cast<std::int64_t>(games.Count()));
    for (std::size_t i = 0; i < games.Count(); ++i) {
      if (isCancelled && isCancelled()) throw std::runtime_error("it was cancelled");
      const auto number = first + static_cast<std::int64_t>(i);
      all.append(std::to_string(number)).append(games.Line(i)).append(lineEnd);
    }
    return all;
  };
  const bool saved = ChangeGameFile(add, why);
  return saved && games.Count() > 0 ? std::optional(static_cast<std::int32_t>(first))
                                    : std::nullopt;
}

bool RemoveGame(std::int32_t gameID, std::string* removed) {
  try {
    if (!platform::TheFiles().Exists(GameFilePath())) return true;
  } catch (const std::exception&) {
    return false;
  }
  return ChangeGameFile([gameID, removed](std::string_view content) {
    std::string kept;
    const auto line = CopyOtherGames(content, gameID, kept);
    if (removed) *removed = line.value_or("");
    return kept;
  });
}

bool ReplaceGames(std::string content) {
  return ChangeGameFile([&content](std::string_view) { return std::move(content); });
}

std::optional<std::int32_t> PutBackGame(const std::string& removed) {
  auto number = GameIDOfLine(removed);
  const bool isSaved = ChangeGameFile([&](std::string_view content) {
    if (const auto there = SameGameIn(content, removed)) {
      number = *there;
      return std::string(content);
    }
    std::string saved;
    if (CopyOtherGames(content, number, saved)) {
      throw std::invalid_argument("the number of a removed game is taken");
    }
    return saved.append(removed).append(lineEnd);
  });
  return isSaved ? std::optional(number) : std::nullopt;
}

bool BackupDatabase() {
  try {
    const DatabaseLock lock;
    // Most ticks of the polling loop find the file that the last one has backed up.
    std::string& backedUp = platform::Process().BackedUpGameFile;
    const std::string stamp = GameFileStamp();
    if (!stamp.empty() && stamp == backedUp && platform::TheFiles().Exists(BackupPath()))
      return true;
    const auto content = ReadGameFile();
    if (content && !IsWorthABackup(*content)) return false;
    if (content) ReplaceFile(BackupPath(), *content);
    backedUp = stamp;
    return true;
  } catch (const std::exception&) {
    return false;
  }
}

void RestoreDatabase() {
  try {
    const DatabaseLock lock;
    if (platform::TheFiles().Exists(BackupPath()))
      RestoreGameFile(platform::TheFiles().Read(BackupPath()));
  } catch (const std::exception&) {
    // The game file stands as it was.
  }
}

}  // namespace store
