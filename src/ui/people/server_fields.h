// SPDX-License-Identifier: GPL-3.0-or-later
// The rows of a form that most people never need: a mail account's servers, its user name and its
// token command.
#pragma once

#include <QObject>

#include <vector>

#include "platform/mail_account.h"

class QComboBox;
class QLineEdit;
class QSpinBox;

namespace ui {

class FormRows;

class ServerFields : public QObject {
  Q_OBJECT

 public:
  /// Adds the rows to the form.
  ServerFields(FormRows* form, QObject* parent);

  void SetVisible(bool visible);
  void ShowAccount(const platform::MailAccount& account);
  void FillIn(platform::MailAccount& account) const;
  void ClearTokenCommand();

 Q_SIGNALS:
  /// The user has changed a server or the user name; or the token command.
  void ServersEdited();
  void TokenCommandEdited();

 private:
  struct Server {
    QLineEdit* host;
    QSpinBox* port;
    QComboBox* security;
  };

  static Server NewServer(const QString& protocol);

  FormRows* form_;
  Server imap_;
  Server smtp_;
  QLineEdit* userName_;
  QLineEdit* tokenCommand_;
  std::vector<int> rows_;
};

}  // namespace ui
