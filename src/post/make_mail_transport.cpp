// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/mail_client.h"
#include "post/post_office.h"
#include "post/server_mail.h"
#include "post/system_mail.h"

namespace post {

std::unique_ptr<MailTransport> MakeMailTransport(const MailAccount& account,
                                                 const std::string& password) {
  if (account.MailKind == "Post") return std::make_unique<PostOffice>(account);
  if (account.MailKind == "System") return std::make_unique<SystemMail>();
  if (account.MailKind == "Imap") return std::make_unique<ServerMail>(account, password);
  throw platform::MailError("unknown kind of mail account: " + account.MailKind);
}

std::function<std::unique_ptr<MailTransport>(const MailAccount&, const std::string&)>
TransportsWith(AccessTokens& tokens) {
  return [&tokens](const MailAccount& account, const std::string& password) {
    auto transport = MakeMailTransport(account, password);
    if (auto* const servers = dynamic_cast<ServerMail*>(transport.get())) {
      servers->TakeTokensFrom(tokens);
    }
    return transport;
  };
}

}  // namespace post
