// SPDX-License-Identifier: GPL-3.0-or-later
// Tokens that stand for a password, from a command of the user's own: the providers that want them
// have programs that know how to get one.
#pragma once

#include <string>

#include "post/servers/patience.h"

namespace post {

/// What the command, run by the shell, prints as its first line. Raises MailError where it fails,
/// prints nothing, or takes longer than the patience allows.
std::string TokenFrom(const std::string& command, const Patience& patience);

}  // namespace post
