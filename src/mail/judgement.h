// SPDX-License-Identifier: GPL-3.0-or-later
// Whether a claim may become part of the games. A mail for a game that exists is taken only from
// the game's opponent; moves that are stored never change by mail; a game that has ended stays so;
// and strangers begin no more than a handful of games at a time.
#pragma once

#include <optional>
#include <string_view>

#include "mail/claim.h"
#include "mail/held_mails.h"
#include "mail/mail_memory.h"
#include "store/game_record.h"

namespace mail {

/// New games in an hour from people whom the user doesn't know.
inline constexpr int mostNewGames = 20;

/// The address of games whose opponent has none, because they came as files. It reaches nobody.
inline constexpr const char* unknownAddress = "unknown@tarvolenix.invalid";

struct StoredGame {
  store::GameRecord record;
  store::MoveRecords moves;  ///< but a last one that is cut off, which a mail may bring again
};

/// The game that a claim is about: by our own number of it, which the sender knows since our first
/// mail, else by his. Raises StoreFailure where the games can't be read.
std::optional<StoredGame> FindGame(const Claim& claim, const ReceivedMail& mail);

/// Whether the claim is our own mail, quoted in an opponent's answer: its numbers of the game stand
/// the wrong way round. Raises StoreFailure.
bool IsOwnClaim(const Claim& claim, const ReceivedMail& mail);

/// Whether the game's moves go to this address, or the user has accepted it for the game.
bool IsOpponent(std::string_view address, const store::GameRecord& game, const MailMemory& memory);

/// A file has no sender: its history counts, whoever brought it.
Objection ObjectionTo(const Claim& claim, const ReceivedMail& mail, const StoredGame& game,
                      const MailMemory& memory);

/// To a history from the opponent himself.
Objection ObjectionToHistory(const Claim& claim, const StoredGame& game);

/// To a game that isn't there yet. Notes in `memory` that a stranger begins it. Raises
/// StoreFailure.
Objection ObjectionToNewGame(const Claim& claim, const ReceivedMail& mail, MailMemory& memory);

}  // namespace mail
