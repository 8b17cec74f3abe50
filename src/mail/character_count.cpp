// SPDX-License-Identifier: GPL-3.0-or-later
#include "mail/character_count.h"

#include "platform/utf8.h"

namespace mail {

using platform::FirstCharacter;

std::size_t CharacterCount(std::string_view text) {
  std::size_t count = 0;
  for (; !text.empty(); ++count) text.remove_prefix(FirstCharacter(text).length);
  return count;
}

std::string_view FirstCharacters(std::string_view text, std::size_t count) {
  std::string_view rest = text;
  for (; count > 0 && !rest.empty(); --count) rest.remove_prefix(FirstCharacter(rest).length);
  return text.substr(0, text.size() - rest.size());
}

}  // namespace mail
