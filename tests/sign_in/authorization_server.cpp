// SPDX-License-Identifier: GPL-3.0-or-later
#include "sign_in/authorization_server.h"

#include <QCryptographicHash>
#include <QTcpServer>
#include <QTcpSocket>

using namespace Qt::StringLiterals;

AuthorizationServer::AuthorizationServer()
    : thread_([this](const std::stop_token& stop) { Serve(stop); }) {
  port_.wait(0);
}

std::string AuthorizationServer::Url(const std::string& path) const {
  return "http://127.0.0.1:" + std::to_string(port_) + path;
}

void AuthorizationServer::Say(int status, const std::string& content) {
  const std::lock_guard lock(mutex_);
  said_.emplace_back(status, content);
}

void AuthorizationServer::Revoke() {
  const std::lock_guard lock(mutex_);
  good_.clear();
}

void AuthorizationServer::Serve(const std::stop_token& stop) {
  QTcpServer server;
  server.listen(QHostAddress::LocalHost);
  port_ = server.serverPort();
  port_.notify_all();
  while (!stop.stop_requested()) {
    if (!server.waitForNewConnection(20)) continue;
    const std::unique_ptr<QTcpSocket> client(server.nextPendingConnection());
    QByteArray heard;
    qsizetype end = -1, length = 0;
    while (end < 0 || heard.size() < end + 4 + length) {
      if (!client->waitForReadyRead(5000)) break;
      heard += client->readAll();
      end = heard.indexOf("\r\n\r\n");
      const qsizetype field = heard.indexOf("Content-Length: ");
      if (field >= 0) length = heard.mid(field + 16, 8).split('\r').first().toInt();
    }
    const QUrl url(QString::fromLatin1(heard).section(u' ', 1, 1));
    const QUrlQuery fields(length > 0 ? QString::fromLatin1(heard.mid(end + 4)) : url.query());
    const auto [status, content] = AnswerTo(url.path(), fields);
    client->write(
        ("HTTP/1.1 " + std::to_string(status) + " x\r\nConnection: close\r\n\r\n" + content)
            .c_str());
    client->waitForBytesWritten(5000);
  }
}

AuthorizationServer::Answer AuthorizationServer::AnswerTo(const QString& path,
                                                          const QUrlQuery& fields) {
  const std::lock_guard lock(mutex_);
  const bool hasBlank = fields.hasQueryItem(u"scope"_s);  // the test's client asks for none
  if (hasBlank) return {400, R"({"error":"invalid_scope"})"};
  if (path == u"/authorize"_s) return Authorize(fields);
  if (path.contains(u"/.well-known"_s)) {
    const bool isTenant = path == u"/.well-known/oauth-authorization-server/tenant"_s;
    const bool isOpenId = path.endsWith(u"openid-configuration"_s);
    return {200, R"({"issuer":")" + Url(isTenant ? "/tenant/" : "") +
                     R"(","authorization_endpoint":")" + Url("/authorize") +
                     R"(","token_endpoint":")" + Url("/token") +
                     (isOpenId ? R"(","device_authorization_endpoint":")" + Url("/device") : "") +
                     "\"}"};
  }
  ++asked_;
  if (meanwhile) meanwhile();
  if (said_.empty()) return Give(fields);
  const Answer answer = said_.front();
  said_.pop_front();
  return answer;
}

/// Where the browser is sent, as the page's content.
AuthorizationServer::Answer AuthorizationServer::Authorize(const QUrlQuery& fields) {
  question_ = fields;
  good_.insert(u"code"_s);
  return {200, (fields.queryItemValue(u"redirect_uri"_s, QUrl::FullyDecoded) +
                u"/?code=code&state="_s + fields.queryItemValue(u"state"_s))
                   .toStdString()};
}

AuthorizationServer::Answer AuthorizationServer::Give(const QUrlQuery& fields) {
  const auto value = [&fields](const QString& name) {
    return fields.queryItemValue(name, QUrl::FullyDecoded);
  };
  const bool isFirst = value(u"grant_type"_s) == u"authorization_code"_s;
  const QByteArray challenge =
      QCryptographicHash::hash(value(u"code_verifier"_s).toLatin1(), QCryptographicHash::Sha256)
          .toBase64(QByteArray::Base64UrlEncoding | QByteArray::OmitTrailingEquals);
  const bool isProved =
      question_.queryItemValue(u"code_challenge"_s).toLatin1() == challenge &&
      question_.queryItemValue(u"redirect_uri"_s, QUrl::FullyDecoded) == value(u"redirect_uri"_s);
  const QString grant = value(isFirst ? u"code"_s : u"refresh_token"_s);
  if (value(u"client_id"_s) != u"a client & more"_s) return {401, R"({"error":"invalid_client"})"};
  // Each counts only once.
  if ((isFirst && !isProved) || good_.erase(grant) == 0)
    return {400, R"({"error":"invalid_grant"})"};
  const QString number = QString::number(asked_);
  good_.insert(u"refresh"_s + number);
  return {200, (uR"({"access_token":"access%1","refresh_token":"refresh%1","expires_in":3600})"_s)
                   .arg(number)
                   .toStdString()};
}
