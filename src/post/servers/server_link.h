// SPDX-License-Identifier: GPL-3.0-or-later
// Lines and bytes over a connection to an IMAP server.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include "post/servers/server_connection.h"

namespace post {

/// Every wait ends: with what was waited for, or with ConnectionLost.
class ServerLink {
 public:
  /// Connects. Raises what ServerConnection raises. `patience` must outlive the link.
  ServerLink(const ServerAddress& server, const Patience& patience);

  /// Starts the time of one more command, which may read no more than `limit` bytes.
  void BeginCommand(std::size_t limit);

  void Send(std::string_view bytes);

  /// Without its line end.
  std::string ReadLine();
  std::string ReadBytes(std::size_t count);

 private:
  void Receive();
  void Wait(bool forWriting);

  const Patience& patience_;
  ServerConnection connection_;
  std::string received_;  // and not read yet, behind `read_`
  std::size_t read_ = 0;
  std::size_t allowed_ = 0;  // bytes that the command may still receive
  Patience::Clock::time_point commandEnd_;
};

}  // namespace post
