// SPDX-License-Identifier: GPL-3.0-or-later
// Feeds arbitrary mails to the search for the move text and to its check. Beyond not crashing: what
// is found has no line break, and the check ends at one of its stages.
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>
#include <string_view>

#include "mail/move_mail.h"
#include "mail/move_text_check.h"

namespace {

void Require(bool holds) {
  if (!holds) std::abort();
}

void RequireStage(std::string_view text) {
  const int stage = mail::CheckMoveText(text);
  Require(stage >= 0 && stage <= 12);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string_view input(reinterpret_cast<const char*>(data), size);
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
  return 0;
}
