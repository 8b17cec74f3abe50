// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/account_check.h"

#include <exception>

#include "desktop/known_providers.h"
#include "desktop/mail_transport.h"

namespace desktop {
namespace {

std::string WithAdvice(const char* refusal, const MailAccount& account) {
  const std::string_view advice = PasswordAdvice(account.ImapHost);
  return advice.empty() ? refusal : std::string(refusal).append(" ").append(advice);
}

}  // namespace

AccountCheck::AccountCheck(const MailAccount& account, const std::string& password)
    : account_(WithAbsolutePostFolder(account)), password_(password) {
  if (account_.MailKind == "Imap") servers_ = std::make_unique<ServerMail>(account_, password_);
}

void AccountCheck::Try() {
  if (servers_) {
    servers_->Open();
    servers_->TryOutgoing();
    servers_->Close();
  } else {
    MakeMailTransport(account_, password_)->Open();
  }
}

std::string AccountCheck::Problem() {
  if (!HasUsableAddress(account_)) return "\"" + account_.MyAddress + "\" is no mail address.";
  try {
    Try();
    return {};
  } catch (const LoginRefused& refusal) {
    return WithAdvice(refusal.what(), account_);
  } catch (const std::exception& error) {
    return error.what();
  }
}

void AccountCheck::Hurry() {
  if (servers_) servers_->Hurry();
}

std::string WhatIsWrongWith(const MailAccount& account, const std::string& password) {
  return AccountCheck(account, password).Problem();
}

}  // namespace desktop
