// SPDX-License-Identifier: GPL-3.0-or-later
#include "mail_servers/other_client.h"

#include <sys/socket.h>

#include <regex>
#include <stdexcept>

#include "mail_servers/server_process.h"

OtherClient::OtherClient(const MailServers& servers, const std::string& user)
    : stream_(::fdopen(ConnectTo(servers.ImapPort("StartTls")), "r")) {
  if (!stream_) throw std::runtime_error("The IMAP server is gone.");
  ReadLine();  // the greeting
  Command("LOGIN " + user + ' ' + MailServers::password);
  Command("SELECT INBOX");
}

void OtherClient::Send(const std::string& bytes) {
  const int socket = ::fileno(stream_.get());
  if (::send(socket, bytes.data(), bytes.size(), MSG_NOSIGNAL) !=
      static_cast<ssize_t>(bytes.size())) {
    throw std::runtime_error("The IMAP server takes nothing any more.");
  }
}

/// With its end, and with the bytes that it says follow, up to the end of the line behind those.
std::string OtherClient::ReadLine() {
  std::string line;
  for (int c = std::getc(stream_.get()); c != EOF; c = std::getc(stream_.get())) {
    line += static_cast<char>(c);
    if (c != '\n') continue;
    if (!line.ends_with("}\r\n")) return line;
    std::string literal(std::stoul(line.substr(line.rfind('{') + 1)), '\0');
    if (std::fread(literal.data(), 1, literal.size(), stream_.get()) != literal.size()) break;
    return line + literal + ReadLine();
  }
  throw std::runtime_error("The IMAP server has hung up.");
}

/// All lines up to one that begins with `start`.
std::string OtherClient::ReadUntil(const std::string& start) {
  std::string lines;
  while (true) {
    const std::string line = ReadLine();
    lines += line;
    if (line.starts_with(start)) return lines;
  }
}

std::string OtherClient::Command(const std::string& command) {
  Send("t " + command + "\r\n");
  const std::string answer = ReadUntil("t ");
  if (answer.find("t OK") != std::string::npos) return answer;
  throw std::runtime_error(command + ": " + answer);
}

void OtherClient::Append(const std::string& folder, const std::string& flags,
                         const std::string& bytes) {
  Command("APPEND " + folder + " (" + flags + ") {" + std::to_string(bytes.size()) + "+}\r\n" +
          bytes);
}

std::vector<OtherClient::Mail> OtherClient::Mails(const std::string& folder) {
  Command("EXAMINE " + folder);
  Send("t UID FETCH 1:* (UID FLAGS BODY.PEEK[])\r\n");
  static const std::regex start(
      R"(^\* \d+ FETCH \(UID (\d+) FLAGS \(([^)]*)\) BODY\[\] \{(\d+)\}\r\n)");
  static const std::regex recent(R"( ?\\Recent)");
  std::vector<Mail> mails;
  for (std::string line = ReadLine(); !line.starts_with("t "); line = ReadLine()) {
    std::smatch found;
    if (!std::regex_search(line, found, start)) continue;
    mails.push_back({found[1], std::regex_replace(found[2].str(), recent, ""),
                     found.suffix().str().substr(0, std::stoul(found[3]))});
  }
  return mails;
}
