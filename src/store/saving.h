// SPDX-License-Identifier: GPL-3.0-or-later
// The only ways to change the game file. Each writes the whole new content to "tvgdb.new" and puts
// it in the file's place in one step, so that a crash at any moment leaves the old file or the new
// one. "tvgdb.bak" holds the state before the latest change of an undamaged file. A failure leaves
// the game file as it stood. "tvgdb.lock" keeps a second process out meanwhile.
#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "store/game_record.h"

namespace store {

/// Stores a game as the file's last line. `moves` is empty where only the record changes, holds the
/// one new move of the board, or the entire game as it was received. Moves already stored are never
/// changed; a longer received game replaces them.
/// `changed`, where given, tells whether the call brought a new game or a new move, and then sets
/// GAME_STATUS of `record` to 1. False on failure, without a message.
bool SaveGame(GameRecord& record, const MoveRecords& moves, bool* changed = nullptr);

/// Stores a game with these moves in place of those that are stored, whatever they are. For what a
/// person has decided only.
bool ReplaceGame(const GameRecord& record, const MoveRecords& moves);

/// Puts the lines of all games in the place of those that are stored.
bool ReplaceGames(std::string content);

/// Games that are to be stored together. They are kept as the lines that they will be, so that
/// there may be very many.
class NewGames {
 public:
  /// The number of the game is still to come; that of the record isn't read.
  void Add(const GameRecord& record, const MoveRecords& moves);

  /// Takes those of another list behind its own.
  void Append(const NewGames& more);

  std::size_t Count() const { return ends_.size(); }

  /// A line but for its number.
  std::string_view Line(std::size_t index) const;

 private:
  std::string lines_;
  std::vector<std::size_t> ends_;
};

/// Stores new games in one change, under numbers in a row behind the greatest one, or in a gap
/// where there are too few. The first of these; nothing where none is stored: `why`, where given,
/// is then the reason, as the end of a sentence. So it is also where `isCancelled`, where given,
/// says so; it is asked until the game file is written.
std::optional<std::int32_t> AddGames(const NewGames& games, std::string* why = nullptr,
                                     const std::function<bool()>& isCancelled = {});

/// True also where the game wasn't there. `removed`, where given, gets what PutBackGame takes;
/// nothing for a game that wasn't there.
bool RemoveGame(std::int32_t gameID, std::string* removed = nullptr);

/// Stores a removed game as it was, and tells its number. Where it has come anew since, that one's
/// number, and nothing is stored. Nothing where its number is another game's by now.
std::optional<std::int32_t> PutBackGame(const std::string& removed);

/// Copies the game file to "tvgdb.bak". True also without a game file. False, with the earlier
/// backup left as it is, where the game file is damaged.
bool BackupDatabase();

/// Rolls the game file back to "tvgdb.bak" where there is one. Silent.
void RestoreDatabase();

}  // namespace store
