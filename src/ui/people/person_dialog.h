// SPDX-License-Identifier: GPL-3.0-or-later
// One person of the address book: his name, and his address, or several with commas between.
#pragma once

#include <QDialog>

#include <functional>
#include <string>

#include "platform/address_book.h"

class QLineEdit;
class QPushButton;

namespace ui {

class OutcomeLine;

class PersonDialog : public QDialog {
  Q_OBJECT

 public:
  using IsUsable = std::function<bool(const std::string& address)>;

  PersonDialog(const QString& title, const platform::Person& person, IsUsable isUsable,
               QWidget* parent = nullptr);

  platform::Person Answer() const;

 private:
  void Refresh();

  IsUsable isUsable_;
  QLineEdit* name_;
  QLineEdit* addresses_;
  OutcomeLine* outcome_;
  QPushButton* ok_;
};

}  // namespace ui
