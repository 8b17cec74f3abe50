// SPDX-License-Identifier: GPL-3.0-or-later
#include "mail/retrieval.h"

#include "mail/arrivals.h"
#include "mail/mail_fixture.h"
#include "mail/sending.h"
#include "mail/undelivered.h"

namespace mail {
namespace {

using platform::Process;

class Retrieval : public MailFixture {
 protected:
  bool IsToldOf(const std::string& what) const { return Told().find(what) != std::string::npos; }
};

constexpr const char* otherGame = "40|010120260000|3|Old|01/01/2026|c@d|||-1||4|0|\r\n";

/// A copy that a mail has just founded with this number, or brought up to date.
std::string FoundedByAnna(int id, int status = 1) {
  return std::to_string(id) +
         "|090320260805|7|Sunday game|09/03/2026|sender@example.org|Sender|Bernd|0|Sender|" +
         std::to_string(status) + "|0|;;;;;;;";
}

TEST_F(Retrieval, MailsBecomeGames) {
  const std::string annas =
      "7|090320260805|0|Sunday game|09/03/2026|Sender@Example.org||Bernd|-1|Bernd|2|0|";
  const struct {
    const char* name;
    std::string stored;
    std::vector<std::string> mails;
    std::string storedAfter;
    fakes::GameIDs pending;
  } rows[] = {
      {"first mail founds the game", "", {FromAnna(1)}, Line(FoundedByAnna(1), 1), {1}},
      {"first reply tells the host the number, White's name and the address",
       Line(annas, 1),
       {FromBernd(2)},
       Line("7|090320260805|12|Sunday game|09/03/2026|sender@example.org|Anna|Bernd|-1|Sender|1|0|",
            2),
       {7}},
      {"resent mails change nothing, with our number in them or not yet",
       Line(FoundedByAnna(12, 2), 2),
       {FromAnna(1), FromAnna(2, 12)},
       Line(FoundedByAnna(12, 2), 2),
       {}},
      {"a resent game mends a move that was cut off",
       FoundedByAnna(12, 2) + "|1|5254|e4|Good luck!|2|5755\r\n",
       {FromAnna(2, 12)},
       Line(FoundedByAnna(12), 2),
       {12}},
      {"and its first one",
       FoundedByAnna(12, 2) + "|1|5254|e4\r\n",
       {FromAnna(1, 12)},
       Line(FoundedByAnna(12), 1),
       {12}},
      {"deleted game is founded anew with all its moves",
       otherGame,
       {FromAnna(3, 12)},
       otherGame + Line(FoundedByAnna(41), 3),
       {41}},
  };
  desktop.mail.perLook = 1;
  for (const auto& row : rows) {
    SCOPED_TRACE(row.name);
    desktop.files.content.clear();
    if (!row.stored.empty()) GameFile() = row.stored;
    for (const std::string& mail : row.mails) Arrives(mail);
    RetrieveMoveMails(true, false);
    EXPECT_EQ(GameFile(), row.storedAfter);
    EXPECT_EQ(Process().PendingGames, row.pending);
    EXPECT_EQ(Process().NewMoveArrived, !row.pending.empty());
    EXPECT_TRUE(desktop.mail.inbox.empty());
    EXPECT_TRUE(desktop.boxes.messages.empty());
  }
}

TEST_F(Retrieval, OtherMailIsLeftAloneAndUnread) {
  Arrives(FromAnna(1), "TARVOLENIX : e4");
  Arrives("Well played!", "Re: Tarvolenix : e4");
  Arrives(FromAnna(1), "Tarvolenix :e4");
  Arrives("<<TARVOLENIX:1|2|3:TARVOLENIX>>", "Tarvolenix : cut off");
  const auto arrivals = RetrieveMoveMails(false, false);
  std::string left;
  for (const auto& mail : desktop.mail.inbox) left += mail.subject + (mail.read ? "!\n" : "\n");
  EXPECT_EQ(left, "TARVOLENIX : e4\nRe: Tarvolenix : e4\nTarvolenix : cut off!\n");
  ASSERT_EQ(arrivals.size(), 2U);
  EXPECT_EQ(arrivals[1].stage, 1);
  EXPECT_EQ(desktop.boxes.messages.size(), 1U);
}

TEST_F(Retrieval, AnAnswerThatQuotesOurMoveIsNone) {
  Store(BerndsGame(), 2);
  const std::string before = GameFile();
  const std::string address = BerndsGame().GAME_OPPONENTS_EMAIL;
  Arrives(FromBernd(2), "Re: Tarvolenix : e5", address);
  EXPECT_TRUE(RetrieveMoveMails(false, false).empty());
  EXPECT_EQ(GameFile(), before);
  EXPECT_FALSE(desktop.mail.inbox.at(0).read);
  Arrives(FromAnna(3, 12), "[EXTERNAL] Tarvolenix : Nf3", address);
  RetrieveMoveMails(false, false);
  EXPECT_EQ(Process().PendingGames, fakes::GameIDs{12});
}

TEST_F(Retrieval, ACommentThatHasGrownIsCutAndAnOldOneStays) {
  Store(BerndsGame(), 2);
  std::string body = FromAnna(3, 12);
  body.replace(body.find("Good luck!"), 10, "Good luck! >From far, with https://filter.example/?x");
  body.replace(body.find("für dich"), 9, std::string(300, 'x'));
  Arrives(body, "Tarvolenix : Nf3", BerndsGame().GAME_OPPONENTS_EMAIL);
  RetrieveMoveMails(false, false);
  EXPECT_NE(GameFile().find("|e4|Good luck!|"), std::string::npos) << GameFile();
  EXPECT_TRUE(GameFile().ends_with("|Nf3|" + std::string(200, 'x') + "\r\n")) << GameFile();
}

TEST_F(Retrieval, AReportIsToldOfOnceAndStandsUntilAMailGoesEitherWay) {
  Store(BerndsGame(), 2);
  const std::string thread = ThreadOf(BerndsGame());
  for (const bool sends : {true, false}) {
    ForgetRecords();
    fakes::InboxMail report{"Returned mail", "", "Daemon", "daemon@example.org"};
    report.undelivered = {thread, sends ? "<1>" : "<2>", "550 no such user"};
    desktop.mail.inbox = {report, report};
    desktop.mail.inbox[1].undelivered->thread = "of nobody's game";
    for (int look = 0; look < 2; ++look) RetrieveMoveMails(false, true);
    EXPECT_EQ(desktop.boxes.messages.size(), 1U);
    EXPECT_TRUE(IsToldOf("\"Sunday game\"") && IsToldOf("550 no such user")) << Told();
    EXPECT_EQ(UndeliveredReason(thread), "550 no such user");
    EXPECT_TRUE(desktop.mail.inbox[0].read && !desktop.mail.inbox[1].read);
    if (!sends) Arrives(FromAnna(3, 12), "Tarvolenix : x", BerndsGame().GAME_OPPONENTS_EMAIL);
    sends ? (void)SendMoveMail(12) : (void)RetrieveMoveMails(false, true);
    EXPECT_EQ(UndeliveredReason(thread), std::nullopt);
  }
}

TEST_F(Retrieval, OnlyAMailThatBringsSomethingIsAnArrival) {
  Store(BerndsGame(), 2);
  const std::string thread = ThreadOf(BerndsGame());
  const int moves[] = {2, 3, 3, 2};
  for (int day = 0; day < 4; ++day) {
    desktop.clock.seconds = day;
    Arrives(FromAnna(moves[day], 12), "Tarvolenix : x", BerndsGame().GAME_OPPONENTS_EMAIL);
    RetrieveMoveMails(false, true);
  }
  EXPECT_EQ(LastArrival(thread), 1);
  desktop.files.content["/program/Data/Tvmail.dat"] = "arrived|" + thread;
  EXPECT_EQ(LastArrival(thread), 0) << "cut off: unknown, and no harm";
}

TEST_F(Retrieval, SpamIsToldOfAndLeftThere) {
  desktop.mail.inbox = {{"Tarvolenix : x", "", "Anna", "anna@example.org"}};
  desktop.mail.inbox[0].isSpam = true;
  EXPECT_TRUE(RetrieveMoveMails(false, false).empty());
  EXPECT_TRUE(IsToldOf("anna@example.org") && IsToldOf("spam folder"));
  EXPECT_FALSE(desktop.mail.inbox.at(0).read);
}

TEST_F(Retrieval, AMailOfGoodFormThatCantBeStoredStandsInNobodysWay) {
  std::string outOfRange = FromAnna(1);
  outOfRange.replace(outOfRange.find("7|"), 1, "99999999999");
  Arrives(outOfRange);
  Arrives(FromAnna(2));
  const auto arrivals = RetrieveMoveMails(false, true);
  ASSERT_EQ(arrivals.size(), 2U);
  EXPECT_FALSE(arrivals[0].ok);
  EXPECT_TRUE(arrivals[1].ok);
  EXPECT_EQ(desktop.mail.inbox.size(), 1U);
  EXPECT_FALSE(Told().empty());
}

TEST_F(Retrieval, FailureEndsItWithWhatWasSaved) {
  const struct {
    const char* failing;
    const char* told;
    std::size_t taken, left;
  } rows[] = {
      {"Fetch", "", 0, 2},
      {"MsgNoteText", "trying to retrieve", 0, 2},
      {"Delete", "trying to retrieve", 2, 2},
      {"Flush", "trying to retrieve", 2, 0},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.failing);
    ForgetRecords();
    desktop.files.content.clear();
    desktop.mail.inbox.clear();
    desktop.mail.failing = {row.failing};
    Arrives(FromAnna(1));
    Arrives(FromAnna(2));
    Process().Offline = false;
    std::size_t taken = 0;
    for (const auto& arrival : RetrieveMoveMails(true, false)) taken += arrival.ok ? 1 : 0;
    EXPECT_EQ(taken, row.taken);
    EXPECT_EQ(desktop.mail.inbox.size(), row.left);
    EXPECT_TRUE(IsToldOf(row.told));
    EXPECT_EQ(Process().Offline, *row.told == 0) << "no Inbox is no connection";
    EXPECT_EQ(desktop.mail.calls.back(), *row.told ? "Flush" : "Fetch");
  }
}

// A mail goes only when its game is safe, whichever file operation fails.
TEST_F(Retrieval, FailingDiskNeverLosesAMail) {
  std::size_t operations = 1;
  for (int failing = 1; static_cast<std::size_t>(failing) <= operations; ++failing) {
    SCOPED_TRACE(failing);
    ForgetRecords();
    GameFile() = otherGame;
    File("Tvmail.dat") = "";
    desktop.mail.inbox.clear();
    Arrives(FromAnna(1));
    desktop.files.FailOperation(failing);
    RetrieveMoveMails(false, false);
    const bool taken = desktop.mail.inbox.empty();
    EXPECT_EQ(GameFile() != otherGame, taken);
    EXPECT_EQ(IsToldOf("trying to save"), !taken);
    EXPECT_TRUE(taken || File("Tvmail.dat").empty()) << "no stranger has begun a game";
    const auto nth = static_cast<std::size_t>(failing) - 1;
    EXPECT_EQ(IsToldOf("The cause: can't read /program/Data/Tvmail.dat."),
              !taken && desktop.files.operations[nth].ends_with("Tvmail.dat"));
    desktop.files.FailOperation(0);
    operations = desktop.files.operations.size() + 1;
    // The next tick still sees it.
    RetrieveMoveMails(false, false);
    EXPECT_TRUE(desktop.mail.inbox.empty());
  }
}

}  // namespace
}  // namespace mail
