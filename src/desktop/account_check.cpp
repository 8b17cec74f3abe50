// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/account_check.h"

#include <exception>

#include "desktop/known_providers.h"
#include "desktop/mail_transport.h"
#include "desktop/server_mail.h"

namespace desktop {
namespace {

std::string WithAdvice(const char* refusal, const MailAccount& account) {
  const std::string_view advice = PasswordAdvice(account.ImapHost);
  return advice.empty() ? refusal : std::string(refusal).append(" ").append(advice);
}

void Try(const MailAccount& account, const std::string& password) {
  if (account.MailKind == "Imap") {
    ServerMail mail(account, password);
    mail.Open();
    mail.TryOutgoing();
    mail.Close();
  } else {
    MakeMailTransport(account, password)->Open();
  }
}

}  // namespace

std::string WhatIsWrongWith(const MailAccount& account, const std::string& password) {
  if (!HasUsableAddress(account)) return "\"" + account.MyAddress + "\" is no mail address.";
  try {
    Try(WithAbsolutePostFolder(account), password);
    return {};
  } catch (const LoginRefused& refusal) {
    return WithAdvice(refusal.what(), account);
  } catch (const std::exception& error) {
    return error.what();
  }
}

}  // namespace desktop
