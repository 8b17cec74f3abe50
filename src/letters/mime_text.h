// SPDX-License-Identifier: GPL-3.0-or-later
// The text of a mail out of all the parts that it may have.
#pragma once

#include <vmime/vmime.hpp>

#include <string>
#include <string_view>

#include "letters/mail_text.h"

namespace letters {

/// A mail, or a part of one: its header, read, and what stands behind it. What a header has beyond
/// its limit counts for the body. `bytes` must outlive the part.
struct MimePart {
  explicit MimePart(std::string_view bytes);

  std::string headerBytes;
  vmime::header header;
  std::string_view body;
};

/// The plain text or, where there is none, the HTML turned into it. Texts that stand side by side
/// follow each other; attachments, and mails within the mail, have no part in it. Raises MailError
/// for a mail of so many parts that it can only be meant to be expensive.
std::string TextOf(const MimePart& mail);

}  // namespace letters
