// SPDX-License-Identifier: GPL-3.0-or-later
// Whether an account works, told in plain words to somebody who isn't at home in mail servers.
#pragma once

#include <exception>
#include <memory>
#include <string>

#include "post/accounts/mail_account.h"
#include "post/server_mail.h"

namespace post {

/// What is wrong, in a sentence or two with what to do about it, where mail of this account failed.
std::string InPlainWords(const std::exception& failure, const MailAccount& account);

/// Whether a new sign-in at the account's provider mends it.
bool WantsSignIn(const std::exception& failure, const MailAccount& account);

class AccountCheck {
 public:
  /// `tokens` are for an account that signs in by its provider.
  AccountCheck(const MailAccount& account, const std::string& password,
               AccessTokens* tokens = nullptr);

  /// Signs on at both ends and says in a sentence or two what is wrong and what to do about it;
  /// blank where all is well. No mail is sent or changed; a local post office is made where it
  /// isn't there yet. Takes its time: not for the window's thread.
  std::string Problem();

  /// Whether a new sign-in at the provider would mend what Problem found.
  bool WantsSignIn() const { return wantsSignIn_; }

  /// Callable from any thread: nobody wants to know any more. Ends within a second.
  void Hurry();

 private:
  void Try();

  MailAccount account_;
  std::string password_;
  std::unique_ptr<ServerMail> servers_;  // of an account that has any
  bool wantsSignIn_ = false;
};

/// For callers who wait.
std::string WhatIsWrongWith(const MailAccount& account, const std::string& password,
                            AccessTokens* tokens = nullptr);

}  // namespace post
