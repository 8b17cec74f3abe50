// SPDX-License-Identifier: GPL-3.0-or-later
// The outbox, and how it is emptied, over files in memory and a transport that fails as it is told.
#include "post/delivery.h"

#include <gtest/gtest.h>

#include <map>
#include <mutex>

#include "fakes/fake_desktop.h"
#include "fakes/plain_events.h"
#include "post/servers/mail_failures.h"

namespace post {
namespace {

/// What happens to mails by their recipient, and what was tried.
struct Network {
  std::map<std::string, std::string> trouble;
  std::string tried;
  std::function<void()> meanwhile;  ///< while the next mail is being sent
};

class FakeTransport : public MailTransport {
 public:
  explicit FakeTransport(Network& network) : network_(network) {}
  void Open() override {}
  std::vector<letters::FetchedMail> List(bool) override { return {}; }
  void MarkRead(const std::string&) override {}
  void Remove(const std::string&) override {}
  void Close() override { network_.tried += '.'; }
  void Send(const letters::OutgoingMail& mail) override {
    const std::string to = mail.to.at(0).address;
    network_.tried += to + mail.text;
    if (network_.meanwhile) std::exchange(network_.meanwhile, {})();
    const std::string trouble = network_.trouble[to];
    if (trouble == "refused") throw MailRefused("No such user");
    if (trouble == "later") throw platform::MailError("Try later");
    if (trouble == "lost") throw ConnectionLost("Nothing answers");
    if (trouble == "perhaps") throw PerhapsSent("No word");
    if (trouble == "login") throw LoginRefused("Wrong password");
  }

 private:
  Network& network_;
};

class DeliveryTest : public testing::Test {
 protected:
  DeliveryTest() { Begin(); }

  void Begin() {
    AccountAnswer answer;
    answer.account.MyAddress = "me@example.org";
    answer.account.ImapHost = "imap.example.org";
    delivery_.Begin(answer, [this](const auto&, const auto&) {
      return std::make_unique<FakeTransport>(network_);
    });
  }
  static letters::OutgoingMail Mail(const std::string& to, const std::string& thread = {},
                                    const std::string& text = {}) {
    return {{}, {{"You", to}}, "s", text, thread};
  }
  void Put(const std::string& to) { delivery_.Add(Mail(to)); }

  /// What was tried, "." where the connection was closed behind it.
  std::string Tried() {
    delivery_.Finish();
    return std::exchange(network_.tried, {});
  }
  std::string Tried(std::int64_t secondsLater) {
    delivery_.Finish();
    desktop_.clock.seconds += secondsLater;
    delivery_.LookAround();
    return Tried();
  }
  /// Such as "waiting 1 Try later" for each mail that is left.
  std::string Left() {
    static constexpr const char* stages[] = {"sending", "waiting", "perhaps", "failed"};
    std::string left;
    for (const auto& mail : delivery_.OnItsWay()) {
      left += (left.empty() ? "" : ", ") + std::string(stages[static_cast<int>(mail.stage)]) + ' ' +
              std::to_string(mail.tries) + ' ' + mail.reason;
    }
    return left;
  }

  fakes::FakeDesktop desktop_;
  fakes::PlainEvents events_;
  Network network_;
  Outbox outbox_{OutboxFolder("me@example.org")};
  Delivery delivery_{events_, [] {}};
};

TEST_F(DeliveryTest, WhatGoesWrongDecidesWhatBecomesOfTheMailAndOfThoseBehindIt) {
  const struct {
    const char* trouble;
    const char* tried;  ///< of two mails, of which the first one meets the trouble
    const char* left;
    platform::MailLink link;
    const char* triedSoon;  ///< half a minute later, with the trouble over
  } rows[] = {
      {"", "ab.", "", platform::MailLink::Connected, ""},
      {"refused", "ab.", "failed 1 No such user.", platform::MailLink::Connected, ""},
      {"later", "ab.", "waiting 1 Try later.", platform::MailLink::Connected, "a."},
      {"lost", "a.", "waiting 1 Nothing answers., waiting 0 Nothing answers.",
       platform::MailLink::Waiting, "ba."},
      {"perhaps", "a.", "perhaps 1 No word., waiting 0 No word.", platform::MailLink::Waiting,
       "ba."},
      {"login", "a.", "waiting 1 Wrong password., waiting 0 Wrong password.",
       platform::MailLink::Refused, "ba."},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.trouble);
    desktop_.files.content.clear();
    network_.trouble["a"] = row.trouble;
    outbox_.Add(Mail("a"), 0);
    outbox_.Add(Mail("b"), 0);
    Begin();
    EXPECT_EQ(Tried(0), row.tried);
    EXPECT_EQ(Left(), row.left);
    EXPECT_EQ(delivery_.TheWay().link, row.link);
    network_.trouble.clear();
    const bool waits = row.link != platform::MailLink::Refused;
    EXPECT_EQ(waits ? Tried(29) : "", "") << "too early";
    EXPECT_EQ(Tried(5), row.triedSoon);
  }
}

TEST_F(DeliveryTest, TheUsersWishAndANewMailAndTheNextRunDontWait) {
  network_.trouble["a"] = "lost";
  Put("a");
  EXPECT_EQ(Tried(), "a.");
  Put("b");
  EXPECT_EQ(Tried(), "b.");
  delivery_.DeliverNow();
  EXPECT_EQ(Tried(), "a.");
  Begin();
  EXPECT_EQ(Tried(0), "a.");
  EXPECT_EQ(Left(), "waiting 3 Nothing answers.");
  constexpr std::int64_t days = 86400;
  for (const std::int64_t jump : {-9 * days, 9 * days}) {
    EXPECT_EQ(Tried(jump) + Tried(0), "a.") << "the clock jumps, and is no reason to hurry";
  }
  EXPECT_EQ(Left(), "waiting 5 Nothing answers.");
}

TEST_F(DeliveryTest, ANewerMailOfAThreadTakesTheOlderOnesPlaceAlsoWhileThatIsBeingSent) {
  network_.trouble["a"] = "later";
  delivery_.Add(Mail("a", "t", "1"));
  EXPECT_EQ(Tried(), "a1.");
  delivery_.Add(Mail("a", "t", "2"));
  EXPECT_EQ(Tried(), "a2.");
  network_.meanwhile = [this] { outbox_.Add(Mail("b", "t", "3"), 0); };  // another program
  delivery_.DeliverNow();
  EXPECT_EQ(Tried(), "a2.");
  EXPECT_EQ(Tried(0), "b3.");
  EXPECT_EQ(Left(), "");
  outbox_.Add(Mail("b", "t", "4"), 0);
  desktop_.files.FailOperation(5);  // the removal
  outbox_.Add(Mail("b", "t", "5"), 0);
  EXPECT_EQ(Tried(0) + Tried(0), "b5.");
}

TEST_F(DeliveryTest, OnlyOneProgramDelivers) {
  desktop_.files.locked.insert(OutboxFolder("me@example.org") + "deliver.lock");
  Put("a");
  EXPECT_EQ(Tried(), "");
  EXPECT_EQ(Left(), "sending 0 ");
  Begin();
  EXPECT_EQ(delivery_.NextTry(), desktop_.clock.seconds) << "no time that is over";
  desktop_.files.locked.clear();
  EXPECT_EQ(Tried(0), "a.");
}

TEST_F(DeliveryTest, AnOutboxThatCantBeReadForAWhileKeepsNobodyWaiting) {
  for (const int operation : {1, 2, 3}) {  // the look at the folder, the reading, the removal
    outbox_.Add(Mail("a"), 0);
    Begin();
    desktop_.files.FailOperation(operation);
    EXPECT_EQ(Tried(0), operation == 1 ? "" : "a.");
    EXPECT_EQ(Left().find("sending"), std::string::npos) << operation;
    Tried(40);
    EXPECT_EQ(Left(), "");
  }
}

TEST_F(DeliveryTest, WhatBecameOfAMailIsKnownAlsoWhereItCantBeWrittenDown) {
  network_.trouble["a"] = "later";
  outbox_.Add(Mail("a"), 0);
  for (const int operation : {3, 4}) {  // behind the look at the folder: the writing, the renaming
    Begin();
    desktop_.files.FailOperation(operation);
    EXPECT_EQ(Tried(0), "a.") << desktop_.files.operations.back();
    EXPECT_EQ(Left(), "waiting 1 Try later.") << operation;
    EXPECT_EQ(Tried(29), "") << operation;
  }
}

TEST_F(DeliveryTest, AFailureIsToldOnceAndAFullDiskIsNoSending) {
  network_.trouble["a"] = "refused";
  delivery_.Add(Mail("a", "t"));
  Tried();
  delivery_.NoteTold("t");
  Begin();
  ASSERT_EQ(delivery_.OnItsWay().size(), 1u);
  EXPECT_TRUE(delivery_.OnItsWay()[0].isTold);
  const auto before = desktop_.files.content;
  for (int operation = 1, done = 0; operation < 9 && done < 2; ++operation) {
    desktop_.files.content = before;
    desktop_.files.FailOperation(operation);
    try {
      outbox_.Add(Mail("a", "t", "new"), 0);
      ++done;
      desktop_.files.FailOperation(0);
      EXPECT_EQ(outbox_.Mails().at(0).mail.text, "new");
    } catch (const platform::FileError&) {
      done = 0;
      EXPECT_EQ(desktop_.files.content, before);
    }
  }
}

TEST(DeliveryPolicyTest, ItIsTriedEverMoreRarelyForFiveDaysWhateverTheClockSays) {
  const std::int64_t pauses[] = {30, 60, 120, 300, 900, 1800, 3600, 3600};
  for (int tries = 1; tries <= 8; ++tries) EXPECT_EQ(PauseAfter(tries), pauses[tries - 1]);
  const std::int64_t now = 1000000, days = 86400;
  const struct {
    const char* name;
    std::int64_t queued, nextTry;
    int tries;
    bool isDue, isGivenUp;
    QueueState state = QueueState::Waiting;
  } rows[] = {
      {"new", now, 0, 0, true, false},
      {"waits for its turn", now, now + 3600, 9, false, false},
      {"the clock was set back", now, now + 2 * days, 9, true, false},
      {"the clock was set forward", now - 9 * days, 0, 23, true, false},
      {"old and often tried", now - 5 * days, 0, 24, true, true},
      {"often tried by hand", now - 4 * days, 0, 99, true, false},
      {"failed", now, 0, 1, false, false, QueueState::Failed},
  };
  for (const auto& row : rows) {
    const QueuedMail mail{{}, {}, row.queued, row.nextTry, row.tries, row.state, {}};
    EXPECT_EQ(IsDue(mail, now), row.isDue) << row.name;
    EXPECT_EQ(IsGivenUp(mail, now), row.isGivenUp) << row.name;
  }
}

TEST_F(DeliveryTest, WhatIsNoWholeMailIsPassedOverAndStays) {
  const letters::OutgoingMail mail = {
      {}, {{"Yöu|\n", "a@b"}, {"", "c@d"}}, "a\nb", "x\r\n\0y", "1-2", "<3@4>", {"<p>", "PNG\n"}};
  const std::string file = outbox_.Add(mail, 7).file;
  const std::string path = OutboxFolder("me@example.org") + file;
  const auto [known] = std::array{outbox_.Mails().at(0)};
  EXPECT_EQ(known.mail.to[0].name + known.mail.to[1].address, "Yöu|\nc@d");
  EXPECT_EQ(known.mail.subject + known.mail.text + known.mail.thread + known.mail.messageID,
            "a\nbx\r\n1-2<3@4>");
  EXPECT_EQ(known.mail.page, mail.page);
  const std::string whole = desktop_.files.content[path];
  for (std::size_t size = 0; size < whole.size(); ++size) {
    desktop_.files.content[path] = whole.substr(0, size);
    ASSERT_TRUE(outbox_.Mails().empty()) << size;
  }
  EXPECT_EQ(Tried(0), "");
  EXPECT_TRUE(desktop_.files.content.contains(path));
  EXPECT_GT(outbox_.Add(Mail("a"), 0).file, file) << "behind it, all the same";
}

}  // namespace
}  // namespace post
