// SPDX-License-Identifier: GPL-3.0-or-later
#include "post/account_check.h"

#include <utility>

#include "letters/mail_text.h"
#include "post/accounts/known_providers.h"
#include "post/mail_transport.h"

namespace post {
namespace {

/// What the system and its libraries say has neither a capital nor a full stop.
std::string AsSentence(std::string text) {
  if (text.empty()) return text;
  const bool isName = text.substr(0, text.find(' ')).find('.') != std::string::npos;
  if (!isName && text[0] >= 'a' && text[0] <= 'z') text[0] = static_cast<char>(text[0] - 'a' + 'A');
  return letters::WithFullStop(std::move(text));
}

}  // namespace
std::string InPlainWords(const std::exception& failure, const MailAccount& account) {
  std::string sentence = AsSentence(letters::WithoutReserved(failure.what()));
  const bool isRefusal = dynamic_cast<const LoginRefused*>(&failure) != nullptr;
  const std::string advice = !isRefusal || !account.TokenCommand.empty() ? ""
                             : account.SignIn.empty()                    ? PasswordAdvice(account)
                                                                         : "Please sign in again.";
  if (!advice.empty()) sentence += " " + advice;
  return sentence;
}

bool WantsSignIn(const std::exception& failure, const MailAccount& account) {
  return dynamic_cast<const SignInLapsed*>(&failure) ||
         (dynamic_cast<const LoginRefused*>(&failure) && !account.SignIn.empty());
}

AccountCheck::AccountCheck(const MailAccount& account, const std::string& password,
                           AccessTokens* tokens)
    : account_(WithAbsolutePostFolder(account)), password_(password) {
  if (account_.MailKind == "Imap") servers_ = std::make_unique<ServerMail>(account_, password_);
  if (servers_ && tokens) servers_->TakeTokensFrom(*tokens);
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
  } catch (const std::exception& error) {
    wantsSignIn_ = post::WantsSignIn(error, account_);
    return InPlainWords(error, account_);
  }
}

void AccountCheck::Hurry() {
  if (servers_) servers_->Hurry();
}

std::string WhatIsWrongWith(const MailAccount& account, const std::string& password,
                            AccessTokens* tokens) {
  return AccountCheck(account, password, tokens).Problem();
}

}  // namespace post
