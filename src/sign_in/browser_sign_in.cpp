// SPDX-License-Identifier: GPL-3.0-or-later
#include "sign_in/browser_sign_in.h"

#include <chrono>

#include "sign_in/browser_redirect.h"
#include "sign_in/proof_of_origin.h"

namespace sign_in {
namespace {

constexpr std::chrono::minutes longestWait(10);

std::string WithQuery(const std::string& page, const Fields& fields) {
  return page + (page.find('?') == std::string::npos ? '?' : '&') + Encoded(fields);
}

/// The code that the browser brings back.
std::string CodeFrom(BrowserRedirect& redirect, const std::string& provider,
                     const post::Patience& patience) {
  const auto visit = redirect.Await(longestWait, patience);
  if (patience.IsOver()) throw platform::MailError("The sign-in was given up.");
  if (!visit)
    throw platform::MailError("Nobody has signed in for ten minutes: please begin again.");
  if (visit->error.empty()) return visit->code;
  throw platform::MailError(SentenceFor(visit->error, visit->description, provider));
}

}  // namespace

Tokens SignInByBrowser(const Service& given, const std::string& address, const OpenBrowser& open,
                       const post::Patience& patience) {
  const Service service = WithMetadata(given, &Service::authorize, patience);
  if (service.authorize.empty()) {
    throw platform::MailError(service.name +
                              " lets people sign in by a code only: use the console's "
                              "\"account sign-in\".");
  }
  RequireSafe(service.authorize);  // the desktop would open whatever it is told to
  const std::string state = RandomText();
  const std::string verifier = RandomText();
  BrowserRedirect redirect(state);
  const std::string redirectUri =
      "http://" + service.redirectHost + ':' + std::to_string(redirect.Port());
  const Fields question = {{"response_type", "code"},
                           {"client_id", service.clientId},
                           {"redirect_uri", redirectUri},
                           {"scope", service.scope},
                           {"state", state},
                           {"code_challenge", ChallengeOf(verifier)},
                           {"code_challenge_method", "S256"},
                           {"login_hint", address}};
  if (!open(WithQuery(service.authorize, question))) {
    throw platform::MailError("The browser can't be opened.");
  }
  return AskForFirstTokens(service,
                           {{"grant_type", "authorization_code"},
                            {"code", CodeFrom(redirect, service.name, patience)},
                            {"redirect_uri", redirectUri},
                            {"code_verifier", verifier}},
                           patience);
}

}  // namespace sign_in
