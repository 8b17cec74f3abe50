// SPDX-License-Identifier: GPL-3.0-or-later
#include "sign_in/token_endpoint.h"

#include <QJsonDocument>
#include <QJsonObject>
#include <QVariant>

#include <algorithm>
#include <iterator>

#include "letters/mail_text.h"
#include "post/servers/mail_failures.h"

namespace sign_in {
namespace {

using namespace Qt::StringLiterals;

/// Where a provider doesn't say for how long a token counts. One that ends before is renewed when
/// a server refuses it.
constexpr std::chrono::hours usualLifetime(1);

/// To ask once a day costs nothing, whatever a provider says.
constexpr std::chrono::hours longestLifetime(24);

/// The provider wants to see the user; all but the first are of OpenID Connect.
constexpr std::string_view wantTheUser[] = {"invalid_grant", "interaction_required",
                                            "login_required", "consent_required"};

std::string TextOf(const QJsonObject& answer, const QString& name) {
  return answer[name].toString().toStdString();
}

/// Fit for a message, whoever wrote it.
std::string Tamed(const std::string& words) {
  return letters::WithoutReserved(QString::fromStdString(words).left(200).toStdString());
}

/// What may pass by itself: the provider isn't at his best, or it wasn't he who answered.
bool Passes(long status, const std::string& error) {
  constexpr long tooSlow = 408, tooMany = 429;
  const bool isRefusal = status >= 400 && status < 500 && status != tooSlow && status != tooMany;
  return !isRefusal || error == "temporarily_unavailable";
}

/// A token travels in a line of a mail session.
std::string TokenOf(const QJsonObject& answer, const QString& name) {
  const std::string token = TextOf(answer, name);
  const bool isFit =
      std::all_of(token.begin(), token.end(), [](char c) { return c > ' ' && c < 127; });
  return isFit ? token : std::string{};
}

}  // namespace

bool WantsNewSignIn(const std::string& error) {
  return std::find(std::begin(wantTheUser), std::end(wantTheUser), error) != std::end(wantTheUser);
}

std::string SentenceFor(const std::string& error, const std::string& itsWords,
                        const std::string& provider) {
  if (WantsNewSignIn(error)) {
    return provider + " doesn't accept your sign-in any more: please sign in again.";
  }
  if (error == "access_denied" || error == "authorization_declined") {
    return "The sign-in was refused at " + provider + ".";
  }
  if (error == "expired_token") return "The sign-in took too long: please begin again.";
  if (error == "invalid_client" || error == "unauthorized_client") {
    return provider + " doesn't know Tarvolenix by its client identifier.";
  }
  return provider + " refuses the sign-in: " +
         letters::WithFullStop(Tamed(itsWords.empty() ? error : itsWords));
}

std::chrono::seconds SecondsIn(const QJsonObject& answer, const char* name,
                               std::chrono::seconds usual, std::chrono::seconds longest) {
  const double given = answer[QLatin1StringView(name)].toVariant().toDouble();
  if (!(given >= 1)) return std::min(usual, longest);
  const double most = static_cast<double>(longest.count());
  return std::chrono::seconds(static_cast<long>(std::min(given, most)));
}

QJsonObject AskProvider(const Service& service, const std::string& url, Fields fields,
                        const post::Patience& patience) {
  fields.emplace_back("client_id", service.clientId);
  if (!service.clientSecret.empty()) fields.emplace_back("client_secret", service.clientSecret);
  const WebAnswer answer = PostForm(url, fields, patience);
  QJsonObject content = QJsonDocument::fromJson(QByteArray::fromStdString(answer.content)).object();
  if (answer.status == 200 && !content.isEmpty()) return content;
  const std::string error = TextOf(content, u"error"_s);
  const std::string status = " (" + std::to_string(answer.status) + ").";
  if (Passes(answer.status, error)) {
    throw post::ConnectionLost(service.name + " can't sign you in just now" + status);
  }
  throw GrantRefused(
      error.empty() ? service.name + " refuses the sign-in" + status
                    : SentenceFor(error, TextOf(content, u"error_description"_s), service.name),
      error);
}

Tokens AskForTokens(const Service& service, const Fields& fields, const post::Patience& patience) {
  const QJsonObject answer = AskProvider(service, service.token, fields, patience);
  Tokens tokens{TokenOf(answer, u"access_token"_s), TokenOf(answer, u"refresh_token"_s),
                SecondsIn(answer, "expires_in", usualLifetime, longestLifetime)};
  if (tokens.access.empty()) throw platform::MailError(service.name + " gave no token.");
  return tokens;
}

Tokens AskForFirstTokens(const Service& service, const Fields& fields,
                         const post::Patience& patience) {
  Tokens tokens = AskForTokens(service, fields, patience);
  if (tokens.refresh.empty()) {
    throw platform::MailError(service.name + " gave no sign-in that lasts.");
  }
  return tokens;
}

}  // namespace sign_in
