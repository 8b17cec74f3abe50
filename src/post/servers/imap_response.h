// SPDX-License-Identifier: GPL-3.0-or-later
// What an IMAP server says (RFC 3501): a line, in which "{n}" at a line end stands for n bytes that
// follow, behind which the line goes on. Reads it into words, texts and lists; a server's rubbish
// reads as something or other, never without end.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "post/servers/server_link.h"

namespace post {

struct ImapValue {
  enum class Kind { Word, Text, List };

  Kind kind = Kind::Word;
  std::string text;              ///< of a word as it stands, of a text without its quotes
  std::vector<ImapValue> items;  ///< of a list

  /// Whether it is this word, in any case.
  bool Is(std::string_view word) const;
};

struct ImapResponse {
  std::string line;                   ///< with a zero byte where a literal stands
  std::vector<std::string> literals;  ///< in their order

  /// The line's values. What is nested too deep is left out, and what is too many.
  std::vector<ImapValue> Values() const;
};

/// The next response. Raises ConnectionLost for a literal of a size that nobody asked for, too.
ImapResponse ReadImapResponse(ServerLink& link);

}  // namespace post
