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

/// The answers go to his new address also while his moves wait for another question.
void SendAnswersTo(const std::string& address, store::GameRecord game) {
  game.GAME_OPPONENTS_EMAIL = address;
  if (!store::SaveGame(game, {})) throw StoreFailure("the game can't be saved");
}

void Take(HeldMail& held, const Claim& claim, Consent consent, MoveArrival& arrival) {
  SaveClaim(claim, held.mail, consent, arrival);
  SetState(held, HeldState::Taken);
}

/// Takes the mail where nothing else speaks against it; else it waits for that reason.
void TakeUnless(Objection objection, HeldMail& held, const HeldClaim& what, Consent consent,
                MoveArrival& arrival) {
  if (objection == Objection::None) return Take(held, what.claim, consent, arrival);
  if (consent == Consent::Sender) SendAnswersTo(held.mail.address, what.game->record);
  HoldFor(held, objection);
  arrival.why = objection;
  arrival.held = held.id;
}

/// With its sender settled.
void TakeByHistory(HeldMail& held, MoveArrival& arrival) {
  const HeldClaim what = ClaimOf(held);
  TakeUnless(what.game ? ObjectionToHistory(what.claim, *what.game) : Objection::None, held, what,
             Consent::Sender, arrival);
}

/// An invitation may have become a game meanwhile, with moves of its own and another opponent.
void TakeInvitation(HeldMail& held, MoveArrival& arrival) {
  const HeldClaim what = ClaimOf(held);
  const auto objection = [&] {
    return ObjectionTo(what.claim, held.mail, *what.game, LoadMailMemory());
  };
  TakeUnless(what.game ? objection() : Objection::None, held, what, Consent::None, arrival);
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
      MoveArrival ignored;
      TakeByHistory(other, ignored);
    }
  } catch (const std::exception&) {
  }
}

/// As it is now: another window or program may have answered it meanwhile.
HeldMail AsItStands(const HeldMail& asked) {
  auto held = FindHeldMail(asked.id);
  if (!held || held->state == HeldState::Taken || held->why != asked.why) {
    throw StoreFailure("this mail was answered meanwhile");
  }
  return *std::move(held);
}

void RefuseAddress(const HeldMail& held) {
  const auto game = ClaimOf(held).game;
  if (!game) return;
  MailMemory memory = LoadMailMemory();
  memory.Remember(held.mail.address, game->record, false);
  SaveMailMemory(memory);
  for (HeldMail& other : OthersOf(held)) SetState(other, HeldState::Refused);
}

}  // namespace

HeldClaim ClaimOf(const HeldMail& held) {
  HeldClaim what;
  try {
    what.claim = ReadClaim(ExtractMoveText(held.mail.text));
  } catch (const std::exception&) {
    throw StoreFailure("the mail that was set aside is damaged");
  }
  what.game = FindGame(what.claim, held.mail);
  return what;
}

MoveArrival AcceptHeldMail(const HeldMail& asked) {
  MoveArrival arrival;
  arrival.from = asked.mail.address;
  arrival.gameID = asked.gameID;
  WithGamesLocked([&] {
    HeldMail held = AsItStands(asked);
    const HeldClaim what = ClaimOf(held);
    if (held.why == Objection::History || held.why == Objection::Ended) {
      return Take(held, what.claim, Consent::History, arrival);
    }
    if (held.why != Objection::Address || !what.game) return TakeInvitation(held, arrival);
    AcceptAddress(held, what.game->record);
    TakeByHistory(held, arrival);
    TakeOthersAlong(held);
  });
  return arrival;
}

void RefuseHeldMail(const HeldMail& asked) {
  WithGamesLocked([&] {
    HeldMail held = AsItStands(asked);
    if (held.why == Objection::Address) RefuseAddress(held);
    SetState(held, HeldState::Refused);
  });
}

void PutOffHeldMail(const HeldMail& asked) {
  WithGamesLocked([&] {
    HeldMail held = AsItStands(asked);
    if (held.state == HeldState::New) SetState(held, HeldState::Asked);
  });
}

}  // namespace mail
