// SPDX-License-Identifier: GPL-3.0-or-later
#include "post/servers/server_link.h"

#include <poll.h>

#include <algorithm>
#include <utility>

namespace post {

ServerLink::ServerLink(const ServerAddress& server, const Patience& patience)
    : patience_(patience), connection_("imap", server, patience) {
  curl_easy_setopt(connection_.Handle(), CURLOPT_CONNECT_ONLY, 1L);
  connection_.Perform();
}

void ServerLink::BeginCommand(std::size_t limit) {
  allowed_ = limit;
  commandEnd_ = Patience::Clock::now() + patience_.Command();
}

/// Waits until there may be something to read, or room to write.
void ServerLink::Wait(bool forWriting) {
  constexpr int slice = 100;  // ms: how soon a hurry is noticed
  curl_socket_t socket = CURL_SOCKET_BAD;
  curl_easy_getinfo(connection_.Handle(), CURLINFO_ACTIVESOCKET, &socket);
  if (socket == CURL_SOCKET_BAD) throw ConnectionLost("The mail server has hung up.");
  const auto end = std::min(Patience::Clock::now() + patience_.Silence(), commandEnd_);
  while (Patience::Clock::now() < end && !patience_.IsOver()) {
    pollfd entry{socket, static_cast<short>(forWriting ? POLLOUT : POLLIN), 0};
    if (::poll(&entry, 1, slice) > 0) return;
  }
  throw ConnectionLost("The mail server doesn't answer any more.");
}

void ServerLink::Send(std::string_view bytes) {
  while (!bytes.empty()) {
    std::size_t sent = 0;
    const CURLcode code = curl_easy_send(connection_.Handle(), bytes.data(), bytes.size(), &sent);
    if (code == CURLE_AGAIN) {
      Wait(true);
    } else if (code != CURLE_OK) {
      throw ConnectionLost("The connection to the mail server is broken.");
    }
    bytes.remove_prefix(sent);
  }
}

void ServerLink::Receive() {
  received_.erase(0, std::exchange(read_, 0));
  char buffer[16384];
  std::size_t count = 0;
  CURLcode code = CURLE_AGAIN;
  while ((code = curl_easy_recv(connection_.Handle(), buffer, sizeof buffer, &count)) ==
         CURLE_AGAIN) {
    Wait(false);
  }
  if (code != CURLE_OK) throw ConnectionLost("The connection to the mail server is broken.");
  if (count == 0) throw ConnectionLost("The mail server has hung up.");
  if (count > allowed_) throw ConnectionLost("The mail server doesn't stop sending.");
  allowed_ -= count;
  // A server may drip its answer, but not for ever.
  if (Patience::Clock::now() > commandEnd_ || patience_.IsOver()) {
    throw ConnectionLost("The mail server takes too long.");
  }
  received_.append(buffer, count);
}

std::string ServerLink::ReadLine() {
  std::size_t looked = read_;
  std::size_t end = std::string::npos;
  while ((end = received_.find('\n', looked)) == std::string::npos) {
    looked = received_.size() - read_;  // where the new bytes will begin
    Receive();
  }
  std::string line = received_.substr(read_, end - read_);
  read_ = end + 1;
  if (line.ends_with('\r')) line.pop_back();
  return line;
}

std::string ServerLink::ReadBytes(std::size_t count) {
  if (count > allowed_ + received_.size() - read_) {
    throw ConnectionLost("The mail server sends more than can be read.");
  }
  while (received_.size() - read_ < count) Receive();
  std::string bytes = received_.substr(read_, count);
  read_ += count;
  return bytes;
}

}  // namespace post
