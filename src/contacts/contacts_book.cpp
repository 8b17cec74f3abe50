// SPDX-License-Identifier: GPL-3.0-or-later
#include "contacts/contacts_book.h"

#include <QString>

#include <algorithm>
#include <exception>
#include <map>
#include <optional>
#include <set>
#include <utility>

#include "letters/mail_text.h"
#include "platform/ascii.h"
#include "platform/process_state.h"
#include "platform/seams.h"
#include "platform/whole_file.h"

namespace contacts {

using platform::BookEntry;
using platform::Person;
using platform::Recipient;

namespace {

std::string PathOf(const char* name) { return platform::Process().DataPath + name; }

/// As it is compared: without regard to the case of letters.
QString CaseFolded(const std::string& text) {
  return QString::fromStdString(text).trimmed().toCaseFolded();
}

VCards ReadBook() {
  const std::string path = PathOf(platform::addressBookFile);
  return platform::TheFiles().Exists(path) ? ReadVCards(platform::TheFiles().Read(path)) : VCards{};
}

void ReplaceFile(const std::string& path, const std::string& content) {
  platform::ReplaceFile(path, content, PathOf("contacts.new"));
}

void SaveBook(const VCards& book) {
  const std::string path = PathOf(platform::addressBookFile);
  if (book.damaged > 0) ReplaceFile(PathOf("contacts.bak"), platform::TheFiles().Read(path));
  ReplaceFile(path, WriteVCards(book.cards));
}

/// The cards of a book, found by address.
class CardsByAddress {
 public:
  explicit CardsByAddress(std::vector<VCard>& cards) : cards_(cards) {
    for (std::size_t i = 0; i < cards.size(); ++i) Note(i, PersonOf(cards[i]));
  }

  /// False where the person is in the book already, by one of his addresses.
  bool Add(const VCard& card) {
    const Person person = PersonOf(card);
    for (const std::string& address : person.addresses) {
      const auto known = places_.find(CaseFolded(address));
      if (known == places_.end()) continue;
      Merge(known->second, person);
      return false;
    }
    cards_.push_back(card);
    Note(cards_.size() - 1, person);
    return true;
  }

 private:
  void Note(std::size_t place, const Person& person) {
    for (const std::string& address : person.addresses) places_.emplace(CaseFolded(address), place);
  }

  void Merge(std::size_t place, const Person& person) {
    Person merged = PersonOf(cards_[place]);
    const bool hasName = !platform::SameWithoutCase(merged.name, merged.addresses.front());
    if (!hasName) merged.name = person.name;
    for (const std::string& address : person.addresses) {
      if (places_.emplace(CaseFolded(address), place).second) merged.addresses.push_back(address);
    }
    cards_[place] = WithPerson(std::move(cards_[place]), merged);
  }

  std::vector<VCard>& cards_;
  std::map<QString, std::size_t> places_;
};

/// The person as he may stand in the book.
Person Fit(Person person) {
  person.name =
      QString::fromStdString(letters::WithoutReserved(person.name)).simplified().toStdString();
  return PersonOf(NewVCard(person));
}

std::vector<VCard>::iterator FindCard(std::vector<VCard>& cards, const Person& person) {
  return std::find_if(cards.begin(), cards.end(),
                      [&person](const VCard& card) { return PersonOf(card) == person; });
}

void AppendPastOpponents(std::vector<BookEntry>& people, const std::vector<Recipient>& opponents) {
  std::set<QString> known;
  for (const BookEntry& entry : people) {
    for (const std::string& address : entry.person.addresses) known.insert(CaseFolded(address));
  }
  for (const auto& [name, address] : opponents) {
    const Person person = Fit({name, {address}});
    if (person.addresses.empty() || !known.insert(CaseFolded(address)).second) continue;
    people.push_back({person, false});
  }
}

/// "Eva Muster <eva@example.org>" or a bare address.
std::optional<Recipient> TypedAddress(const QString& typed) {
  const QString text = typed.trimmed();
  QString name = text, address = text;
  const qsizetype begin = text.lastIndexOf(u'<');
  if (begin >= 0 && text.endsWith(u'>')) {
    address = text.sliced(begin + 1).chopped(1).trimmed();
    name = text.first(begin).remove(u'"').trimmed();
    if (name.isEmpty()) name = address;
  }
  if (!IsUsableAddress(address.toStdString())) return std::nullopt;
  return Recipient{letters::WithoutReserved(name.toStdString()), address.toStdString()};
}

/// Whether `typed` is how a name, a word of it or an address begins.
bool Begins(const QString& text, const QString& typed) {
  return text.startsWith(typed) || text.contains(u' ' + typed);
}

}  // namespace

ContactsBook::ContactsBook(PastOpponents pastOpponents)
    : pastOpponents_(std::move(pastOpponents)) {}

bool ContactsBook::IsUsableAddress(const std::string& address) {
  return contacts::IsUsableAddress(address);
}

std::vector<BookEntry> ContactsBook::People() {
  std::vector<BookEntry> people;
  for (const VCard& card : ReadBook().cards) {
    Person person = PersonOf(card);
    if (!person.addresses.empty()) people.push_back({std::move(person), true});
  }
  if (pastOpponents_) AppendPastOpponents(people, pastOpponents_());
  std::stable_sort(people.begin(), people.end(), [](const BookEntry& a, const BookEntry& b) {
    return CaseFolded(a.person.name) < CaseFolded(b.person.name);
  });
  return people;
}

std::vector<Recipient> ContactsBook::Matches(const std::string& typed) {
  const auto address = TypedAddress(QString::fromStdString(typed));
  const QString wanted = CaseFolded(address ? address->address : typed);
  if (wanted.isEmpty()) return {};
  std::vector<Recipient> exact, similar;
  for (const BookEntry& entry : People()) {
    const QString name = CaseFolded(entry.person.name);
    for (const std::string& own : entry.person.addresses) {
      const QString folded = CaseFolded(own);
      if (name == wanted || folded == wanted) {
        exact.push_back({entry.person.name, own});
      } else if (Begins(name, wanted) || folded.startsWith(wanted)) {
        similar.push_back({entry.person.name, own});
      }
    }
  }
  if (!exact.empty()) return exact;
  if (address) return {*address};
  return similar;
}

void ContactsBook::Add(const Person& person) {
  const Person fit = Fit(person);
  if (fit.addresses.empty()) return;
  VCards book = ReadBook();
  CardsByAddress(book.cards).Add(NewVCard(fit));
  SaveBook(book);
}

void ContactsBook::Change(const Person& before, const Person& after) {
  const Person fit = Fit(after);
  if (fit.addresses.empty()) return;
  VCards book = ReadBook();
  const auto card = FindCard(book.cards, before);
  if (card == book.cards.end()) return Add(after);
  *card = WithPerson(std::move(*card), fit);
  SaveBook(book);
}

void ContactsBook::Remove(const Person& person) {
  VCards book = ReadBook();
  const auto card = FindCard(book.cards, person);
  if (card == book.cards.end()) return;
  book.cards.erase(card);
  SaveBook(book);
}

platform::ImportOutcome ContactsBook::Import(const std::string& path) {
  const VCards imported = ReadVCards(platform::TheFiles().Read(path));
  platform::ImportOutcome outcome;
  outcome.leftOut = imported.damaged;
  VCards book = ReadBook();
  CardsByAddress byAddress(book.cards);
  for (const VCard& card : imported.cards) {
    if (PersonOf(card).addresses.empty()) {
      ++outcome.leftOut;
    } else {
      ++(byAddress.Add(card) ? outcome.added : outcome.known);
    }
  }
  if (outcome.added + outcome.known > 0) SaveBook(book);
  return outcome;
}

}  // namespace contacts
