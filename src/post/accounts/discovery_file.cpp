// SPDX-License-Identifier: GPL-3.0-or-later
#include "post/accounts/discovery_file.h"

#include <QHash>
#include <QXmlStreamReader>

#include <tuple>

#include "letters/mail_text.h"
#include "post/accounts/domain_names.h"

namespace post {
namespace {

using namespace Qt::StringLiterals;

using Fields = QHash<QString, QString>;

struct Server {
  std::string host;
  int port;
  std::string security;
  std::string userName;
};

QString Filled(QString text, const std::string& address) {
  const QString whole = QString::fromStdString(address);
  return text.replace(u"%EMAILADDRESS%"_s, whole)
      .replace(u"%EMAILLOCALPART%"_s, whole.section(u'@', 0, -2))
      .replace(u"%EMAILDOMAIN%"_s, whole.section(u'@', -1));
}

Fields ReadFields(QXmlStreamReader& xml, const std::string& address) {
  Fields fields;
  while (xml.readNextStartElement()) {
    const QString name = xml.name().toString();
    const QString text = xml.readElementText(QXmlStreamReader::SkipChildElements).trimmed();
    if (!fields.contains(name)) fields[name] = Filled(text, address);
  }
  return fields;
}

std::string SecurityNamed(const QString& socketType) {
  if (socketType == u"SSL"_s) return "Tls";
  return socketType == u"STARTTLS"_s ? "StartTls" : "";
}

/// Nothing where it can't be used, as without encryption.
std::optional<Server> ServerIn(const Fields& fields) {
  Server server{fields[u"hostname"_s].toStdString(), fields[u"port"_s].toUShort(),
                SecurityNamed(fields[u"socketType"_s]),
                letters::WithoutReserved(fields[u"username"_s].toStdString())};
  if (!IsServerName(server.host) || server.port == 0 || server.security.empty()) return {};
  return server;
}

}  // namespace

std::optional<MailAccount> WithConfiguration(const std::string& file, MailAccount account) {
  QXmlStreamReader xml(QByteArray::fromStdString(file));
  std::optional<Server> imap;
  std::optional<Server> smtp;
  while (!xml.atEnd()) {
    if (xml.readNext() != QXmlStreamReader::StartElement) continue;
    const auto type = xml.attributes().value(u"type"_s);
    const bool incoming = xml.name() == u"incomingServer"_s && type == u"imap"_s;
    const bool outgoing = xml.name() == u"outgoingServer"_s && type == u"smtp"_s;
    std::optional<Server>& server = incoming ? imap : smtp;
    if ((incoming || outgoing) && !server) server = ServerIn(ReadFields(xml, account.MyAddress));
  }
  if (xml.hasError() || !imap || !smtp) return std::nullopt;
  std::tie(account.ImapHost, account.ImapPort, account.ImapSecurity) =
      std::tie(imap->host, imap->port, imap->security);
  std::tie(account.SmtpHost, account.SmtpPort, account.SmtpSecurity) =
      std::tie(smtp->host, smtp->port, smtp->security);
  account.UserName = imap->userName.empty() ? account.MyAddress : imap->userName;
  return account;
}

}  // namespace post
