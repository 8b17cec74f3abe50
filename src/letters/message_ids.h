// SPDX-License-Identifier: GPL-3.0-or-later
// The Message-IDs of our mails (RFC 5322). They name the thread that a mail belongs to, so that a
// report that it couldn't be delivered leads back to it; and all mails of a thread refer to one
// identifier that both players' programs know, so that any mail client shows them together.
#pragma once

#include <string>
#include <string_view>

#include "letters/mails.h"

namespace letters {

/// Never the same twice, in the domain of the mail's sender: this machine's own name is nobody's
/// business. Raises MailError where the sender has no address.
std::string NewMessageID(const OutgoingMail& mail);

/// No mail bears it.
std::string RootIDOf(std::string_view thread);

/// Of a part of a mail, by what it says; without the angle brackets.
std::string ContentIDOf(std::string_view content);

/// What the mail with this identifier belongs to; blank where it is none of ours, or belongs to
/// nothing.
std::string ThreadOfID(std::string_view messageID);

}  // namespace letters
