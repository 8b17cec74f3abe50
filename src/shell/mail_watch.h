// SPDX-License-Identifier: GPL-3.0-or-later
// What the user sees of mails that are on their way or didn't get there, and what he can do about
// it, without a widget.
#pragma once

#include <cstdint>
#include <map>
#include <string>

#include "store/game_record.h"

namespace shell {

/// How the last mail of a game fares, where there is something to tell.
struct GameMail {
  enum Kind { OnItsWay, Waiting, Failed } kind = OnItsWay;
  std::string text;  ///< a sentence
};

class GameMails {
 public:
  /// As things are now.
  GameMails();

  /// Null where the game has nothing to tell.
  const GameMail* Of(const store::GameRecord& game) const;

 private:
  std::map<std::string, GameMail> byThread_;
};

/// A line about the connection or what waits; blank where there is nothing to tell.
std::string MailLine();

/// Whether something waits that could be tried now.
bool MayDeliverNow();
void DeliverNow();

/// The mail service has told of a change.
void FollowMails();

/// Tells of mails that couldn't be sent, and of a mail service that refuses, each once; where
/// something else is up, the next call does.
void TellOfMailTrouble();

/// Whether the game's last mail waits or couldn't be sent.
bool MayTryAgain(const store::GameRecord& game);
void TryAgainToSend(std::int32_t gameID);

/// Asks for the opponent's address. What waits for the old one, or didn't get there, is sent to the
/// new one.
void ChangeAddress(std::int32_t gameID);

}  // namespace shell
