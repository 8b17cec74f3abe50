// SPDX-License-Identifier: GPL-3.0-or-later
// When the last mail of a game came that brought something new.
#pragma once

#include <cstdint>
#include <optional>
#include <string>

namespace mail {

/// A mail of the thread (ThreadOf) has come, just now. What can't be remembered is forgotten.
void NoteArrival(const std::string& thread);

/// In seconds since 1970. Nothing where no mail came, or what is remembered can't be read.
std::optional<std::int64_t> LastArrival(const std::string& thread);

}  // namespace mail
