// SPDX-License-Identifier: GPL-3.0-or-later
#include "mail/received_game.h"

#include <exception>
#include <utility>

#include "mail/arrivals.h"
#include "mail/judgement.h"
#include "mail/sending.h"
#include "mail/undelivered.h"
#include "platform/mail_address.h"
#include "platform/process_state.h"
#include "store/queries.h"
#include "store/saving.h"

namespace mail {
namespace {

/// White's name in a game that this mail founds.
std::string WhiteName(const Claim& claim, const ReceivedMail& mail) {
  if (!mail.isFile) return mail.name;
  return claim.whiteName.empty() ? mail.name : claim.whiteName;
}

store::GameRecord FoundedGame(const Claim& claim, const ReceivedMail& mail) {
  const auto number = store::NextGameID();
  if (!number) throw StoreFailure("the games can't be read");
  store::GameRecord game;
  game.GAME_ID = *number;
  game.GAME_DATESTAMP = claim.dateStamp;
  game.GAME_NAME = claim.name;
  game.GAME_DATE = claim.date;
  game.GAME_WHITE_NAME = WhiteName(claim, mail);
  game.GAME_BLACK_NAME = claim.blackName;
  game.GAME_HOST = claim.receiverIsHost;
  game.GAME_START_BOARD = claim.startBoard;
  return game;
}

/// The moves of a claim, but each that is stored already as it is stored, with what was said then.
store::MoveRecords Merged(const Claim& claim, const store::MoveRecords& stored) {
  store::MoveRecords moves = claim.moves;
  const std::size_t same = FirstDifference(moves, stored);
  for (std::size_t i = 0; i < same; ++i) moves[i] = stored[i];
  std::int32_t number = 0;
  for (store::MoveRecord& move : moves) move.MoveNumber = ++number;
  return moves;
}

/// Where the moves go on from a history that isn't the stored one, whose turn it is follows from
/// their number.
void SetStatusByTurn(store::GameRecord& game, const store::MoveRecords& moves) {
  const bool whiteToMove = moves.size() % 2 == 0;
  game.GAME_STATUS = whiteToMove == game.GAME_HOST ? store::MoveWaiting : store::WaitingForOpponent;
}

/// Whether the opponent's name and address are as this mail has them. A file has no sender, and an
/// old mail from an address that he once had is no news of him.
bool TellsOfSender(const ReceivedMail& mail, const store::GameRecord& game, bool bringsMoves) {
  const std::string& address = game.GAME_OPPONENTS_EMAIL;
  if (mail.isFile) return address.empty() || address == unknownAddress;
  return bringsMoves || platform::SameAddress(mail.address, address);
}

void TakeSender(const Claim& claim, const ReceivedMail& mail, bool bringsMoves,
                store::GameRecord& game) {
  const bool tells = TellsOfSender(mail, game, bringsMoves);
  if (tells || bringsMoves || game.GAME_OPPONENTS_ID == 0) {
    game.GAME_OPPONENTS_ID = claim.sendersID;
  }
  if (!tells) return;
  game.GAME_OPPONENTS_NAME = mail.name;
  game.GAME_OPPONENTS_EMAIL = mail.address;
}

/// `known` is the stored game, where there is one.
void Save(const Claim& claim, const ReceivedMail& mail, const std::optional<StoredGame>& known,
          Consent consent, MoveArrival& arrival, Books& books) {
  store::GameRecord game = known ? known->record : FoundedGame(claim, mail);
  if (game.GAME_WHITE_NAME.empty()) game.GAME_WHITE_NAME = claim.whiteName;
  const store::MoveRecords moves = Merged(claim, known ? known->moves : store::MoveRecords{});
  const bool bringsMoves = !known || moves.size() > known->moves.size();
  TakeSender(claim, mail, bringsMoves || consent == Consent::Sender, game);
  bool changed = true;
  bool saved = false;
  if (known && consent == Consent::History) {
    SetStatusByTurn(game, moves);
    saved = store::ReplaceGame(game, moves);
  } else {
    saved = store::SaveGame(game, moves, &changed);
  }
  if (!saved) throw StoreFailure("the game can't be saved");
  if (!mail.isFile) books.answered.push_back(ThreadOf(game));
  platform::ProcessState& process = platform::Process();
  process.NewMoveArrived = changed;
  if (changed) process.PendingGames.push_back(game.GAME_ID);
  if (changed && !mail.isFile) books.arrived.push_back(ThreadOf(game));
  arrival.gameID = game.GAME_ID;
  arrival.changed = changed;
  arrival.ok = true;
  arrival.why = Objection::None;
  arrival.held.clear();
}

/// A mail that the user has taken before, for whatever spoke against it, is done with.
void SetAside(const ReceivedMail& mail, Objection why, std::optional<std::int32_t> gameID,
              MoveArrival& arrival) {
  arrival.gameID = gameID;
  HeldMail held;
  held.why = why;
  held.gameID = gameID;
  held.mail = mail;
  const auto kept = Hold(std::move(held));
  arrival.ok = kept && kept->state == HeldState::Taken;
  arrival.why = arrival.ok ? Objection::None : why;
  if (arrival.ok) return;
  arrival.isDropped = !kept;
  if (!kept || kept->state == HeldState::Refused) return;
  arrival.held = kept->id;
  if (kept->state == HeldState::New) platform::Process().HeldMailArrived = true;
}

template <typename Work>
void Quietly(const Work& work) {
  try {
    WithGamesLocked(work);
  } catch (const std::exception&) {
    // a note, and no reason to refuse a game that is saved
  }
}

/// What waited for an answer and needs none any more.
void ReleaseHeld(const std::string& id) {
  auto held = FindHeldMail(id);
  if (held && held->state != HeldState::Taken) SetState(*held, HeldState::Taken);
}

void KeepMemory(const Books& books) {
  if (!books.foundings && books.arrived.empty() && books.answered.empty()) return;
  MailMemory memory = LoadMailMemory();
  bool changes = !books.arrived.empty() || books.foundings;
  if (books.foundings) memory.foundings = *books.foundings;
  for (const std::string& thread : books.answered) changes |= memory.undelivered.erase(thread) > 0;
  for (const std::string& thread : books.arrived) NoteMoment(thread, memory.arrivals);
  if (changes) SaveMailMemory(memory);
}

void TakeForGame(const Claim& claim, const ReceivedMail& mail, const StoredGame& game,
                 MoveArrival& arrival, Books& books) {
  const MailMemory memory = LoadMailMemory();
  const Objection objection = ObjectionTo(claim, mail, game, memory);
  if (objection == Objection::None) {
    Save(claim, mail, game, Consent::None, arrival, books);
    books.taken.push_back(IdentifierOf(mail));
    return;
  }
  // Whom the user has refused for this game isn't heard of again.
  arrival.why = objection;
  if (objection == Objection::Address &&
      memory.StandingOf(mail.address, game.record) == AddressStanding::Refused) {
    return;
  }
  SetAside(mail, objection, game.record.GAME_ID, arrival);
}

void TakeNewGame(const Claim& claim, const ReceivedMail& mail, MoveArrival& arrival, Books& books) {
  MailMemory memory = LoadMailMemory();
  if (books.foundings) memory.foundings = *books.foundings;
  const auto foundings = memory.foundings;
  const Objection objection = ObjectionToNewGame(claim, mail, memory);
  if (objection != Objection::None) return SetAside(mail, objection, {}, arrival);
  Save(claim, mail, {}, Consent::None, arrival, books);
  if (memory.foundings != foundings) books.foundings = std::move(memory.foundings);
  books.taken.push_back(IdentifierOf(mail));
}

}  // namespace

void TakeClaim(const Claim& claim, const ReceivedMail& mail, MoveArrival& arrival, Books& books) {
  WithGamesLocked([&] {
    if (const auto game = FindGame(claim, mail)) {
      TakeForGame(claim, mail, *game, arrival, books);
    } else {
      TakeNewGame(claim, mail, arrival, books);
    }
  });
}

void SaveClaim(const Claim& claim, const ReceivedMail& mail, Consent consent,
               MoveArrival& arrival) {
  Books books;
  WithGamesLocked([&] { Save(claim, mail, FindGame(claim, mail), consent, arrival, books); });
  Keep(books);
}

void Keep(const Books& books) {
  Quietly([&books] { KeepMemory(books); });
  for (const std::string& id : books.taken) Quietly([&id] { ReleaseHeld(id); });
}

}  // namespace mail
