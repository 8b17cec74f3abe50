// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/people/server_fields.h"

#include <QComboBox>
#include <QLineEdit>
#include <QSignalBlocker>
#include <QSpinBox>

#include <algorithm>
#include <utility>

#include "widgets/form_rows.h"
#include "widgets/shown_text.h"
#include "widgets/typed_text.h"

namespace ui {

using namespace Qt::StringLiterals;

namespace {

struct Security {
  const char* value;  ///< as it is stored
  const char* caption;
  int imapPort;
  int smtpPort;
};

constexpr Security securities[] = {
    {"Tls", "TLS", 993, 465},
    {"StartTls", "STARTTLS", 143, 587},
    {"None", "None (this computer only)", 143, 25},
};

QLineEdit* NewLine(const QString& name, const QString& toolTip) {
  auto* line = new QLineEdit;
  line->setObjectName(name);
  line->setToolTip(toolTip);
  return line;
}

/// Follows the security to its usual port, unless the user has chosen an unusual one.
void FollowSecurity(const QComboBox* security, QSpinBox* port, int Security::*usual) {
  const QSignalBlocker quiet(port);
  for (const Security& other : securities) {
    if (port->value() != other.*usual) continue;
    port->setValue(securities[security->currentIndex()].*usual);
    return;
  }
}

}  // namespace

ServerFields::ServerFields(FormRows* form, QObject* parent)
    : QObject(parent),
      form_(form),
      imap_(NewServer(u"Imap"_s)),
      smtp_(NewServer(u"Smtp"_s)),
      userName_(
          NewLine(u"UserName"_s, u"What the servers know you by: mostly the whole address"_s)),
      tokenCommand_(NewLine(u"TokenCommand"_s,
                            u"For a provider that wants a sign-in token (OAuth 2) instead of a "
                            u"password: a command that prints it. Else leave it empty."_s)) {
  for (const auto& [server, usual] :
       {std::pair(imap_, &Security::imapPort), std::pair(smtp_, &Security::smtpPort)}) {
    connect(server.host, &QLineEdit::textEdited, this, &ServerFields::ServersEdited);
    connect(server.port, &QSpinBox::valueChanged, this, &ServerFields::ServersEdited);
    connect(server.security, &QComboBox::activated, this, [this, server = server, usual = usual] {
      FollowSecurity(server.security, server.port, usual);
      Q_EMIT ServersEdited();
    });
  }
  connect(userName_, &QLineEdit::textEdited, this, &ServerFields::ServersEdited);
  connect(tokenCommand_, &QLineEdit::textEdited, this, &ServerFields::TokenCommandEdited);
  KeepFitForFields(userName_);
  tokenCommand_->setPlaceholderText(u"none: the password counts"_s);
  rows_ = {form->AddRow(u"&Incoming (IMAP):"_s, {imap_.host, imap_.port, imap_.security}),
           form->AddRow(u"&Outgoing (SMTP):"_s, {smtp_.host, smtp_.port, smtp_.security}),
           form->AddRow(u"&User name:"_s, {userName_}),
           form->AddRow(u"To&ken command:"_s, {tokenCommand_})};
}

ServerFields::Server ServerFields::NewServer(const QString& protocol) {
  const Server server{NewLine(protocol + u"Host"_s, u"The server's name"_s), new QSpinBox,
                      new QComboBox};
  KeepFitForFields(server.host);
  server.port->setObjectName(protocol + u"Port"_s);
  server.port->setAccessibleName(protocol.toUpper() + u" port"_s);
  server.port->setToolTip(u"The server's port"_s);
  server.port->setPrefix(u"Port "_s);
  server.port->setRange(1, 65535);
  server.port->setButtonSymbols(QSpinBox::NoButtons);
  server.security->setObjectName(protocol + u"Security"_s);
  server.security->setAccessibleName(protocol.toUpper() + u" encryption"_s);
  server.security->setToolTip(
      u"How the connection is encrypted. Without encryption, only a server on this computer is "
      u"spoken to."_s);
  // A large font must leave the window on a small screen; the list shows the longest one whole.
  server.security->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
  server.security->setMinimumContentsLength(8);
  for (const Security& security : securities) {
    server.security->addItem(QLatin1StringView(security.caption),
                             QLatin1StringView(security.value));
  }
  return server;
}

void ServerFields::SetVisible(bool visible) {
  for (const int row : rows_) form_->ShowRow(row, visible);
}

void ServerFields::ShowAccount(const platform::MailAccount& account) {
  const auto show = [](const Server& server, const std::string& host, int port,
                       const std::string& security) {
    const QSignalBlocker quiet(server.port);
    server.host->setText(AsItIs(host));
    server.port->setValue(port);
    server.security->setCurrentIndex(std::max(0, server.security->findData(AsItIs(security))));
  };
  show(imap_, account.ImapHost, account.ImapPort, account.ImapSecurity);
  show(smtp_, account.SmtpHost, account.SmtpPort, account.SmtpSecurity);
  userName_->setText(AsItIs(account.UserName));
  tokenCommand_->setText(AsItIs(account.TokenCommand));
}

void ServerFields::FillIn(platform::MailAccount& account) const {
  const auto text = [](const QLineEdit* line) { return line->text().trimmed().toStdString(); };
  const auto security = [](const Server& server) {
    return server.security->currentData().toString().toStdString();
  };
  account.ImapHost = text(imap_.host);
  account.ImapPort = imap_.port->value();
  account.ImapSecurity = security(imap_);
  account.SmtpHost = text(smtp_.host);
  account.SmtpPort = smtp_.port->value();
  account.SmtpSecurity = security(smtp_);
  account.UserName = text(userName_);
  account.TokenCommand = text(tokenCommand_);
}

void ServerFields::ClearTokenCommand() { tokenCommand_->clear(); }

}  // namespace ui
