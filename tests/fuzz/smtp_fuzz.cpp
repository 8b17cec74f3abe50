// SPDX-License-Identifier: GPL-3.0-or-later
// An outgoing server that says arbitrary things. A mail counts as sent only where the server has
// asked for it and then taken it, and where encryption is wanted none travels without.
#include <sys/socket.h>
#include <unistd.h>

#include "fuzz/fuzz.h"
#include "post/servers/smtp.h"

namespace {

std::string_view answers;  // of the server, who says them all at once
int server = -1;           // its end of the connection

bool IsSent(const char* security) {
  bool sent = true;
  try {
    const post::Patience patience(std::chrono::seconds(1));
    post::SmtpClient({"127.0.0.1", 25, security}, {"me", "secret", {}}, patience)
        .Send("me@example.org", {"eva@example.org"}, "Subject: s\r\n\r\nt\r\n");
  } catch (const platform::MailError&) {
    sent = false;
  }
  ::close(server);
  return sent;
}

}  // namespace

// These stand in front of the system's own: whoever connects finds that server.
extern "C" int socket(int, int, int) noexcept {
  int ends[2];
  Require(::socketpair(AF_UNIX, SOCK_STREAM, 0, ends) == 0);
  server = ends[1];
  Require(::write(server, answers.data(), answers.size()) >= 0);
  Require(::shutdown(server, SHUT_WR) == 0);
  return ends[0];
}

extern "C" int connect(int, const sockaddr*, socklen_t) { return 0; }

void TryInput(std::string_view input) {
  answers = input;
  const auto asked = input.find("354"), taken = input.rfind("250");
  Require(!IsSent("None") || (asked < taken && taken != input.npos));
  Require(!IsSent("StartTls"));
}
