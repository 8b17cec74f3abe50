// SPDX-License-Identifier: GPL-3.0-or-later
// The question of the first logon: who the user is to his opponents, with the local post office
// already chosen.
#pragma once

#include <QDialog>

#include <optional>
#include <string>

class QLineEdit;
class QPushButton;

namespace ui {

struct AccountAnswer {
  std::string name;
  std::string address;
  std::string postFolder;  ///< ends in "/"
};

class AccountDialog : public QDialog {
  Q_OBJECT

 public:
  explicit AccountDialog(const AccountAnswer& suggestion, QWidget* parent = nullptr);

  AccountAnswer Answer() const;

 private:
  void LayOut();
  void Browse();
  void Refresh();

  QLineEdit* name_;
  QLineEdit* address_;
  QLineEdit* postFolder_;
  QPushButton* ok_ = nullptr;
};

/// Runs the dialog; nothing where the user cancels.
std::optional<AccountAnswer> AskForAccount(const AccountAnswer& suggestion);

}  // namespace ui
