// SPDX-License-Identifier: GPL-3.0-or-later
#include "mail/held_answers.h"

#include <exception>
#include <utility>

#include "mail/move_text_check.h"
#include "platform/mail_address.h"
#include "platform/process_state.h"
#include "store/saving.h"

namespace mail {
namespace {

/// Both addresses are the opponent's from now on: he may still write from the old one.
void AcceptAddress(const HeldMail& held, const store::GameRecord& game) {
  MailMemory memory = LoadMailMemory();
  memory.Remember(held.mail.address, game, true);
  if (game.GAME_OPPONENTS_EMAIL != unknownAddress) {
    memory.Remember(game.GAME_OPPONENTS_EMAIL, game, true);
  }
  SaveMailMemory(memory);
}

void Take(HeldMail& held, const HeldClaim& what, MoveArrival& arrival) {
  SaveClaim(what.claim, held.mail, held.why != Objection::Address, arrival);
  Release(held);
}

/// The address is settled; the history may still speak against it.
void TakeFromNewAddress(HeldMail& held, const HeldClaim& what, MoveArrival& arrival) {
  const Objection objection = ObjectionToHistory(what.claim, *what.game);
  if (objection == Objection::None) return Take(held, what, arrival);
  store::GameRecord game = what.game->record;
  game.GAME_OPPONENTS_EMAIL = held.mail.address;
  if (!store::SaveGame(game, {})) throw StoreFailure("the game can't be saved");
  HoldFor(held, objection);
  arrival.why = objection;
  arrival.held = held.id;
}

/// What else waits for the user to know this address.
std::vector<HeldMail> OthersOf(const HeldMail& answered) {
  std::vector<HeldMail> others = WaitingMails();
  std::erase_if(others, [&answered](const HeldMail& other) {
    return other.why != Objection::Address || other.gameID != answered.gameID ||
           other.id == answered.id ||
           !platform::SameAddress(other.mail.address, answered.mail.address);
  });
  return others;
}

/// What can't be taken along now waits for an answer of its own: the one that was asked about is
/// safe.
void TakeOthersAlong(const HeldMail& accepted) {
  try {
    for (HeldMail& other : OthersOf(accepted)) {
      const HeldClaim what = ClaimOf(other);
      MoveArrival ignored;
      if (what.game) TakeFromNewAddress(other, what, ignored);
    }
  } catch (const std::exception&) {
  }
}

}  // namespace

HeldClaim ClaimOf(const HeldMail& held) {
  HeldClaim what{ReadClaim(ExtractMoveText(held.mail.text)), {}};
  what.game = FindGame(what.claim, held.mail);
  return what;
}

MoveArrival AcceptHeldMail(HeldMail held) {
  MoveArrival arrival;
  arrival.from = held.mail.address;
  arrival.gameID = held.gameID;
  WithGamesLocked([&] {
    const HeldClaim what = ClaimOf(held);
    if (held.why != Objection::Address || !what.game) return Take(held, what, arrival);
    AcceptAddress(held, what.game->record);
    TakeFromNewAddress(held, what, arrival);
    TakeOthersAlong(held);
  });
  return arrival;
}

void RefuseHeldMail(HeldMail held) {
  WithGamesLocked([&] {
    const auto game = ClaimOf(held).game;
    if (held.why == Objection::Address && game) {
      MailMemory memory = LoadMailMemory();
      memory.Remember(held.mail.address, game->record, false);
      SaveMailMemory(memory);
      for (HeldMail& other : OthersOf(held)) SetState(other, HeldState::Refused);
    }
    SetState(held, HeldState::Refused);
  });
}

void PutOffHeldMail(HeldMail held) {
  WithGamesLocked([&] { SetState(held, HeldState::Asked); });
}

}  // namespace mail
