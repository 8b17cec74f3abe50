// SPDX-License-Identifier: GPL-3.0-or-later
// Turning a claim that came from outside into a game of the store: the same for a mail and for a
// move file. The store decides by the move numbers whether it brings something new. What doesn't
// fit is set aside, and a person decides.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "mail/claim.h"
#include "mail/games_locked.h"
#include "mail/held_mails.h"

namespace mail {

/// What became of one move mail or move file, for who wants to tell it.
struct MoveArrival {
  std::string from;                    ///< the sender's address, or the path of the file
  std::optional<std::int32_t> gameID;  ///< none where nothing was saved
  bool ok = false;                     ///< passed the form check and was saved
  bool changed = false;                ///< brought a new game or a new move
  int stage = 0;                       ///< of the form check that failed; 0 where it passed
  Objection why = Objection::None;     ///< why it was set aside instead
  std::string held;                    ///< identifier of a mail that waits for the user's answer
  bool isDropped = false;              ///< too many wait: it was left in the Inbox and nowhere else
};

/// What is to be written down behind saved games, once they surely are on the disk.
struct Books {
  std::optional<std::vector<std::int64_t>> foundings;  ///< by strangers, with those before
  std::vector<std::string> arrived;                    ///< threads of mails that brought news
  std::vector<std::string> answered;                   ///< threads in which a mail came
  std::vector<std::string> taken;                      ///< identifiers of mails that may be held
};

/// Finds the game of a claim, or founds it, saves it, and puts it on PendingGames where it brought
/// something new, as NewMoveArrived then says; or sets the mail aside. Raises StoreFailure.
void TakeClaim(const Claim& claim, const ReceivedMail& mail, MoveArrival& arrival, Books& books);

/// Raises nothing: where it fails the user is asked, or told, once too often.
void Keep(const Books& books);

/// What a person has said of a claim.
enum class Consent {
  None,     ///< nobody was asked
  Sender,   ///< its sender is the opponent, also where it brings no move
  History,  ///< its moves take the place of the stored ones
};

/// Saves what a claim brings, with no more questions. Raises StoreFailure.
void SaveClaim(const Claim& claim, const ReceivedMail& mail, Consent consent, MoveArrival& arrival);

}  // namespace mail
