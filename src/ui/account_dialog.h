// SPDX-License-Identifier: GPL-3.0-or-later
// The question of the first logon, and of whoever wants to change it later: who the user is to his
// opponents, with the local post office already chosen.
#pragma once

#include <QDialog>

#include <functional>
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

/// Whether mail can be sent from and to an address.
using AddressCheck = std::function<bool(const std::string& address)>;

class AccountDialog : public QDialog {
  Q_OBJECT

 public:
  AccountDialog(const AccountAnswer& suggestion, AddressCheck isAddress, QWidget* parent = nullptr);

  AccountAnswer Answer() const;

 private:
  void LayOut();
  void Browse();
  void Refresh();

  AddressCheck isAddress_;
  QLineEdit* name_;
  QLineEdit* address_;
  QLineEdit* postFolder_;
  QPushButton* ok_ = nullptr;
};

/// Runs the dialog; nothing where the user cancels.
std::optional<AccountAnswer> AskForAccount(const AccountAnswer& suggestion,
                                           const AddressCheck& isAddress);

}  // namespace ui
