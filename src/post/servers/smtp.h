// SPDX-License-Identifier: GPL-3.0-or-later
// Handing a mail to the user's outgoing server (RFC 5321, RFC 6409).
#pragma once

#include <string>
#include <vector>

#include "post/servers/server_connection.h"

namespace post {

/// A connection that is made by the first mail and serves those behind it. `patience` must outlive
/// it.
class SmtpClient {
 public:
  SmtpClient(const ServerAddress& server, const Login& login, const Patience& patience);

  /// Returns when the server has accepted the mail for all recipients. Speaks once: a mail whose
  /// fate is unknown is never sent again from here. `bytes` have CR LF line ends. Raises what
  /// ServerConnection raises.
  void Send(const std::string& from, const std::vector<std::string>& recipients,
            const std::string& bytes);

 private:
  ServerConnection connection_;
};

/// Logs on and leaves.
void TrySmtp(const ServerAddress& server, const Login& login, const Patience& patience);

}  // namespace post
