// SPDX-License-Identifier: GPL-3.0-or-later
// Configuration files that say arbitrary things: only encrypted servers with a name are found.
#include "fuzz/fuzz.h"
#include "post/accounts/discovery_file.h"
#include "post/accounts/domain_names.h"

void TryInput(std::string_view input) {
  post::MailAccount account;
  account.MyAddress = "anna@example.org";
  const auto found = post::WithConfiguration(std::string(input), account);
  if (!found) return;
  for (const auto& [host, security] : {std::pair(found->ImapHost, found->ImapSecurity),
                                       std::pair(found->SmtpHost, found->SmtpSecurity)}) {
    Require(post::IsServerName(host) && (security == "Tls" || security == "StartTls"));
  }
}
