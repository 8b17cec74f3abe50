// SPDX-License-Identifier: GPL-3.0-or-later
// Address books of other programs: what is read is written so that it reads the same, and whoever
// gets a new name and another address is found under them from then on.
#include <algorithm>

#include "contacts/vcard.h"
#include "fuzz/fuzz.h"

namespace {

using contacts::VCard;

void RequireSameWhenWritten(const std::vector<VCard>& cards) {
  const contacts::VCards again = contacts::ReadVCards(contacts::WriteVCards(cards));
  Require(again.damaged == 0 &&
          std::equal(cards.begin(), cards.end(), again.cards.begin(), again.cards.end(),
                     [](auto& a, auto& b) { return a.properties == b.properties; }));
}

void TryCard(const VCard& card) {
  platform::Person person = contacts::PersonOf(card);
  for (const std::string& address : person.addresses) Require(contacts::IsUsableAddress(address));
  person.name = "Eva, \\ Muster; geb. Ä";
  person.addresses.emplace_back(
      "a.rather.long.address.that.is.folded.when.it.is.written@example.org");
  const VCard changed = contacts::WithPerson(card, person);
  Require(contacts::PersonOf(changed) == person);
  RequireSameWhenWritten({changed});
}

}  // namespace

void TryInput(std::string_view input) {
  const contacts::VCards read = contacts::ReadVCards(input);
  RequireSameWhenWritten(read.cards);
  for (const VCard& card : read.cards) TryCard(card);
}
