// SPDX-License-Identifier: GPL-3.0-or-later
// Running one of the user's or the system's programs, and hearing what it says.
#pragma once

#include <string>
#include <vector>

#include "post/servers/patience.h"

namespace post {

struct ChildEnd {
  int exitCode;  ///< 128 and more where a signal ended it
  std::string output;
  std::string errors;  ///< what it wrote to its standard error
};

/// Runs a program, without a shell, on `input` until it ends. Where it can't be started, takes
/// longer than the patience allows or doesn't stop talking, it is ended with all that it has
/// started, and MailError is raised with a sentence. Not for the window's thread.
ChildEnd RunProgram(const std::string& program, const std::vector<std::string>& arguments,
                    const std::string& input, const Patience& patience);

}  // namespace post
