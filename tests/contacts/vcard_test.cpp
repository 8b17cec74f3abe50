// SPDX-License-Identifier: GPL-3.0-or-later
// A museum of cards as address books write them, and the book that keeps them.
#include "contacts/vcard.h"

#include <gtest/gtest.h>

#include <sstream>

#include "contacts/contacts_book.h"
#include "fakes/fake_desktop.h"
#include "platform/process_state.h"
#include "shell/past_opponents.h"
#include "store/saving.h"

namespace {

using contacts::ContactsBook;
using platform::FileError;
using platform::Person;
using platform::Recipient;

std::string Card(const std::string& lines) { return "BEGIN:VCARD\n" + lines + "END:VCARD\n"; }

/// "name: address, address; name: ..."
std::string Said(const Person& person) {
  std::string text = person.name + ":";
  for (const std::string& address : person.addresses) text += " " + address;
  return text;
}

std::string Said(const contacts::VCards& read) {
  std::string text;
  for (const auto& card : read.cards) text += (text.empty() ? "" : "; ") + Said(PersonOf(card));
  if (read.damaged > 0) text += " (" + std::to_string(read.damaged) + " damaged)";
  return text;
}

struct CardCase {
  const char* name;
  std::string file;
  const char* said;
};

TEST(VCardTest, Museum) {
  const CardCase rows[] = {
      {"version 4.0, addresses as links, a quoted parameter with a colon",
       Card("VERSION:4.0\nFN:Eva\nEMAIL;X=\"a:b\";PREF=1:mailto:eva@example.org\n"),
       "Eva: eva@example.org"},
      {"CR LF, a byte order mark, names of any case, blanks around, groups",
       "\xEF\xBB\xBF"
       "begin:vcard\r\nfn:Eva\r\nitem1.Email:eva@example.org \r\n"
       "item1.X-ABLabel:work\r\nEnd:VCard\r\n",
       "Eva: eva@example.org"},
      {"a line folded within a word and within an address",
       Card("VERSION:3.0\nFN:Eva Mus\n ter\nEMAIL:eva@exam\n\tple.org\n"),
       "Eva Muster: eva@example.org"},
      {"quoted-printable with soft breaks, in another charset",
       Card("VERSION:2.1\nFN;CHARSET=ISO-8859-1;ENCODING=QUOTED-PRINTABLE:J=FCrgen =\nM=FCller\n"
            "EMAIL;INTERNET:j@x.org\n"),
       "Jürgen Müller: j@x.org"},
      {"bytes that are no UTF-8", Card("FN:J\xFCrgen\nEMAIL:j@x.org\n"), "Jürgen: j@x.org"},
      {"escaped characters", Card("VERSION:3.0\nFN:Muster\\, Eva\\; the\\nElder\nEMAIL:e@x.org\n"),
       "Muster, Eva; the Elder: e@x.org"},
      {"a name in parts only", Card("N:Muster;Eva;Maria;Dr.;\nEMAIL:e@x.org\n"),
       "Dr. Eva Maria Muster: e@x.org"},
      {"what would damage a game", Card("FN:E|va\t\x01M\nEMAIL:e|va@x.org\nEMAIL:e@x.org\n"),
       "E va  M: e@x.org"},
      {"a header's line smuggled into an address", Card("FN:Eva\nEMAIL:e@x.org\\nBcc:f@x.org\n"),
       "Eva:"},
      {"a card that another one cuts off", "BEGIN:VCARD\nFN:Max\n" + Card("FN:E\nEMAIL:e@x.org\n"),
       "E: e@x.org (1 damaged)"},
  };
  for (const CardCase& row : rows)
    EXPECT_EQ(Said(contacts::ReadVCards(row.file)), row.said) << row.name;
}

TEST(VCardTest, WhatIsntUnderstoodStaysAsItWas) {
  const std::string picture = "PHOTO;ENCODING=b:AAAA\r\n BBBB\r\n";
  const std::string file = "BEGIN:VCARD\r\nVERSION:4.0\r\nFN:Eva\r\nN:Muster;Eva;;;\r\n" + picture +
                           "item1.EMAIL;TYPE=work:e@x.org\r\nEMAIL:old@x.org\r\n"
                           "X-SHOE-SIZE:39\r\nEND:VCARD\r\n";
  auto cards = contacts::ReadVCards(file).cards;
  ASSERT_EQ(contacts::WriteVCards(cards), file);

  const Person changed{"Eva", {"new@x.org", "e@x.org"}};
  cards[0] = WithPerson(cards[0], changed);
  const std::string written = contacts::WriteVCards(cards);
  EXPECT_EQ(Said(contacts::ReadVCards(written)), "Eva: new@x.org e@x.org");
  for (const std::string& kept :
       {std::string("item1.EMAIL;TYPE=work:e@x.org\r\n"), picture,
        std::string("N:Muster;Eva;;;\r\n"), std::string("X-SHOE-SIZE:39")}) {
    EXPECT_NE(written.find(kept), std::string::npos) << kept;
  }
  EXPECT_EQ(written.find("old@x.org"), std::string::npos);
}

TEST(VCardTest, WhatIsWrittenReadsBackInLinesThatFit) {
  std::string umlauts;
  for (int i = 0; i < 100; ++i) umlauts += "ü";
  for (const Person& person :
       {Person{"Muster, Eva; \\ \"E\"", {"e@x.org"}}, Person{umlauts, {"a@x.org", "b@x.org"}}}) {
    const std::string written = contacts::WriteVCards({contacts::NewVCard(person)});
    EXPECT_EQ(Said(contacts::ReadVCards(written)), Said(person));
    std::istringstream lines(written);
    for (std::string line; std::getline(lines, line);) {
      EXPECT_LE(line.size(), 76u);
      EXPECT_FALSE(line.size() > 1 && (line[1] & 0xC0) == 0x80) << "a character cut";
    }
  }
}

class ContactsBookTest : public testing::Test {
 protected:
  std::string& File(const std::string& name) {
    return desktop_.files.content[platform::Process().DataPath + name];
  }
  std::string Stored() { return Said(contacts::ReadVCards(File("contacts.vcf"))); }

  std::string People() {
    std::string text;
    for (const auto& [person, isWritten] : book_.People()) {
      text += (text.empty() ? "" : "; ") + Said(person) + (isWritten ? "" : " (from a game)");
    }
    return text;
  }

  std::string Matches(const std::string& typed) {
    std::string text;
    for (const Recipient& match : book_.Matches(typed))
      text += match.name + " " + match.address + ";";
    return text;
  }

  void StoreGame(std::int32_t id, const char* opponent, const char* address) {
    store::GameRecord game;
    game.GAME_ID = id;
    game.GAME_DATE = "09/03/2026";
    game.GAME_OPPONENTS_NAME = opponent;
    game.GAME_OPPONENTS_EMAIL = address;
    EXPECT_TRUE(store::SaveGame(game, {}));
  }

  fakes::FakeDesktop desktop_;
  ContactsBook book_{shell::PastOpponents};
};

TEST_F(ContactsBookTest, HoldsThePeopleOfTheGamesAndThoseWrittenIntoIt) {
  StoreGame(1, "Max", "max@x.org");
  StoreGame(2, "Max Meier", "max@x.org");
  StoreGame(3, "Unknown", "unknown@tarvolenix.invalid");
  EXPECT_EQ(People(), "Max Meier: max@x.org (from a game)");
  book_.Add({"eva\t|Muster", {"e@x.org", "no address", "E@x.org"}});
  book_.Add({"Zoe", {"MAX@x.org"}});
  EXPECT_EQ(People(), "eva Muster: e@x.org; Zoe: MAX@x.org");
}

TEST_F(ContactsBookTest, ImportsMergesAndLeavesOut) {
  book_.Add({"Eva", {"e@x.org"}});
  desktop_.files.content["/home/all.vcf"] =
      Card("FN:Eva Muster\nEMAIL:e@x.org\nEMAIL:new@x.org\n") + Card("FN:Max\nEMAIL:m@x.org\n") +
      Card("FN:Twin\nEMAIL:M@x.org\n") + Card("FN:No mail\nTEL:1\n") + "BEGIN:VCARD\nFN:Cut";
  const auto outcome = book_.Import("/home/all.vcf");
  EXPECT_EQ(outcome.added, 1);
  EXPECT_EQ(outcome.known, 2);
  EXPECT_EQ(outcome.leftOut, 2);
  EXPECT_EQ(Stored(), "Eva: e@x.org new@x.org; Max: m@x.org");
  EXPECT_THROW(book_.Import("/home/none.vcf"), FileError);
}

TEST_F(ContactsBookTest, AFailedChangeCostsNothingAndDamageIsKeptBeside) {
  const std::string before = Card("FN:Eva\nEMAIL:e@x.org\n") + "BEGIN:VCARD\nFN:Max";
  for (int failing = 1;; ++failing) {
    File("contacts.vcf") = before;
    desktop_.files.FailOperation(failing);
    try {
      book_.Add({"Zoe", {"z@x.org"}});
      desktop_.files.FailOperation(0);
      EXPECT_EQ(failing, 7) << "read, copy (3), replace (2)";
      break;
    } catch (const FileError&) {
      EXPECT_EQ(File("contacts.vcf"), before) << failing;
    }
  }
  EXPECT_EQ(Stored(), "Eva: e@x.org; Zoe: z@x.org");
  EXPECT_EQ(File("contacts.bak"), before);
  EXPECT_FALSE(desktop_.files.content.contains(platform::Process().DataPath + "contacts.new"));
}

TEST_F(ContactsBookTest, FindsWhomTheUserMeans) {
  book_.Add({"Eva Muster", {"e@x.org", "eva@y.org"}});
  book_.Add({"Evan", {"n@x.org"}});
  book_.Add({"Max Muster", {"max@x.org"}});
  const std::pair<const char*, const char*> rows[] = {
      {"", ""},
      {"nobody", ""},
      {" max muster ", "Max Muster max@x.org;"},
      {"Evan", "Evan n@x.org;"},
      {"Must", "Eva Muster e@x.org;Eva Muster eva@y.org;Max Muster max@x.org;"},
      {"MAX@X.ORG", "Max Muster max@x.org;"},
      {"n@x", "n@x n@x;"},
      {"\"Zoe Z\" <zoe@x.org>", "Zoe Z zoe@x.org;"},
      {"zoe <at home>", ""},
  };
  for (const auto& [typed, expected] : rows) EXPECT_EQ(Matches(typed), expected) << typed;
}

}  // namespace
