// SPDX-License-Identifier: GPL-3.0-or-later
// The question of the first logon, and of whoever wants to change it later: who the user is to his
// opponents, and which way his mail takes. What belongs to another way than the chosen one isn't
// shown.
#pragma once

#include <QDialog>

#include <optional>
#include <string>

#include "ui/people/account_help.h"

class QCheckBox;
class QLabel;
class QLineEdit;
class QPushButton;
class QToolButton;

namespace ui {

class FormRows;
class MailKinds;
class OutcomeLine;
class ProviderSearch;
class ServerFields;
class SignInRows;

class AccountDialog : public QDialog {
  Q_OBJECT

 public:
  AccountDialog(const MailAccount& suggestion, AccountHelp help, QWidget* parent = nullptr);
  ~AccountDialog() override;

  /// Begins to sign in, where that is offered, as its button does.
  void BeginSignIn();

  AccountAnswer Answer() const;

 protected:
  bool event(QEvent* event) override;

 private:
  QWidget* NewPage();
  void AddRows();
  void AddServerRows();
  void AddPageRow();
  QLayout* NewButtons();
  void Connect();

  bool IsKind(const char* kind) const;
  QString WhatIsMissing() const;
  bool HasWholePath() const;
  QString WhatIsWrong() const;

  void ChangeKind();
  void DropLocalAddress();
  void ChangeAddress();
  void ChangeSecret();
  void GuessServers();
  void LookUpServers();
  bool IsLookingUp() const;
  void TellFound(const std::string& address, bool isFound);
  QString ProviderNote() const;
  void ShowNote();
  void ShowProvider();
  void ShowRows();
  void Refresh();
  void FitHeight();
  void Browse();
  void Test();
  void TellOutcome(int test, const std::string& problem, bool wantsSignIn);
  void SignIn();
  void TellSignedIn(const std::string& problem);

  MailAccount suggestion_;
  AccountHelp help_;
  bool serversAreGuessed_;
  bool isOpen_ = false;       // the fold with the server settings
  bool foldIsUsers_ = false;  // he has opened or closed it himself
  bool testing_ = false;
  int tests_ = 0;  // the number of the last one; an older one's outcome interests nobody

  ProviderSearch* search_;
  MailKinds* kinds_;
  FormRows* form_;
  QLineEdit* name_;
  QLineEdit* address_;
  QLineEdit* postFolder_;
  QLineEdit* password_;
  QLabel* providerNote_;
  QToolButton* fold_;
  QCheckBox* sendPage_;
  SignInRows* signIn_ = nullptr;
  ServerFields* servers_ = nullptr;
  int postFolderRow_ = 0;
  int passwordRow_ = 0;
  int noteRow_ = 0;
  int foldRow_ = 0;
  OutcomeLine* outcome_;
  QPushButton* test_;
  QPushButton* ok_;
};

/// What the user has come to the dialog for.
enum class AccountErrand { LookOver, SignIn };

/// Runs the dialog; nothing where the user cancels.
std::optional<AccountAnswer> AskForAccount(const MailAccount& suggestion, const AccountHelp& help,
                                           AccountErrand errand = AccountErrand::LookOver);

}  // namespace ui
