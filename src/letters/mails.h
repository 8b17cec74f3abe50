// SPDX-License-Identifier: GPL-3.0-or-later
// A mail that came and a mail that goes, as the program sees them.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

#include "platform/mail_client.h"
#include "platform/move_pages.h"

namespace letters {

struct Mailbox {
  std::string name;
  std::string address;
};

struct FetchedMail {
  std::string id;  ///< finds the mail in its store, whatever happens to the others
  std::string subject;
  std::string name;     ///< the sender's
  std::string address;  ///< the sender's
  std::string text;     ///< plain text, UTF-8
  bool read = false;
  bool isSpam = false;  ///< lies in the folder of spam; has no text then
  std::optional<platform::Undelivered> undelivered = {};  ///< what a mail server reports by it

  /// About the bytes of memory that it takes.
  std::size_t Size() const { return subject.size() + name.size() + address.size() + text.size(); }
};

struct OutgoingMail {
  Mailbox from;
  std::vector<Mailbox> to;
  std::string subject;
  std::string text;
  std::string thread = {};     ///< letters, digits and "-"; blank where the mail belongs to nothing
  std::string messageID = {};  ///< with its angle brackets; made anew where it is blank
  platform::MovePage page = {};  ///< beside the text, where it has any HTML
};

}  // namespace letters
