// SPDX-License-Identifier: GPL-3.0-or-later
#include "mail/received_game.h"

#include <utility>

#include "mail/judgement.h"
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

/// `known` is the stored game, where there is one.
void Save(const Claim& claim, const ReceivedMail& mail, const std::optional<StoredGame>& known,
          bool replaces, MoveArrival& arrival) {
  store::GameRecord game = known ? known->record : FoundedGame(claim, mail);
  if (game.GAME_WHITE_NAME.empty()) game.GAME_WHITE_NAME = claim.whiteName;
  game.GAME_OPPONENTS_NAME = mail.name;
  game.GAME_OPPONENTS_EMAIL = mail.address;
  game.GAME_OPPONENTS_ID = claim.sendersID;
  const store::MoveRecords moves = Merged(claim, known ? known->moves : store::MoveRecords{});
  bool changed = true;
  bool saved = false;
  if (known && replaces) {
    SetStatusByTurn(game, moves);
    saved = store::ReplaceGame(game, moves);
  } else {
    saved = store::SaveGame(game, moves, &changed);
  }
  if (!saved) throw StoreFailure("the game can't be saved");
  platform::ProcessState& process = platform::Process();
  process.NewMoveArrived = changed;
  if (changed) process.PendingGames += std::to_string(game.GAME_ID) + ";";
  arrival.gameID = game.GAME_ID;
  arrival.changed = changed;
  arrival.ok = true;
  arrival.why = Objection::None;
  arrival.held.clear();
}

void SetAside(const ReceivedMail& mail, Objection why, std::optional<std::int32_t> gameID,
              bool refused, MoveArrival& arrival) {
  arrival.why = why;
  arrival.gameID = gameID;
  HeldMail held;
  held.state = refused ? HeldState::Refused : HeldState::New;
  held.why = why;
  held.gameID = gameID;
  held.mail = mail;
  const auto kept = Hold(std::move(held));
  if (!kept || kept->state == HeldState::Refused) return;
  arrival.held = kept->id;
  if (kept->state == HeldState::New) platform::Process().HeldMailArrived = true;
}

void TakeForGame(const Claim& claim, const ReceivedMail& mail, const StoredGame& game,
                 MoveArrival& arrival) {
  const MailMemory memory = LoadMailMemory();
  const Objection objection = ObjectionTo(claim, mail, game, memory);
  if (objection == Objection::None) return Save(claim, mail, game, false, arrival);
  const bool refused = objection == Objection::Address &&
                       memory.StandingOf(mail.address, game.record) == AddressStanding::Refused;
  SetAside(mail, objection, game.record.GAME_ID, refused, arrival);
}

void TakeNewGame(const Claim& claim, const ReceivedMail& mail, MoveArrival& arrival) {
  MailMemory memory = LoadMailMemory();
  const auto foundings = memory.foundings;
  const Objection objection = ObjectionToNewGame(claim, mail, memory);
  if (objection != Objection::None) return SetAside(mail, objection, {}, false, arrival);
  if (memory.foundings != foundings) SaveMailMemory(memory);
  Save(claim, mail, {}, false, arrival);
}

}  // namespace

void TakeClaim(const Claim& claim, const ReceivedMail& mail, MoveArrival& arrival) {
  WithGamesLocked([&] {
    if (const auto game = FindGame(claim, mail)) {
      TakeForGame(claim, mail, *game, arrival);
    } else {
      TakeNewGame(claim, mail, arrival);
    }
  });
}

void SaveClaim(const Claim& claim, const ReceivedMail& mail, bool replaces, MoveArrival& arrival) {
  WithGamesLocked([&] { Save(claim, mail, FindGame(claim, mail), replaces, arrival); });
}

}  // namespace mail
