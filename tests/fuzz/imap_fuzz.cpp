// SPDX-License-Identifier: GPL-3.0-or-later
// A mail server that says arbitrary things. Whatever it says, each operation ends with an answer or
// with a MailError, and no mail is listed twice.
#include <algorithm>
#include <cstring>
#include <set>

#include "fuzz/fuzz.h"
#include "post/server_mail.h"

namespace {

std::string_view said;  // and not received yet

template <typename Operation>
void Try(const Operation& operation) {
  try {
    operation();
  } catch (const platform::MailError&) {
    // refused
  }
}

}  // namespace

// These stand in front of the network library's own: the server is heard at once.
extern "C" CURLcode curl_easy_perform(CURL*) { return CURLE_OK; }

extern "C" CURLcode curl_easy_send(CURL*, const void*, std::size_t size, std::size_t* sent) {
  *sent = size;
  return CURLE_OK;
}

extern "C" CURLcode curl_easy_recv(CURL*, void* buffer, std::size_t size, std::size_t* received) {
  constexpr std::size_t packet = 100;
  *received = std::min({said.size(), size, packet});
  std::memcpy(buffer, said.data(), *received);
  said.remove_prefix(*received);
  return CURLE_OK;
}

void TryInput(std::string_view input) {
  said = input;
  post::MailAccount account;
  account.ImapHost = account.SmtpHost = "localhost";
  account.ImapSecurity = account.SmtpSecurity = "None";
  post::ServerMail mail(account, "secret");
  Try([&] { mail.Open(); });
  Try([&] {
    std::set<std::string> ids;
    for (const letters::FetchedMail& each : mail.List(true)) {
      Require(ids.insert(each.id).second);
      mail.MarkRead(each.id);
      if (!each.read) mail.Remove(each.id);
    }
  });
  Try([&] { mail.Flush(); });
  Try([&] { mail.Send({{"Me", "me@example.org"}, {{"Eva", "eva@example.org"}}, "s", "t"}); });
  Try([&] { mail.Close(); });
}
