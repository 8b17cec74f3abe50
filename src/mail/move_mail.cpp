// SPDX-License-Identifier: GPL-3.0-or-later
#include "mail/move_mail.h"

#include <cassert>

#include "mail/character_count.h"
#include "platform/messages.h"
#include "platform/move_subject.h"
#include "platform/process_state.h"
#include "platform/registry.h"
#include "platform/text_fields.h"

namespace mail {
namespace {

constexpr int boardRows = 8;
constexpr const char* lineBreak = "\r\n";
constexpr const char* asterisks = "************************************************************";

/// A game that a mail founded has the sender's display name, of any length, for White. Sent back
/// uncut it would fail the opponent's check with every move.
std::string Name(std::string_view name) { return std::string(FirstCharacters(name, longestName)); }

}  // namespace

std::string BuildMailBanner() {
  const std::string lines[] = {
      asterisks,
      "T A R V O L E N I X   C H E S S   M O V E",
      asterisks,
      "This email is an Tarvolenix chess move.  It was created using",
      "Tarvolenix " + platform::GetVersionText() +
          " and will not be readable by previous versions.",
      "",
      "WHAT TO DO NOW...",
      "Run Tarvolenix and the move will be picked up automatically.",
      "If you are already running Tarvolenix wait a bit and Tarvolenix",
      "will pick up this mail for you, or you can right click the system",
      "tray icon and select Retrieve games... from the popup menu.",
      "",
      "These emails are only automatically recognised by Tarvolenix if",
      "they are left unread.  If you have opened this mail it may now",
      "be marked as read so you must mark this mail as unread or",
      "manually retrieve the move as described above.",
      "",
      "The following text is the Tarvolenix chess game.  Please do not",
      "tamper with it or Tarvolenix will not function properly.",
      asterisks,
      "",
      "",
      "",
      "",
  };
  std::string banner;
  for (const std::string& line : lines) banner += line + lineBreak;
  return banner;
}

std::string BuildMailSubject(const store::MoveRecords& moves) {
  assert(!moves.empty());
  const store::MoveRecord& last = moves.back();
  return std::string(platform::subjectPrefix) + " " + last.MoveText + ", " +
         platform::ReturnValue(last.MoveComment, "No comment.");
}

std::string BuildMoveText(const store::GameRecord& game, const store::MoveRecords& moves) {
  const std::string fields[] = {
      std::to_string(game.GAME_OPPONENTS_ID),
      std::to_string(game.GAME_ID),
      game.GAME_DATESTAMP,
      Name(game.GAME_NAME),
      game.GAME_DATE,
      Name(game.GAME_WHITE_NAME),
      Name(game.GAME_BLACK_NAME),
      platform::BooleanText(!game.GAME_HOST),
  };
  std::string text;
  for (const std::string& field : fields) text.append(field).append("|").append(lineBreak);
  platform::FieldWalk rows(game.GAME_START_BOARD, ';');
  for (int row = 1; row <= boardRows; ++row) {
    text.append(rows.Next()).append(row < boardRows ? ";" : "|").append(lineBreak);
  }
  for (const store::MoveRecord& move : moves) {
    if (&move != &moves.front()) text.append("|").append(lineBreak);
    text += std::to_string(move.MoveNumber) + "|" + move.MoveCoordinates + "|" + move.MoveText +
            "|" + move.MoveComment;
  }
  return text;
}

std::string BuildMailBody(const store::GameRecord& game, const store::MoveRecords& moves) {
  return BuildMailBanner().append(startMarker).append(BuildMoveText(game, moves)).append(endMarker);
}

std::string StripReservedText(std::string_view text) {
  std::string cleaned = platform::ReplaceAll(text, startMarker, "");
  cleaned = platform::ReplaceAll(cleaned, endMarker, "");
  std::erase_if(cleaned, [](unsigned char c) { return c >= 1 && c <= 31; });
  return cleaned;
}

void ReportReservedText(ReservedTextIn field) {
  const std::string place = field == ReservedTextIn::GameName ? "game name" : "player comment";
  platform::ShowMessage(
      platform::ErrorIcon, "Illegal characters",
      "You are not permitted to use certain text in the " + place +
          " as it is reserved by Tarvolenix.||This text has have been removed or, where "
          "appropriate, replaced with spaces.",
      "OK", {}, false, platform::AttentionSound);
}

}  // namespace mail
