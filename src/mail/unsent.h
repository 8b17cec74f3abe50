// SPDX-License-Identifier: GPL-3.0-or-later
// A move is saved first and given to the mail service then. A program that dies in between would
// leave a move that waits for an answer and was never sent: so the game is noted ahead of it, and
// the next logon sends what a note has been left of.
#pragma once

#include <cstdint>
#include <string>

namespace mail {

/// Stands in "Outbox/sending-N" beside the games for its lifetime. A note that can't be written is
/// none, and keeps nobody from sending.
class SendingNote {
 public:
  /// The game is about to get one more move. Below 1 it is a new game.
  explicit SendingNote(std::int32_t gameID);
  ~SendingNote();
  SendingNote(const SendingNote&) = delete;
  SendingNote& operator=(const SendingNote&) = delete;

  /// It stays behind for the next logon.
  void Keep() { path_.clear(); }

 private:
  std::string path_;
};

/// Has the next logon send this game, whatever was sent of it.
void SendWithNextLogon(std::int32_t gameID);

/// Sends the games that earlier runs have saved and not sent. To send one twice does no harm.
void SendWhatWasNoted();

}  // namespace mail
