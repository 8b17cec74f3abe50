// SPDX-License-Identifier: GPL-3.0-or-later
// What the account dialog has to ask others: about providers, kept passwords and the network.
#pragma once

#include <functional>
#include <string>

#include "platform/mail_account.h"

namespace ui {

using platform::AccountAnswer;
using platform::MailAccount;

/// What an address tells about its provider.
struct ProviderGuess {
  MailAccount account;  ///< with the servers that the address suggests
  bool isKnown = false;
  std::string advice;  ///< what there is to say of it, such as what the provider wants for a
                       ///< password; may be blank
};

/// What the dialog has to ask others.
struct AccountHelp {
  /// Whether mail can be sent from and to the account's address.
  std::function<bool(const MailAccount&)> hasUsableAddress;

  std::function<ProviderGuess(const MailAccount&)> guess;

  /// Asks the network about a provider that isn't known, without making anybody wait, and tells a
  /// better guess, or one that isn't known either. Asked again, it may forget the question before.
  using Found = std::function<void(const ProviderGuess&)>;
  std::function<void(const MailAccount&, Found)> lookUp;

  std::function<bool(const MailAccount&)> hasKeptPassword;

  /// Tries the account out, without making anybody wait, and tells in a sentence what is wrong with
  /// it, and whether a new sign-in would mend that; a blank one where nothing is.
  using Told = std::function<void(const std::string& problem, bool wantsSignIn)>;
  std::function<void(const AccountAnswer&, Told)> test;

  /// Whose sign-in in the browser may stand for the account's password, and what keeps it from it.
  struct SignInOffer {
    std::string name;    ///< blank: nobody's
    std::string remark;  ///< may be blank
    bool isReady = false;
  };
  std::function<SignInOffer(const MailAccount&)> signInOffer;

  /// Has the user sign in with his browser, without making anybody wait, and tells what is to be
  /// kept in the place of a password, or what was wrong. Ahead of that it tells where the browser
  /// was sent: desktops don't say whether one came up. One begun before ends.
  using Sent = std::function<void(const std::string& url)>;
  using SignedIn = std::function<void(const std::string& secret, const std::string& problem)>;
  std::function<void(const MailAccount&, const std::string& name, Sent, SignedIn)> signIn;

  /// What was begun interests nobody any more.
  std::function<void()> giveUp;

  /// The provider takes the sign-in that stands for the password so far no more.
  bool signInHasLapsed = false;
};

}  // namespace ui
