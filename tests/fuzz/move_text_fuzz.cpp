// SPDX-License-Identifier: GPL-3.0-or-later
// The search for the move text in a mail, and its check: what is found has no line break, and the
// check ends at one of its stages.
#include "fuzz/fuzz.h"
#include "mail/move_mail.h"
#include "mail/move_text_check.h"

namespace {

void RequireStage(std::string_view text) {
  const int stage = mail::CheckMoveText(text);
  Require(stage >= 0 && stage <= 12);
}

}  // namespace

void TryInput(std::string_view input) {
  RequireStage(input);

  const std::string found = mail::ExtractMoveText(input);
  Require(found.find_first_of("\r\n") == std::string::npos);
  RequireStage(found);

  // Between exact markers, all text that holds no marker of its own is found.
  const std::string framed = std::string(mail::startMarker).append(input).append(mail::endMarker);
  if (input.find_first_not_of("\r\n") != std::string_view::npos &&
      input.find(mail::endMarker) == std::string_view::npos) {
    Require(!mail::ExtractMoveText(framed).empty());
  }
}
