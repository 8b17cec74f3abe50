// SPDX-License-Identifier: GPL-3.0-or-later
// Files of vCards, in which address books keep and exchange people. Written are versions 3.0 and
// 4.0 as they came, and 3.0 for new people; read is also what older programs write (2.1, with
// quoted-printable and other charsets). Of a card the name and the mail addresses are understood;
// everything else stays as it was, line by line.
//
// The file is a row of cards between the lines BEGIN:VCARD and END:VCARD. Between them each
// property is a line "[group.]NAME[;parameter...]:value", which may be folded: a line that begins
// with a blank or a tab continues the one ahead of it.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "platform/address_book.h"

namespace contacts {

struct VCard {
  /// One property as it stands in the file, with its folds; lines end in CR LF.
  std::vector<std::string> properties;
};

struct VCards {
  std::vector<VCard> cards;
  int damaged = 0;  ///< cards without an end; they aren't among the others
};

/// Line ends may be any; control characters become blanks.
VCards ReadVCards(std::string_view file);

std::string WriteVCards(const std::vector<VCard>& cards);

/// The name and the addresses that can be used, in the order of the card and without repetition,
/// whatever their case: nobody gives two people addresses that differ by nothing else. Without a
/// name he is called by the first address.
platform::Person PersonOf(const VCard& card);

VCard NewVCard(const platform::Person& person);

/// The card with this name and these addresses in place of its own. Those that were there already
/// keep what the card says of them.
VCard WithPerson(VCard card, const platform::Person& person);

/// What fits into a mail's header and a game's record.
bool IsUsableAddress(std::string_view address);

}  // namespace contacts
