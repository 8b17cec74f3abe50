// SPDX-License-Identifier: GPL-3.0-or-later
// The seam to the user's address book: the people he has played with, and those he has written into
// it or imported. Names and addresses come without control characters and without "|". What can't
// be read or stored raises FileError, and nothing has changed then.
#pragma once

#include <string>
#include <vector>

namespace platform {

/// Its name, in the folder of the games.
inline constexpr const char* addressBookFile = "contacts.vcf";

struct Person {
  std::string name;  ///< his first address where he has no name
  std::vector<std::string> addresses;

  bool operator==(const Person&) const = default;
};

/// One person at one of his addresses.
struct Recipient {
  std::string name;
  std::string address;

  bool operator==(const Recipient&) const = default;
};

struct BookEntry {
  Person person;
  bool isWritten = true;  ///< false for one who is known from games only: he can't be removed
};

/// What became of the entries of an imported file.
struct ImportOutcome {
  int added = 0;
  int known = 0;    ///< one of the addresses stood in the book; the others were added to it
  int leftOut = 0;  ///< damaged, or without an address that can be used
};

class AddressBook {
 public:
  virtual ~AddressBook() = default;

  /// All people who have an address, by name.
  virtual std::vector<BookEntry> People() = 0;

  /// Whom a user can mean by what he typed: those of that name or address, else those who have a
  /// name or an address that begins so, else the typed address itself.
  virtual std::vector<Recipient> Matches(const std::string& typed) = 0;

  virtual bool IsUsableAddress(const std::string& address) = 0;

  /// A person one of whose addresses is in the book is the one who is there, and gets the others.
  virtual void Add(const Person& person) = 0;

  /// One who isn't written into the book is added.
  virtual void Change(const Person& before, const Person& after) = 0;
  virtual void Remove(const Person& person) = 0;

  /// Adds the people of a file that another program has exported.
  virtual ImportOutcome Import(const std::string& path) = 0;
};

}  // namespace platform
