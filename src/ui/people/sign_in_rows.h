// SPDX-License-Identifier: GPL-3.0-or-later
// The rows of a form by which a user signs in at his mail provider, with his browser, instead of
// typing a password.
#pragma once

#include <QObject>

#include <string>

#include "ui/people/account_help.h"

class QLabel;
class QLineEdit;
class QPushButton;

namespace ui {

class FormRows;

class SignInRows : public QObject {
  Q_OBJECT

 public:
  /// Adds the rows to the form. `name` is whose sign-in stands for the password so far, blank for
  /// nobody's. `help` must outlive the rows.
  SignInRows(FormRows* form, const AccountHelp& help, std::string name, QObject* parent);

  /// Whose sign-in stands for the password; blank: nobody's.
  const std::string& Name() const { return name_; }

  /// What it left; blank: what is kept, and for another mailbox than it was for.
  std::string SecretFor(const MailAccount& account) const;

  /// Whether a sign-in stands for the password of the mailbox that is typed by now.
  bool IsSignedIn() const;

  bool IsOffered() const { return offer_.isReady; }
  bool IsUnderWay() const { return isUnderWay_; }

  /// Shows what the account's provider offers beside a password; nothing where `wanted` is false.
  void ShowFor(const MailAccount& account, bool wanted);

  /// How the sign-in stands to the account as it is typed by now. What is under way for another
  /// mailbox is given up.
  void Follow(const MailAccount& account);

  /// By which name the servers know the owner of the address.
  void TakeUserName(const MailAccount& found);

  /// Whether the provider takes the sign-in that stands for the password no more.
  void TellLapsed(bool hasLapsed);

  /// `isAgain` where a sign-in stands for the password already.
  void ShowCaption(bool isAgain);

  /// Opens the browser; Ended tells how it went.
  void Begin(const MailAccount& account);

  /// What is under way interests nobody any more.
  void GiveUp();

 Q_SIGNALS:
  void Pressed();
  /// A blank problem: the user is signed in.
  void Ended(const std::string& problem);

 private:
  void ShowNote();
  void ShowPage(int number, const std::string& url);
  void TakeEnd(int number, const std::string& name, const std::string& secret,
               const std::string& problem);

  FormRows* form_;
  const AccountHelp& help_;
  AccountHelp::SignInOffer offer_;
  MailAccount account_;  // as it is typed by now
  MailAccount asked_;    // whose sign-in was begun last
  std::string name_;
  std::string secret_;
  MailAccount owner_;  // of the secret
  bool hasLapsed_;
  bool isUnderWay_ = false;
  int number_ = 0;  // of the last one; an older one's end interests nobody
  QPushButton* button_;
  QLabel* note_;
  QLineEdit* page_;
  QPushButton* copy_;
  int buttonRow_;
  int noteRow_;
  int pageRow_;
};

}  // namespace ui
