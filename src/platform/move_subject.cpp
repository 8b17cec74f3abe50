// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/move_subject.h"

#include <algorithm>

#include "platform/ascii.h"

namespace platform {
namespace {

constexpr std::string_view blanks = " \t";

/// What stands ahead of a colon in replies and forwarded mails, and what filters write there.
constexpr std::string_view words[] = {"re",  "aw",       "antw",   "sv",     "vs",  "odp", "ynt",
                                      "res", "rif",      "ref",    "fwd",    "fw",  "wg",  "tr",
                                      "rv",  "vb",       "doorst", "enc",    "i",   "r",   "pd",
                                      "vl",  "external", "ext",    "extern", "spam"};

std::string_view WithoutBlanks(std::string_view text) {
  return text.substr(std::min(text.find_first_not_of(blanks), text.size()));
}

/// How long the group is with which the text begins; 0 where it begins with none.
std::size_t GroupLength(std::string_view text) {
  if (text.starts_with('[')) return text.find(']') + 1;
  if (!text.starts_with('*')) return 0;
  const auto inside = text.find_first_not_of('*');
  const auto end = inside == text.npos ? inside : text.find('*', inside);
  return end == text.npos ? 0 : std::min(text.find_first_not_of('*', end), text.size());
}

/// The same for a word and its colon. Some programs count the replies: "Re[2]:", "Re(2):".
std::size_t WordLength(std::string_view text) {
  const auto colon = text.find(':');
  if (colon == text.npos) return 0;
  std::string_view word = text.substr(0, std::min(colon, text.find_first_of("[(")));
  word = word.substr(0, word.find_last_not_of(blanks) + 1);
  const auto isIt = [word](std::string_view known) { return SameWithoutCase(known, word); };
  return std::any_of(std::begin(words), std::end(words), isIt) ? colon + 1 : 0;
}

}  // namespace

bool IsMoveSubject(std::string_view subject) {
  while (!subject.starts_with(subjectPrefix)) {
    const std::size_t tag = std::max(GroupLength(subject), WordLength(subject));
    if (tag == 0) return false;
    subject = WithoutBlanks(subject.substr(tag));
  }
  return true;
}

}  // namespace platform
