// SPDX-License-Identifier: GPL-3.0-or-later
// What an opponent, a stranger and the user himself can do to a game by mail, and what the user's
// answers make of it.
#include "mail/held_answers.h"
#include "mail/mail_fixture.h"
#include "mail/retrieval.h"
#include "store/queries.h"

namespace mail {
namespace {

using platform::Process;

constexpr const char* anna = "anna@example.org";
constexpr const char* stranger = "mallory@example.net";

class HeldMails : public MailFixture {
 protected:
  HeldMails() { desktop.mail.ownAddress = "bernd@example.org"; }

  /// Bernd's copy with two moves, where it is his own turn or that has ended.
  std::string Copy(int moves, const std::string& address = anna, int status = 2) {
    return Line("12|090320260805|7|Sunday game|09/03/2026|" + address + "|Anna|Bernd|0|Sender|" +
                    std::to_string(status) + "|0|;;;;;;;",
                moves);
  }
  static std::string Changed(std::string body, const std::string& from, const std::string& to) {
    return body.replace(body.find(from), from.size(), to);
  }
  std::vector<MoveArrival> Retrieve() { return RetrieveMoveMails(false, false); }
};

TEST_F(HeldMails, StoredGamesBelongToTheirOpponentsAndNeverChange) {
  const std::string next = FromAnna(3, 12);
  const std::string copy = Copy(2);
  const struct {
    const char* name;
    std::string stored;
    std::string mail;
    const char* from;
    Objection why;
    int movesOnceAccepted;
  } rows[] = {
      {"opponent's next move", copy, next, "ANNA@example.org", Objection::None, 3},
      {"old mail of the opponent", copy, FromAnna(1, 12), anna, Objection::None, 2},
      {"stranger's next move", copy, next, stranger, Objection::Address, 3},
      {"stranger who doesn't know our number", copy, FromAnna(3), stranger, Objection::Address, 3},
      {"own mail that came back", copy, next, "bernd@example.org", Objection::None, 2},
      {"stored move is another one", copy, Changed(next, "5254|e4", "4244|d4"), anna,
       Objection::History, 3},
      {"last number hides all before it", copy, Changed(next, "3|7163", "2147483647|7163"), anna,
       Objection::History, 3},
      {"game that was lost goes on", Copy(2, anna, 4), next, anna, Objection::Ended, 3},
      {"game that ended before it was opened", Changed(Copy(2, anna, 1), "e5", "0-1"),
       Changed(next, "e5", "0-1"), anna, Objection::Ended, 3},
      {"placeholder of an imported game", Copy(2, unknownAddress), next, unknownAddress,
       Objection::Address, 3},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.name);
    desktop.files.content.clear();
    desktop.mail.inbox.clear();
    GameFile() = row.stored;
    Arrives(row.mail, "Tarvolenix : x", row.from);
    const auto arrivals = Retrieve();
    if (row.why == Objection::None) {
      EXPECT_EQ(GameFile() == row.stored, row.movesOnceAccepted == 2);
      EXPECT_EQ(desktop.mail.inbox.empty(), row.from != desktop.mail.ownAddress);
      EXPECT_TRUE(WaitingMails().empty());
    } else {
      ASSERT_EQ(arrivals.size(), 1U);
      EXPECT_EQ(arrivals[0].why, row.why);
      EXPECT_EQ(GameFile(), row.stored);
      EXPECT_TRUE(desktop.mail.inbox.at(0).read);
      ASSERT_EQ(WaitingMails().size(), 1U);
      EXPECT_EQ(WaitingMails()[0].mail.text, row.mail);
      EXPECT_TRUE(AcceptHeldMail(WaitingMails()[0]).changed);
      EXPECT_TRUE(WaitingMails().empty());
    }
    store::MoveRecords moves;
    ASSERT_TRUE(store::SelectMoves(moves, 12));
    EXPECT_EQ(static_cast<int>(moves.size()), row.movesOnceAccepted);
    EXPECT_TRUE(HasOrderlyNumbers(moves));
  }
}

TEST_F(HeldMails, AnAddressIsAskedAboutOnce) {
  GameFile() = Copy(1);
  Arrives(FromAnna(2, 12), "Tarvolenix : x", stranger);
  Arrives(FromAnna(3, 12), "Tarvolenix : x", stranger);
  EXPECT_EQ(Retrieve().size(), 2U);
  ASSERT_EQ(WaitingMails().size(), 2U);
  RefuseHeldMail(WaitingMails()[0]);
  EXPECT_TRUE(WaitingMails().empty());
  RetrieveMoveMails(false, true);
  Arrives(Changed(FromAnna(2, 12), "e5", "e5!"), "Tarvolenix : x", stranger);
  EXPECT_EQ(Retrieve().back().held, "") << "a refused sender's next mail";
  EXPECT_TRUE(WaitingMails().empty());
  EXPECT_EQ(GameFile(), Copy(1));

  // Another person, accepted: what he sent before goes along, and both addresses count.
  const char* office = "anna@office.example";
  Arrives(FromAnna(3, 12), "Tarvolenix : x", office);
  Arrives(FromAnna(2, 12), "Tarvolenix : x", office);
  Retrieve();
  const auto waiting = WaitingMails();
  ASSERT_EQ(waiting.size(), 2U);
  AcceptHeldMail(waiting[1]);
  EXPECT_TRUE(WaitingMails().empty());
  EXPECT_NE(GameFile().find("|3|7163|Nf3|"), std::string::npos);
  EXPECT_NE(GameFile().find(office), std::string::npos);
  Arrives(FromAnna(3, 12), "Tarvolenix : x", anna);
  EXPECT_TRUE(Retrieve().back().ok);
}

TEST_F(HeldMails, WhatWasTakenOnceIsDoneWith) {
  Arrives(Changed(FromAnna(1), "1|5254", "7|5254"), "Tarvolenix : x", anna);
  EXPECT_EQ(Retrieve().at(0).why, Objection::Form);
  const HeldMail asked = WaitingMails().at(0);
  EXPECT_TRUE(AcceptHeldMail(asked).changed);
  const std::string begun = GameFile();
  EXPECT_TRUE(RetrieveMoveMails(false, true).at(0).ok);
  EXPECT_TRUE(desktop.mail.inbox.empty());
  EXPECT_THROW(AcceptHeldMail(asked), StoreFailure) << "answered meanwhile";
  EXPECT_EQ(GameFile(), begun);
}

TEST_F(HeldMails, StrangersBeginFewGamesAnHour) {
  const auto invite = [this](int number, const char* from) {
    std::string body = Changed(FromAnna(1), "7|", std::to_string(number) + "|");
    Arrives(Changed(body, "|\r\nFalse", "|\r\nTrue"), "Tarvolenix : x", from);
    return Retrieve().back().why;
  };
  for (int number = 1; number <= mostNewGames; ++number) {
    EXPECT_EQ(invite(number, stranger), Objection::None);
  }
  EXPECT_EQ(invite(50, "other@example.net"), Objection::Flood);
  desktop.clock.seconds += 3600;
  EXPECT_EQ(invite(51, stranger), Objection::None);
  const HeldMail late = WaitingMails().at(0);
  RetrieveMoveMails(false, true);
  EXPECT_TRUE(WaitingMails().empty()) << "its mail was taken when there was room";
  EXPECT_THROW(AcceptHeldMail(late), StoreFailure);
}

}  // namespace
}  // namespace mail
