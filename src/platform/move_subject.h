// SPDX-License-Identifier: GPL-3.0-or-later
// By what a move mail is recognised.
#pragma once

#include <string_view>

namespace platform {

/// How the subject of every mail of the program begins. What follows is for people.
inline constexpr std::string_view subjectPrefix = "Tarvolenix :";

/// Whether a subject begins with the prefix, be it behind the tags that filters, mailing lists and
/// mail programs put in front: "[EXTERNAL]", "***SPAM***", "Re:", "AW:", "Fwd:", several of them.
bool IsMoveSubject(std::string_view subject);

}  // namespace platform
