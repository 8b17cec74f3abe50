// SPDX-License-Identifier: GPL-3.0-or-later
#include "post/servers/smtp.h"

#include <algorithm>
#include <cstring>
#include <memory>
#include <string_view>

namespace post {
namespace {

/// A mail that the library reads bit by bit.
struct Reading {
  std::string_view rest;
  ServerConnection& connection;
};

/// Called by the library for the next bytes of the mail.
std::size_t NextBytes(char* buffer, std::size_t size, std::size_t count, void* reading) {
  auto& [rest, connection] = *static_cast<Reading*>(reading);
  const std::size_t taken = std::min(size * count, rest.size());
  std::memcpy(buffer, rest.data(), taken);
  rest.remove_prefix(taken);
  if (rest.empty()) connection.AwaitVerdict();
  return taken;
}

/// Greets with an address that tells nothing about this machine.
void HideHostName(CURL* curl) {
  char* url = nullptr;
  curl_easy_getinfo(curl, CURLINFO_EFFECTIVE_URL, &url);
  const std::string greeting = std::string(url ? url : "") + "%5B127.0.0.1%5D";
  curl_easy_setopt(curl, CURLOPT_URL, greeting.c_str());
}

}  // namespace

SmtpClient::SmtpClient(const ServerAddress& server, const Login& login, const Patience& patience)
    : connection_("smtp", server, patience) {
  connection_.LogOnAs(login);
  HideHostName(connection_.Handle());
}

void SmtpClient::Send(const std::string& from, const std::vector<std::string>& recipients,
                      const std::string& bytes) {
  CURL* const curl = connection_.Handle();
  curl_slist* list = nullptr;
  for (const std::string& recipient : recipients) {
    list = curl_slist_append(list, ("<" + recipient + ">").c_str());
  }
  const std::unique_ptr<curl_slist, void (*)(curl_slist*)> owned(list, curl_slist_free_all);
  Reading reading{bytes, connection_};
  curl_easy_setopt(curl, CURLOPT_MAIL_FROM, ("<" + from + ">").c_str());
  curl_easy_setopt(curl, CURLOPT_MAIL_RCPT, list);
  curl_easy_setopt(curl, CURLOPT_UPLOAD, 1L);
  curl_easy_setopt(curl, CURLOPT_READFUNCTION, NextBytes);
  curl_easy_setopt(curl, CURLOPT_READDATA, &reading);
  curl_easy_setopt(curl, CURLOPT_INFILESIZE_LARGE, static_cast<curl_off_t>(bytes.size()));
  connection_.Perform();
}

void TrySmtp(const ServerAddress& server, const Login& login, const Patience& patience) {
  ServerConnection connection("smtp", server, patience);
  connection.LogOnAs(login);
  HideHostName(connection.Handle());
  curl_easy_setopt(connection.Handle(), CURLOPT_CONNECT_ONLY, 1L);
  connection.Perform();
}

}  // namespace post
