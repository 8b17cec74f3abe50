// SPDX-License-Identifier: GPL-3.0-or-later
// What the console calls the states of mails that are on their way.
#pragma once

#include <cstdint>
#include <string>

#include "platform/mail_state.h"

namespace cli {

std::string NameOf(platform::MailStage stage);

/// Such as "2026-11-25T10:00:00Z", of seconds since 1970.
std::string UtcText(std::int64_t seconds);

}  // namespace cli
