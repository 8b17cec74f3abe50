// SPDX-License-Identifier: GPL-3.0-or-later
#include "mail/judgement.h"

#include <algorithm>
#include <string>

#include "mail/games_locked.h"
#include "platform/mail_address.h"
#include "platform/seams.h"
#include "store/queries.h"

namespace mail {
namespace {

constexpr std::int64_t hour = 3600;

store::GameRecords Select(std::string_view key, std::int32_t id, std::string_view dateStamp) {
  std::string selection(key);
  selection.append(";").append(std::to_string(id));
  selection.append(";Game_DateStamp;").append(dateStamp);
  store::GameRecords games;
  if (!store::SelectGames(games, selection)) throw StoreFailure("the games can't be read");
  // No mail belongs to a game against the computer, whatever its number is.
  std::erase_if(games, [](const store::GameRecord& game) { return game.GAME_VS_COMPUTER; });
  return games;
}

constexpr std::string_view endings[] = {"1-0", "0-1", "1/2-1/2", "Surrender", "++"};

/// Until the user opens a game that his opponent has ended, only its last entry tells.
bool HasEnded(const StoredGame& game) {
  const std::int16_t status = game.record.GAME_STATUS;
  if (status == store::GameWon || status == store::GameLost || status == store::GameDrawn) {
    return true;
  }
  return !game.moves.empty() &&
         std::any_of(std::begin(endings), std::end(endings), [&game](std::string_view ending) {
           return game.moves.back().MoveText.ends_with(ending);
         });
}

/// Two people may number their games alike in the same minute. Who doesn't know our number, writes
/// from elsewhere and calls the game otherwise means another one.
void DropChanceMatches(const Claim& claim, const ReceivedMail& mail, store::GameRecords& games) {
  if (claim.receiversID != 0 || mail.isFile) return;
  std::erase_if(games, [&](const store::GameRecord& game) {
    return game.GAME_NAME != claim.name &&
           !platform::SameAddress(mail.address, game.GAME_OPPONENTS_EMAIL);
  });
}

/// Somebody in the address book, or whom the user has answered. That he is the host is only what
/// the mail says that founded the game.
bool IsKnownPerson(std::string_view address) {
  const auto isHis = [address](const std::string& other) {
    return platform::SameAddress(address, other);
  };
  if (platform::AddressBook* book = platform::TheSeams().addressBook) {
    for (const auto& [person, isWritten] : book->People()) {
      if (isWritten && std::any_of(person.addresses.begin(), person.addresses.end(), isHis)) {
        return true;
      }
    }
  }
  store::GameRecords games;
  if (!store::SelectGames(games, "")) throw StoreFailure("the games can't be read");
  return std::any_of(games.begin(), games.end(), [&isHis](const store::GameRecord& game) {
    return isHis(game.GAME_OPPONENTS_EMAIL) && game.GAME_STATUS != store::MoveWaiting;
  });
}

/// Drops what is older than an hour, or lies in a future that a wrong clock once saw.
void KeepLastHour(std::vector<std::int64_t>& foundings, std::int64_t now) {
  std::erase_if(foundings, [now](std::int64_t then) { return then > now || then <= now - hour; });
}

}  // namespace

std::optional<StoredGame> FindGame(const Claim& claim, const ReceivedMail& mail) {
  store::GameRecords games = Select("GAME_ID", claim.receiversID, claim.dateStamp);
  if (games.empty()) games = Select("GAME_OPPONENTS_ID", claim.sendersID, claim.dateStamp);
  DropChanceMatches(claim, mail, games);
  if (games.empty()) return std::nullopt;
  const auto his = std::find_if(games.begin(), games.end(), [&mail](const auto& game) {
    return platform::SameAddress(mail.address, game.GAME_OPPONENTS_EMAIL);
  });
  StoredGame found{his == games.end() ? games.front() : *his, {}};
  if (!store::SelectWholeMoves(found.moves, found.record.GAME_ID)) {
    throw StoreFailure("the moves can't be read");
  }
  return found;
}

bool IsOwnClaim(const Claim& claim, const ReceivedMail& mail) {
  const auto games = Select("GAME_ID", claim.sendersID, claim.dateStamp);
  return std::any_of(games.begin(), games.end(), [&](const store::GameRecord& game) {
    return game.GAME_HOST != claim.receiverIsHost &&
           platform::SameAddress(mail.address, game.GAME_OPPONENTS_EMAIL);
  });
}

bool IsOpponent(std::string_view address, const store::GameRecord& game, const MailMemory& memory) {
  if (platform::SameAddress(address, unknownAddress)) return false;  // it is nobody's
  return platform::SameAddress(address, game.GAME_OPPONENTS_EMAIL) ||
         memory.StandingOf(address, game) == AddressStanding::Accepted;
}

Objection ObjectionToHistory(const Claim& claim, const StoredGame& game) {
  const std::size_t shorter = std::min(claim.moves.size(), game.moves.size());
  if (!HasOrderlyNumbers(claim.moves) || FirstDifference(claim.moves, game.moves) < shorter) {
    return Objection::History;
  }
  const bool goesOn = claim.moves.size() > game.moves.size();
  return goesOn && HasEnded(game) ? Objection::Ended : Objection::None;
}

Objection ObjectionTo(const Claim& claim, const ReceivedMail& mail, const StoredGame& game,
                      const MailMemory& memory) {
  if (!mail.isFile && !IsOpponent(mail.address, game.record, memory)) return Objection::Address;
  return ObjectionToHistory(claim, game);
}

Objection ObjectionToNewGame(const Claim& claim, const ReceivedMail& mail, MailMemory& memory) {
  if (!HasOrderlyNumbers(claim.moves)) return Objection::Form;
  if (mail.isFile || IsKnownPerson(mail.address)) return Objection::None;
  const std::int64_t now = platform::TheSeams().clock->Seconds();
  KeepLastHour(memory.foundings, now);
  if (memory.foundings.size() >= mostNewGames) return Objection::Flood;
  memory.foundings.push_back(now);
  return Objection::None;
}

}  // namespace mail
