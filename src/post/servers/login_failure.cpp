// SPDX-License-Identifier: GPL-3.0-or-later
#include "post/servers/login_failure.h"

#include <algorithm>

#include "letters/mail_text.h"
#include "platform/ascii.h"
#include "platform/utf8.h"
#include "post/servers/server_connection.h"

namespace post {
namespace {

using Reason = LoginFailure::Reason;

/// What tells the reason, in small letters. The first that a reply contains counts: a server's code
/// for programs says more than its prose.
constexpr struct {
  std::string_view words;
  Reason reason;
} signs[] = {
    {"application-specific", Reason::WantsAppPassword},
    {"app-specific", Reason::WantsAppPassword},
    {"app password", Reason::WantsAppPassword},
    {"5.7.9", Reason::WantsAppPassword},
    {"[authenticationfailed]", Reason::WrongLogin},
    {"[unavailable]", Reason::OnlyNow},
    {"[limit]", Reason::OnlyNow},
    {"[inuse]", Reason::OnlyNow},
    {"temporar", Reason::OnlyNow},
    {"too many", Reason::OnlyNow},
    {"try again later", Reason::OnlyNow},
};

Reason ReasonIn(int code, std::string_view reply) {
  if (code / 100 == 4) return Reason::OnlyNow;
  const std::string lowered = platform::Lowered(reply);
  const auto* const sign = std::ranges::find_if(
      signs, [&lowered](const auto& row) { return lowered.find(row.words) != std::string::npos; });
  return sign == std::end(signs) ? Reason::WrongLogin : sign->reason;
}

std::string SentenceFor(Reason reason, const std::string& host, const Login& login) {
  const std::string server = "The server \"" + host + "\" ";
  switch (reason) {
    case Reason::WantsAppPassword:
      return server +
             "wants an app password, made on your provider's web site for one program, not your "
             "usual one.";
    case Reason::OnlyNow:
      return server + "lets you in at another time only: try again later.";
    default:
      return server + (login.token.empty() ? "refuses the user name or the password."
                                           : "refuses the user name or the sign-in.");
  }
}

void DropWord(std::string_view& text) {
  text.remove_prefix(std::min(text.find(' '), text.size()));
  text.remove_prefix(std::min(text.find_first_not_of(' '), text.size()));
}

/// Without "NO", "BAD", a code in brackets and a status such as "5.7.8" in front.
std::string_view WithoutCodes(std::string_view reply) {
  const std::string_view answer = reply.substr(0, reply.find(' '));
  if (platform::SameWithoutCase(answer, "NO") || platform::SameWithoutCase(answer, "BAD")) {
    DropWord(reply);
  }
  if (reply.starts_with('[')) reply.remove_prefix(std::min(reply.find(']'), reply.size()));
  if (reply.starts_with(']')) DropWord(reply);
  const bool hasStatus = reply.size() > 2 && reply[1] == '.' && reply[0] >= '4' && reply[0] <= '5';
  if (hasStatus) DropWord(reply);
  return reply;
}

/// Cut between words where it is too long to be read, else at least between characters.
std::string Shortened(std::string text) {
  constexpr std::size_t longest = 160;
  if (text.size() <= longest) return text;
  std::size_t end = text.rfind(' ', longest);
  if (end == std::string::npos || end == 0) {
    for (end = 0; end < longest;) {
      end += platform::FirstCharacter(std::string_view(text).substr(end)).length;
    }
  }
  return text.substr(0, end) + "...";
}

}  // namespace

LoginFailure LoginFailureIn(const std::string& host, const Login& login, int code,
                            const std::string& reply) {
  const std::string said = WithoutSecrets(reply, login);
  const Reason reason = ReasonIn(code, said);
  const std::string words = ServersOwnWords(said);
  return {reason, SentenceFor(reason, host, login) + (words.empty() ? "" : " " + words)};
}

void RaiseLoginFailure(const std::string& host, const Login& login, int code,
                       const std::string& reply) {
  const auto [reason, sentence] = LoginFailureIn(host, login, code, reply);
  if (reason == Reason::OnlyNow) throw ConnectionLost(sentence);
  throw LoginRefused(sentence);
}

std::string ServersOwnWords(std::string_view reply) {
  const std::string words = Shortened(letters::WithoutReserved(WithoutCodes(reply)));
  return words.empty() ? "" : "The server says: " + words;
}

}  // namespace post
