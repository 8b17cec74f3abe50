// SPDX-License-Identifier: GPL-3.0-or-later
#include "sign_in/browser_redirect.h"

#include <QHostAddress>
#include <QTcpSocket>
#include <QTimer>
#include <QUrl>
#include <QUrlQuery>

#include <algorithm>
#include <utility>

#include "platform/mail_client.h"

namespace sign_in {
namespace {

using namespace Qt::StringLiterals;

/// No browser's question is longer.
constexpr qsizetype longestRequest = 65536;

std::string PageSaying(const char* status, const char* text) {
  const std::string page = std::string(
                               "<!DOCTYPE html>\n<html lang=\"en\"><head><meta charset=\"utf-8\">"
                               "<title>Tarvolenix</title></head>\n<body><p>") +
                           text + "</p></body></html>\n";
  return std::string("HTTP/1.1 ") + status +
         "\r\nContent-Type: text/html; charset=utf-8\r\nContent-Length: " +
         std::to_string(page.size()) +
         "\r\nCache-Control: no-store\r\nReferrer-Policy: no-referrer\r\nConnection: "
         "close\r\n\r\n" +
         page;
}

void SendAway(QTcpSocket& visitor, const std::string& answer) {
  visitor.write(answer.data(), static_cast<qint64>(answer.size()));
  visitor.disconnectFromHost();
}

}  // namespace

BrowserRedirect::BrowserRedirect(std::string state) : state_(std::move(state)) {
  QObject::connect(&server_, &QTcpServer::newConnection, &server_, [this] {
    while (QTcpSocket* const visitor = server_.nextPendingConnection()) {
      QObject::connect(visitor, &QTcpSocket::readyRead, visitor,
                       [this, visitor] { Receive(visitor); });
      QObject::connect(visitor, &QTcpSocket::disconnected, visitor, &QObject::deleteLater);
    }
  });
  if (!server_.listen(QHostAddress::LocalHost)) {
    throw platform::MailError("This computer lets no browser come back to Tarvolenix.");
  }
}

/// Browsers open connections that they never use: each is heard for itself. Who is answered before
/// he has said all may lose the answer.
void BrowserRedirect::Receive(QTcpSocket* visitor) {
  if (!visitor->peek(longestRequest).contains("\r\n\r\n")) {
    if (visitor->bytesAvailable() > longestRequest) visitor->abort();
    return;
  }
  const std::string line = visitor->readLine(longestRequest).trimmed().toStdString();
  QObject::disconnect(visitor, &QTcpSocket::readyRead, visitor, nullptr);
  const bool isRight = Take(line);
  SendAway(*visitor, isRight ? PageSaying("200 OK",
                                          "Tarvolenix has heard from your provider. You may "
                                          "close this window.")
                             : PageSaying("404 Not Found", "Nobody asked for this page."));
}

/// True where the visitor is the right one, also where he comes again: what he said first counts.
bool BrowserRedirect::Take(const std::string& requestLine) {
  const QString line = QString::fromStdString(requestLine);
  if (!line.startsWith(u"GET /"_s)) return false;
  const QUrl url(line.section(u' ', 1, 1));
  const QUrlQuery query(url);
  const auto value = [&query](const QString& name) {
    return query.queryItemValue(name, QUrl::FullyDecoded).toStdString();
  };
  if (url.path() != u"/"_s || value(u"state"_s) != state_) return false;
  Visit visit{value(u"code"_s), value(u"error"_s), value(u"error_description"_s)};
  std::replace(visit.description.begin(), visit.description.end(), '+', ' ');
  if (visit.code.empty() && visit.error.empty()) return false;
  if (!visit_) visit_ = std::move(visit);
  return true;
}

std::optional<BrowserRedirect::Visit> BrowserRedirect::Await(std::chrono::milliseconds longest,
                                                             const post::Patience& patience) {
  constexpr std::chrono::milliseconds slice(50);  // how soon a hurry is noticed
  const auto end = post::Patience::Clock::now() + longest;
  QTimer ticking;
  ticking.start(slice);
  while (!visit_ && !patience.IsOver() && post::Patience::Clock::now() < end) {
    loop_.processEvents(QEventLoop::WaitForMoreEvents);
  }
  for (QTcpSocket* visitor : server_.findChildren<QTcpSocket*>()) {
    if (visitor->bytesToWrite() > 0) visitor->waitForBytesWritten(1000);
  }
  return visit_;
}

}  // namespace sign_in
