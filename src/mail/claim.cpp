// SPDX-License-Identifier: GPL-3.0-or-later
#include "mail/claim.h"

#include <algorithm>

#include "mail/character_count.h"
#include "mail/move_mail.h"
#include "platform/conversions.h"
#include "platform/text_fields.h"

namespace mail {
namespace {

constexpr int fieldsBeforeMoves = 9;
constexpr int fieldsOfMove = 4;

/// Raises std::exception where the number doesn't fit.
std::int32_t Number(std::string_view field) { return platform::ToInteger32(field).value(); }

std::string WithoutBlanks(std::string text) {
  std::erase(text, ' ');
  return text;
}

store::MoveRecords RemainingMoves(platform::FieldWalk& fields, int count) {
  store::MoveRecords moves(static_cast<std::size_t>(count));
  for (store::MoveRecord& move : moves) {
    move.MoveNumber = Number(fields.Next());
    move.MoveCoordinates = fields.Next();
    move.MoveText = fields.Next();
    move.MoveComment = FirstCharacters(fields.Next(), longestComment);
  }
  return moves;
}

}  // namespace

Claim ReadClaim(std::string_view text) {
  platform::FieldWalk fields(text, '|');
  Claim claim;
  const std::string_view receiversID = fields.Next();
  if (!receiversID.empty()) claim.receiversID = Number(receiversID);
  claim.sendersID = Number(fields.Next());
  claim.dateStamp = fields.Next();
  claim.name = fields.Next();
  claim.date = fields.Next();
  claim.whiteName = fields.Next();
  claim.blackName = fields.Next();
  claim.receiverIsHost = fields.Next() == "True";
  claim.startBoard = fields.Next();
  const int moveFields = platform::CountFields(text, '|') - fieldsBeforeMoves;
  claim.moves = RemainingMoves(fields, moveFields / fieldsOfMove);
  return claim;
}

bool HasOrderlyNumbers(const store::MoveRecords& moves) {
  std::int32_t number = 0;
  return std::all_of(moves.begin(), moves.end(), [&number](const store::MoveRecord& move) {
    return move.MoveNumber == ++number;
  });
}

bool IsSameMove(const store::MoveRecord& a, const store::MoveRecord& b) {
  return a.MoveCoordinates == b.MoveCoordinates &&
         WithoutBlanks(a.MoveText) == WithoutBlanks(b.MoveText);
}

std::size_t FirstDifference(const store::MoveRecords& a, const store::MoveRecords& b) {
  const auto shorter = static_cast<std::ptrdiff_t>(std::min(a.size(), b.size()));
  const auto [end, other] = std::mismatch(a.begin(), a.begin() + shorter, b.begin(), IsSameMove);
  return static_cast<std::size_t>(end - a.begin());
}

}  // namespace mail
