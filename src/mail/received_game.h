// SPDX-License-Identifier: GPL-3.0-or-later
// Turning a move text that came from outside into a game of the store: the same for a mail and for
// a move file. The store decides by the move numbers whether it brings something new.
#pragma once

#include <cstdint>
#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>

namespace mail {

/// What became of one move mail or move file, for who wants to tell it.
struct MoveArrival {
  std::string from;                    ///< the sender's address, or the path of the file
  std::optional<std::int32_t> gameID;  ///< none where nothing was saved
  bool ok = false;                     ///< passed the form check and was saved
  bool changed = false;                ///< brought a new game or a new move
  int stage = 0;                       ///< of the form check that failed; 0 where it passed
};

/// Whom replies go to. A mail has a sender; a file has none.
struct Sender {
  std::string name;
  std::string address;
  std::string whiteName;  ///< White's name in a game that this text founds
};

/// The store can't be read or written.
struct StoreFailure : std::runtime_error {
  using std::runtime_error::runtime_error;
};

/// Whether the move text has good form; reports where it hasn't, and notes the stage.
bool PassesFormCheck(std::string_view text, bool fromFile, MoveArrival& arrival);

/// Finds the game of a text of good form, or founds it, saves it, and puts it on PendingGames where
/// it brought something new, as NewMoveArrived then says. Raises StoreFailure, or std::exception
/// where a number of the text is out of range.
void SaveReceivedGame(std::string_view text, const Sender& sender, MoveArrival& arrival);

}  // namespace mail
