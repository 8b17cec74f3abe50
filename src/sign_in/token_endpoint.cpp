// SPDX-License-Identifier: GPL-3.0-or-later
#include "sign_in/token_endpoint.h"

#include <QJsonDocument>
#include <QJsonObject>

#include "letters/mail_text.h"
#include "post/servers/mail_failures.h"

namespace sign_in {
namespace {

using namespace Qt::StringLiterals;

/// Where a provider doesn't say for how long a token counts. One that ends before is renewed when
/// a server refuses it.
constexpr int usualLifetime = 3600;

std::string TextOf(const QJsonObject& answer, const QString& name) {
  return letters::WithoutReserved(answer[name].toString().left(200).toStdString());
}

std::string SentenceFor(const std::string& error, const QJsonObject& answer,
                        const std::string& provider) {
  if (error == "invalid_grant") {
    return provider + " doesn't accept your sign-in any more: please sign in again.";
  }
  if (error == "access_denied") return "The sign-in was refused at " + provider + ".";
  if (error == "expired_token") return "The sign-in took too long: please begin again.";
  if (error == "invalid_client" || error == "unauthorized_client") {
    return provider + " doesn't know Tarvolenix by its client identifier.";
  }
  const std::string words = TextOf(answer, u"error_description"_s);
  return provider + " refuses the sign-in: " + (words.empty() ? error : words);
}

/// What may pass by itself: the provider isn't at his best, or it wasn't he who answered.
bool Passes(long status, const std::string& error) {
  constexpr long tooSlow = 408, tooMany = 429;
  const bool isRefusal = status >= 400 && status < 500 && status != tooSlow && status != tooMany;
  return !isRefusal || error == "temporarily_unavailable";
}

/// A token travels in a line of a mail session.
std::string TokenOf(const QJsonObject& answer, const QString& name) {
  const std::string token = answer[name].toString().toStdString();
  const bool isFit =
      std::all_of(token.begin(), token.end(), [](char c) { return c > ' ' && c < 127; });
  return isFit ? token : std::string{};
}

}  // namespace

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
  throw GrantRefused(error.empty() ? service.name + " refuses the sign-in" + status
                                   : SentenceFor(error, content, service.name),
                     error);
}

Tokens AskForTokens(const Service& service, const Fields& fields, const post::Patience& patience) {
  const QJsonObject answer = AskProvider(service, service.token, fields, patience);
  Tokens tokens{TokenOf(answer, u"access_token"_s), TokenOf(answer, u"refresh_token"_s),
                std::chrono::seconds(answer[u"expires_in"].toVariant().toInt())};
  if (tokens.access.empty()) throw platform::MailError(service.name + " gave no token.");
  if (tokens.lifetime.count() > 0) return tokens;
  return {tokens.access, tokens.refresh, std::chrono::seconds(usualLifetime)};
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
