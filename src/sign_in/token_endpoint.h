// SPDX-License-Identifier: GPL-3.0-or-later
// Asking a provider for tokens (RFC 6749, 5). All of it may wait: not for the window's thread.
#pragma once

#include <chrono>
#include <string>

#include "sign_in/services.h"
#include "sign_in/web_request.h"

class QJsonObject;

namespace sign_in {

struct Tokens {
  std::string access;   ///< stands for the password at the mail servers
  std::string refresh;  ///< gets further ones; blank where the one that was used still counts
  std::chrono::seconds lifetime;  ///< of the access token, from the question on
};

/// The provider says no, and why, by a word for programs such as "invalid_grant".
struct GrantRefused : post::AccountRefused {
  GrantRefused(const std::string& sentence, std::string itsError)
      : AccountRefused(sentence), error(std::move(itsError)) {}
  std::string error;
};

/// Whether the user himself has to come again, and nothing else helps.
bool WantsNewSignIn(const std::string& error);

/// What the user hears of a refusal. `itsWords` is what the provider says of it, or blank.
std::string SentenceFor(const std::string& error, const std::string& itsWords,
                        const std::string& provider);

/// What the answer says of a time; `usual` where it says nothing sensible, and never more than
/// `longest`. Some providers give it as a text.
std::chrono::seconds SecondsIn(const QJsonObject& answer, const char* name,
                               std::chrono::seconds usual, std::chrono::seconds longest);

/// What a provider answers to a form, as JSON. Raises GrantRefused, and what web_request.h raises;
/// ConnectionLost also where a provider isn't at its best.
QJsonObject AskProvider(const Service& service, const std::string& url, Fields fields,
                        const post::Patience& patience);

/// Tokens for what the fields say, with the client's identifier.
Tokens AskForTokens(const Service& service, const Fields& fields, const post::Patience& patience);

/// The same where a lasting sign-in begins: the refresh token must be among them.
Tokens AskForFirstTokens(const Service& service, const Fields& fields,
                         const post::Patience& patience);

}  // namespace sign_in
