// SPDX-License-Identifier: GPL-3.0-or-later
#include "post/token_command.h"

#include "platform/mail_client.h"
#include "post/child_process.h"

namespace post {

std::string TokenFrom(const std::string& command, const Patience& patience) {
  const ChildEnd end = RunProgram("/bin/sh", {"-c", command}, {}, patience);
  std::string token = end.output.substr(0, end.output.find_first_of("\r\n"));
  if (end.exitCode != 0 || token.empty()) {
    throw platform::MailError("The command that should give a token gave none.");
  }
  return token;
}

}  // namespace post
