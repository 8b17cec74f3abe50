// SPDX-License-Identifier: GPL-3.0-or-later
// Offers the people of an address book below a field, as soon as a part of a name or of an address
// is typed there.
#pragma once

#include <QCompleter>

#include <vector>

#include "platform/address_book.h"

class QLineEdit;

namespace ui {

class PeopleCompleter : public QCompleter {
  Q_OBJECT

 public:
  enum class Part { Name, Address };

  /// Belongs to the field, which gets that part of whoever is taken.
  PeopleCompleter(const std::vector<platform::Recipient>& people, Part part, QLineEdit* field);

 Q_SIGNALS:
  void Taken(const QString& name, const QString& address);
};

/// All people of the process's address book, a line to each address; nobody where it can't be read.
std::vector<platform::Recipient> PeopleOfBook();

}  // namespace ui
