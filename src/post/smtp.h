// SPDX-License-Identifier: GPL-3.0-or-later
// Handing a mail to the user's outgoing server (RFC 5321, RFC 6409).
#pragma once

#include <string>
#include <vector>

#include "post/server_connection.h"

namespace post {

/// Returns when the server has accepted the mail for all recipients. Every call makes a connection
/// of its own and speaks once: a mail whose fate is unknown is never sent again from here. `bytes`
/// have CR LF line ends. Raises what ServerConnection raises.
void SendBySmtp(const ServerAddress& server, const Login& login, const Patience& patience,
                const std::string& from, const std::vector<std::string>& recipients,
                const std::string& bytes);

/// Logs on and leaves.
void TrySmtp(const ServerAddress& server, const Login& login, const Patience& patience);

}  // namespace post
