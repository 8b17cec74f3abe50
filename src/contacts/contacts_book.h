// SPDX-License-Identifier: GPL-3.0-or-later
// The address book: "contacts.vcf" in the data folder, and the people of the stored games. The file
// is read anew each time and replaced whole, so no crash and no full disk can cost more than the
// change in hand. A file in which something was damaged is kept as "contacts.bak" when it is first
// replaced.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "contacts/vcard.h"
#include "platform/address_book.h"

namespace contacts {

class ContactsBook : public platform::AddressBook {
 public:
  /// Tells the opponents of the stored games, the last one first.
  using PastOpponents = std::function<std::vector<platform::Recipient>()>;

  explicit ContactsBook(PastOpponents pastOpponents);

  std::vector<platform::BookEntry> People() override;
  std::vector<platform::Recipient> Matches(const std::string& typed) override;
  bool IsUsableAddress(const std::string& address) override;
  void Add(const platform::Person& person) override;
  void Change(const platform::Person& before, const platform::Person& after) override;
  void Remove(const platform::Person& person) override;
  platform::ImportOutcome Import(const std::string& path) override;

 private:
  PastOpponents pastOpponents_;
};

}  // namespace contacts
