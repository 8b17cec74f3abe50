// SPDX-License-Identifier: GPL-3.0-or-later
#include "rude_server.h"

#include <arpa/inet.h>
#include <netinet/in.h>
#include <poll.h>
#include <sys/socket.h>
#include <unistd.h>

#include <algorithm>
#include <stdexcept>

namespace {

bool SendAll(int socket, std::string_view bytes) {
  while (!bytes.empty()) {
    const ssize_t sent = ::send(socket, bytes.data(), bytes.size(), MSG_NOSIGNAL);
    if (sent <= 0) return false;
    bytes.remove_prefix(static_cast<std::size_t>(sent));
  }
  return true;
}

/// With the client's tag, and with line ends as mail has them.
std::string Spoken(const std::string& answer, const std::string& tag) {
  std::string spoken;
  for (const char c : answer) {
    if (c == '$') {
      spoken += tag;
    } else if (c == '\n') {
      spoken += "\r\n";
    } else {
      spoken += c;
    }
  }
  return spoken;
}

}  // namespace

RudeServer::RudeServer(Answers answers) : polite_(std::move(answers)) {
  listener_ = ::socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0);
  sockaddr_in address{};
  address.sin_family = AF_INET;
  address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
  socklen_t size = sizeof address;
  auto* const generic = reinterpret_cast<sockaddr*>(&address);
  if (::bind(listener_, generic, size) != 0 || ::listen(listener_, 8) != 0 ||
      ::getsockname(listener_, generic, &size) != 0) {
    throw std::runtime_error("no loopback socket");
  }
  port_ = ntohs(address.sin_port);
  thread_ = std::thread([this] { Serve(); });
}

RudeServer::~RudeServer() {
  stopping_ = true;
  ::shutdown(listener_, SHUT_RDWR);
  Cut();
  thread_.join();
  ::close(listener_);
}

void RudeServer::Answer(const std::string& command, const std::string& answer) {
  const std::lock_guard lock(mutex_);
  rude_[command] = answer;
  if (answer.empty()) rude_.erase(command);
}

void RudeServer::AnswerOnce(const std::string& command, const std::string& answer) {
  const std::lock_guard lock(mutex_);
  rudeOnce_[command] = answer;
}

int RudeServer::Count(const std::string& text) {
  const std::lock_guard lock(mutex_);
  return static_cast<int>(std::count_if(lines_.begin(), lines_.end(), [&text](const auto& line) {
    return line.find(text) != std::string::npos;
  }));
}

void RudeServer::Cut() {
  const int client = client_;
  if (client >= 0) ::shutdown(client, SHUT_RDWR);
}

void RudeServer::Serve() {
  while (!stopping_) {
    const int client = ::accept4(listener_, nullptr, nullptr, SOCK_CLOEXEC);
    if (client < 0) return;
    client_ = client;
    if (!stopping_) Converse(client);
    client_ = -1;
    ::close(client);
  }
}

void RudeServer::Converse(int client) {
  swallowing_ = false;
  tag_.clear();
  if (!Reply(client, "")) return;
  std::string received;
  char buffer[4096];
  while (true) {
    const ssize_t count = ::recv(client, buffer, sizeof buffer, 0);
    if (count <= 0) return;
    received.append(buffer, static_cast<std::size_t>(count));
    for (std::size_t end = 0; (end = received.find("\r\n")) != std::string::npos;) {
      const std::string line = end > 0 ? received.substr(0, end) : emptyLine;
      received.erase(0, end + 2);
      if (swallowing_ && line != ".") continue;
      if (!swallowing_ && line != emptyLine) tag_ = line.substr(0, line.find(' '));
      if (!Reply(client, swallowing_ ? endOfMail : line)) return;
    }
  }
}

std::string RudeServer::AnswerTo(const std::string& line) {
  const std::lock_guard lock(mutex_);
  if (!line.empty()) lines_.push_back(line);
  for (const auto& [command, answer] : polite_) {
    if (command.empty() ? !line.empty() : line.find(command) == std::string::npos) continue;
    if (auto once = rudeOnce_.extract(command)) return once.mapped();
    const auto rude = rude_.find(command);
    return rude == rude_.end() ? answer : rude->second;
  }
  return hangUp;
}

/// False where the conversation is over.
bool RudeServer::Reply(int client, const std::string& line) {
  const int releasedBefore = released_;
  const std::string answer = AnswerTo(line);
  const auto special = answer.find_first_of(hang + hangUp + flood);
  swallowing_ = answer.starts_with("354") || answer.starts_with("+ go on");
  if (!SendAll(client, Spoken(answer.substr(0, special), tag_))) return false;
  if (special == std::string::npos) return true;
  if (answer.substr(special) == hang) {
    // Whoever gives up waiting closes the connection.
    while (!stopping_ && released_ == releasedBefore) {
      pollfd entry{client, POLLRDHUP, 0};
      if (::poll(&entry, 1, 20) > 0) return false;
    }
    return Reply(client, line);
  }
  const std::string drivel(65536, 'x');
  while (answer.substr(special) == flood && !stopping_ && SendAll(client, drivel)) {
  }
  return false;
}
