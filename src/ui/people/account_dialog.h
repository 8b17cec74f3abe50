// SPDX-License-Identifier: GPL-3.0-or-later
// The question of the first logon, and of whoever wants to change it later: who the user is to his
// opponents, and which way his mail takes. What belongs to another way than the chosen one isn't
// shown.
#pragma once

#include <QDialog>

#include <functional>
#include <optional>
#include <string>

#include "platform/mail_account.h"

class QBoxLayout;
class QButtonGroup;
class QCheckBox;
class QLabel;
class QLineEdit;
class QPushButton;
class QToolButton;

namespace ui {

class FormRows;
class OutcomeLine;
class ServerFields;

using platform::AccountAnswer;
using platform::MailAccount;

/// What an address tells about its provider.
struct ProviderGuess {
  MailAccount account;  ///< with the servers that the address suggests
  bool isKnown = false;
  std::string advice;  ///< what there is to say of it, such as what the provider wants for a
                       ///< password; may be blank
};

/// What the dialog has to ask others.
struct AccountHelp {
  /// Whether mail can be sent from and to the account's address.
  std::function<bool(const MailAccount&)> hasUsableAddress;

  std::function<ProviderGuess(const MailAccount&)> guess;

  /// Asks the network about a provider that isn't known, without making anybody wait, and tells a
  /// better guess, or one that isn't known either. Asked again, it may forget the question before.
  using Found = std::function<void(const ProviderGuess&)>;
  std::function<void(const MailAccount&, Found)> lookUp;

  std::function<bool(const MailAccount&)> hasKeptPassword;

  /// Tries the account out, without making anybody wait, and tells in a sentence what is wrong with
  /// it; a blank one where nothing is.
  using Told = std::function<void(const std::string& problem)>;
  std::function<void(const AccountAnswer&, Told)> test;

  /// Whose sign-in in the browser may stand for the account's password, and what keeps it from it.
  struct SignInOffer {
    std::string name;    ///< blank: nobody's
    std::string remark;  ///< may be blank
    bool isReady = false;
  };
  std::function<SignInOffer(const MailAccount&)> signInOffer;

  /// Has the user sign in with his browser, without making anybody wait, and tells what is to be
  /// kept in the place of a password, or what was wrong. One begun before ends.
  using SignedIn = std::function<void(const std::string& secret, const std::string& problem)>;
  std::function<void(const MailAccount&, const std::string& name, SignedIn)> signIn;

  /// What was begun interests nobody any more.
  std::function<void()> giveUp;
};

class AccountDialog : public QDialog {
  Q_OBJECT

 public:
  AccountDialog(const MailAccount& suggestion, AccountHelp help, QWidget* parent = nullptr);
  ~AccountDialog() override;

  AccountAnswer Answer() const;

 protected:
  bool event(QEvent* event) override;

 private:
  QWidget* NewPage();
  void AddKinds(QBoxLayout* page);
  void AddRows();
  void AddServerRows();
  void AddPageRow();
  QLayout* NewButtons();
  void Connect();

  std::string Kind() const;
  bool IsKind(const char* kind) const { return Kind() == kind; }
  QString WhatIsMissing() const;
  QString WhatIsWrong() const;

  void ChangeKind();
  void DropLocalAddress();
  void ChangeAddress();
  ProviderGuess Guess(const MailAccount& account) const;
  void GuessServers();
  void LookUpServers();
  bool IsLookingUp() const;
  void TellFound(const std::string& address, const ProviderGuess& found);
  QString NoteOn(const ProviderGuess& guess) const;
  void ShowProvider();
  void ShowRows();
  void Refresh();
  void FitHeight();
  void Browse();
  void Test();
  void TellOutcome(int test, const std::string& problem);
  void ShowSignIn();
  void SignIn();
  void TellSignedIn(int signIn, const std::string& name, const std::string& secret,
                    const std::string& problem);

  MailAccount suggestion_;
  AccountHelp help_;
  bool serversAreGuessed_;
  bool isOpen_ = false;       // the fold with the server settings
  bool foldIsUsers_ = false;  // he has opened or closed it himself
  std::string lookedUp_;      // the address that was last asked about
  bool lookingUp_ = false;
  ProviderGuess found_;  // for it
  bool testing_ = false;
  int tests_ = 0;  // the number of the last one; an older one's outcome interests nobody

  AccountHelp::SignInOffer offer_;
  std::string signIn_;  // whose sign-in stands for the password; blank: none
  std::string secret_;  // what it left; blank: what is kept
  bool signingIn_ = false;
  int signIns_ = 0;  // the number of the last one

  QButtonGroup* kinds_;
  QLabel* explanation_;
  FormRows* form_;
  QLineEdit* name_;
  QLineEdit* address_;
  QLineEdit* postFolder_;
  QLineEdit* password_;
  QPushButton* signInButton_;
  QLabel* signInNote_;
  QLabel* providerNote_;
  QToolButton* fold_;
  QCheckBox* sendPage_;
  ServerFields* servers_ = nullptr;
  int postFolderRow_ = 0;
  int passwordRow_ = 0;
  int signInRow_ = 0;
  int signInNoteRow_ = 0;
  int noteRow_ = 0;
  int foldRow_ = 0;
  OutcomeLine* outcome_;
  QPushButton* test_;
  QPushButton* ok_;
};

/// Runs the dialog; nothing where the user cancels.
std::optional<AccountAnswer> AskForAccount(const MailAccount& suggestion, const AccountHelp& help);

}  // namespace ui
