// SPDX-License-Identifier: GPL-3.0-or-later
// What becomes of a mail that was set aside once the user has said what he thinks of it. Failures
// raise StoreFailure.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "mail/held_mails.h"
#include "mail/judgement.h"
#include "mail/received_game.h"

namespace mail {

/// What a held mail says, beside what is stored.
struct HeldClaim {
  Claim claim;
  std::optional<StoredGame> game;  ///< none for a game that isn't there
};

/// Raises StoreFailure also where the mail's file is damaged.
HeldClaim ClaimOf(const HeldMail& held);

/// Takes the mail: from then on its address counts as the opponent's for that game, or its moves
/// take the place of the stored ones, or a game begins. Where there is something else against it,
/// it stays set aside for that reason, and the arrival says so. Other mails of that sender that
/// waited for the same answer are taken along. A refused one is taken, too.
MoveArrival AcceptHeldMail(const HeldMail& asked);

/// Leaves the game as it is. Of an address that isn't the opponent's nothing more is asked.
void RefuseHeldMail(const HeldMail& asked);

/// It waits on, and isn't asked about again by itself.
void PutOffHeldMail(const HeldMail& asked);

}  // namespace mail
