// SPDX-License-Identifier: GPL-3.0-or-later
// What a mail server writes back where it couldn't deliver a mail: a report as RFC 3464 has it, or
// a text for people with the mail's header below. It is known by our Message-ID in it.
#pragma once

#include <optional>

#include "letters/mime_text.h"
#include "platform/mail_client.h"

namespace letters {

/// Whether its header is that of a report, on whatever mail.
bool CanBeReport(const MimePart& mail);

/// Nothing for a report on a mail that isn't of a thread of ours, or that is only late.
std::optional<platform::Undelivered> ReadReport(const MimePart& mail);

}  // namespace letters
