// SPDX-License-Identifier: GPL-3.0-or-later
// The mail service over a transport that does as the test tells it.
#include "desktop/mail_service.h"

#include <gtest/gtest.h>

#include <condition_variable>
#include <mutex>
#include <stdexcept>
#include <thread>
#include <tuple>

#include "desktop/plain_events.h"
#include "fakes/fake_desktop.h"
#include "platform/process_state.h"
#include "platform/registry.h"

namespace {

using desktop::FetchedMail;
using desktop::MailAccount;
using desktop::MailService;
using platform::MailError;

/// What the test and the transport on the mail thread share.
class Script {
 public:
  std::vector<FetchedMail> inbox = {{"1", "Tarvolenix : a", "n", "a@b", "text", false},
                                    {"2", "Tarvolenix : b", "n", "a@b", "text", false}};
  std::thread::id lastEnd;  ///< where the last transport was destroyed

  /// Records the call, waits while the gate is shut, and raises where the test wants it.
  void Called(const std::string& call) {
    std::unique_lock lock(mutex_);
    calls_ += call + " ";
    opened_.wait(lock, [this] { return open_; });
    if (call == failing_) throw std::runtime_error(call + " fails");
  }

  void Shut() { SetOpen(false); }
  void Open() { SetOpen(true); }

  void Fail(const std::string& call) {
    const std::lock_guard lock(mutex_);
    failing_ = call;
  }

  std::string Calls() {
    const std::lock_guard lock(mutex_);
    return std::exchange(calls_, {});
  }

 private:
  void SetOpen(bool open) {
    const std::lock_guard lock(mutex_);
    open_ = open;
    opened_.notify_all();
  }

  std::mutex mutex_;
  std::condition_variable opened_;
  bool open_ = true;
  std::string failing_;
  std::string calls_;
};

class ScriptedTransport : public desktop::MailTransport {
 public:
  explicit ScriptedTransport(Script& script) : script_(script) {}
  ~ScriptedTransport() override { script_.lastEnd = std::this_thread::get_id(); }

  void Open() override { script_.Called("open"); }
  std::vector<FetchedMail> List(bool unreadOnly) override {
    script_.Called(unreadOnly ? "unread" : "all");
    return script_.inbox;
  }
  void MarkRead(const std::string& id) override { script_.Called("mark" + id); }
  void Remove(const std::string& id) override { script_.Called("remove" + id); }
  void Send(const desktop::OutgoingMail& mail) override {
    script_.Called("send:" + mail.from.address + ">" + mail.to.at(0).address);
  }
  void Close() override { script_.Called("close"); }

 private:
  Script& script_;
};

class MailServiceTest : public testing::Test {
 protected:
  explicit MailServiceTest(MailService::AskAccount ask = {})
      : service_(events_, std::move(ask), [this](const MailAccount& account) {
          accounts_.push_back(account);
          return std::make_unique<ScriptedTransport>(script_);
        }) {}

  void SignOn() {
    service_.SignOn();
    script_.Calls();
  }

  void Prefetch(bool unreadOnly) {
    service_.FetchUnreadOnly(unreadOnly);
    service_.Prefetch([this] { ++ready_; });
  }

  void WaitUntilReady(int times) {
    events_.RunUntil([this, times] { return ready_ == times; });
  }

  std::string& Stored(const std::string& name) { return desktop_.settings.groups["Mail"][name]; }

  fakes::FakeDesktop desktop_;
  desktop::PlainEvents events_;
  Script script_;
  std::vector<MailAccount> accounts_;
  int ready_ = 0;
  MailService service_;
};

TEST_F(MailServiceTest, APrefetchNeitherBlocksNorMakesTheFetchWait) {
  SignOn();
  script_.Shut();
  Prefetch(true);  // returns though the transport is stuck
  EXPECT_EQ(ready_, 0);
  script_.Open();
  WaitUntilReady(1);
  script_.Shut();
  service_.Fetch();  // would hang if it asked the transport
  EXPECT_EQ(service_.MsgCount(), 2);
  script_.Open();
  EXPECT_EQ(script_.Calls(), "unread ");
  service_.Fetch();
  EXPECT_EQ(script_.Calls(), "unread ") << "the set is taken once";
}

TEST_F(MailServiceTest, AFetchWaitsForThePrefetchThatIsUnderWay) {
  SignOn();
  script_.Shut();
  Prefetch(true);
  Prefetch(true);
  events_.Post([this] { script_.Open(); });
  service_.Fetch();
  EXPECT_EQ(service_.MsgCount(), 2);
  WaitUntilReady(2);
  EXPECT_EQ(script_.Calls(), "unread ") << "one look serves both";
}

TEST_F(MailServiceTest, AFailedPrefetchIsRaisedByTheNextFetchOnly) {
  SignOn();
  script_.Fail("unread");
  Prefetch(true);
  WaitUntilReady(1);
  script_.Fail("");
  EXPECT_THROW(service_.Fetch(), MailError);
  EXPECT_EQ(service_.MsgCount(), 0);
  EXPECT_GT(service_.SessionID(), 0);
  EXPECT_NO_THROW(service_.Flush()) << "it isn't the queue's failure";
  service_.Fetch();
  EXPECT_EQ(service_.MsgCount(), 2);
}

TEST_F(MailServiceTest, APrefetchOfOtherMailsOrOfAnOlderInboxIsNotTaken) {
  SignOn();
  Prefetch(true);
  service_.FetchUnreadOnly(false);
  service_.Fetch();
  EXPECT_EQ(script_.Calls(), "unread all ");

  service_.FetchUnreadOnly(true);
  service_.Fetch();
  Prefetch(true);
  service_.MsgIndex(0);
  service_.Delete();
  service_.Fetch();
  EXPECT_EQ(script_.Calls(), "unread unread remove1 unread ");

  Prefetch(true);
  service_.MsgNoteText();
  service_.Fetch();
  EXPECT_EQ(script_.Calls(), "unread mark1 unread ");
  WaitUntilReady(3);
}

TEST_F(MailServiceTest, MarksAndDeletionsAreQueuedAndFlushRaisesTheirFailure) {
  SignOn();
  service_.Fetch();
  script_.Shut();
  service_.MsgIndex(0);
  service_.MsgNoteText();
  service_.MsgNoteText();
  service_.Delete();
  EXPECT_EQ(service_.MsgCount(), 1) << "gone from the set though the transport is stuck";
  script_.Fail("mark1");
  script_.Open();
  EXPECT_THROW(service_.Flush(), MailError);
  EXPECT_NO_THROW(service_.Flush());
  EXPECT_EQ(script_.Calls(), "all mark1 remove1 ");
}

TEST_F(MailServiceTest, SignOffFlushesAndClosesWhateverFails) {
  SignOn();
  service_.Fetch();
  service_.Delete();
  script_.Fail("remove1");
  EXPECT_NO_THROW(service_.SignOff());
  EXPECT_EQ(script_.Calls(), "all remove1 close ");
  EXPECT_NE(script_.lastEnd, std::thread::id());
  EXPECT_NE(script_.lastEnd, std::this_thread::get_id());
  SignOn();
  script_.Fail("close");
  EXPECT_NO_THROW(service_.SignOff());
  EXPECT_EQ(service_.SessionID(), 0);
  Prefetch(true);
  WaitUntilReady(1);
  EXPECT_THROW(service_.Fetch(), MailError) << "a look without a session fails as any other";
}

TEST_F(MailServiceTest, AFailedSignOnLeavesNoSession) {
  script_.Fail("open");
  EXPECT_THROW(service_.SignOn(), MailError);
  EXPECT_EQ(service_.SessionID(), 0);
  EXPECT_NE(script_.lastEnd, std::thread::id());
  EXPECT_NE(script_.lastEnd, std::this_thread::get_id());
  script_.Fail("");
  SignOn();
  EXPECT_GT(service_.SessionID(), 0);
}

TEST_F(MailServiceTest, WhoSignsOffHearsOfNoPrefetchAnyMore) {
  SignOn();
  const auto window = std::make_shared<int>();
  service_.Prefetch([window] { ADD_FAILURE() << "called a window that is gone"; });
  service_.SignOff();
  SignOn();
  Prefetch(true);
  WaitUntilReady(1);
  EXPECT_EQ(window.use_count(), 1);
}

TEST_F(MailServiceTest, WhileOneOperationWaitsAnotherIsRefused) {
  service_.RecipAddress("you@x.y");
  int refused = 0;
  const auto meanwhile = [&](const std::function<void()>& waiting) {
    script_.Shut();
    events_.Post([&] {
      for (const auto& other : {std::function<void()>([&] { service_.Fetch(); }),
                                std::function<void()>([&] { service_.Send(); })}) {
        EXPECT_THROW(other(), MailError);
      }
      if (service_.SessionID() == 0) {
        EXPECT_THROW(service_.SignOn(), MailError);
      }
      ++refused;
      script_.Open();
    });
    waiting();
  };
  meanwhile([&] { service_.SignOn(); });
  meanwhile([&] { service_.Fetch(); });
  EXPECT_EQ(service_.MsgCount(), 2);
  meanwhile([&] { service_.Send(); });
  EXPECT_EQ(refused, 3);
  EXPECT_EQ(accounts_.size(), 1u);
  EXPECT_EQ(script_.Calls(), "open all send:" + accounts_.at(0).MyAddress + ">you@x.y ");
}

TEST_F(MailServiceTest, AnAddressThatNoMailCanComeFromSignsOnNowhere) {
  const std::tuple<const char*, const char*, bool> rows[] = {
      {"Post", "my name@localhost", false}, {"Post", "bob@", false}, {"Post", "bob", true},
      {"Post", "bob@localhost", true},      {"Imap", "bob", false},  {"Imap", "bob@x.y", true}};
  for (const auto& [kind, address, usable] : rows) {
    Stored("MailKind") = kind;
    Stored("MyAddress") = address;
    if (usable) {
      EXPECT_NO_THROW(service_.SignOn()) << kind << address;
    } else {
      EXPECT_THROW(service_.SignOn(), MailError) << kind << address;
    }
    service_.SignOff();
  }
}

TEST_F(MailServiceTest, WithoutADialogTheLoginNameIsTakenAndNotStored) {
  ::setenv("XDG_DATA_HOME", "/somewhere", 1);
  SignOn();
  ::unsetenv("XDG_DATA_HOME");
  const MailAccount account = accounts_.at(0);
  EXPECT_EQ(account.MailKind, "Post");
  EXPECT_FALSE(account.MyName.empty());
  EXPECT_EQ(account.MyAddress, account.MyName + "@localhost");
  EXPECT_EQ(account.PostFolder, "/somewhere/tarvolenix/post/");
  EXPECT_TRUE(desktop_.settings.writes.empty()) << "who can ask still does";
  service_.RecipAddress("you@x.y");
  service_.Send();
  EXPECT_EQ(script_.Calls(), "send:" + account.MyAddress + ">you@x.y ");
}

TEST_F(MailServiceTest, AStoredAccountIsTakenAsItIs) {
  Stored("MailKind") = "Imap";
  Stored("MyName") = "007";
  Stored("MyAddress") = "me@x.y";
  Stored("PostFolder") = "/everybodys/post";
  Stored("ImapPort") = "10143";
  Stored("SmtpPort") = "nonsense";
  SignOn();
  const MailAccount account = accounts_.at(0);
  EXPECT_EQ(account.MailKind + account.MyName + account.MyAddress, "Imap007me@x.y");
  EXPECT_EQ(account.PostFolder, "/everybodys/post/");
  EXPECT_EQ(account.ImapPort, 10143);
  EXPECT_EQ(account.SmtpPort, 465);
  EXPECT_TRUE(desktop_.settings.writes.empty());

  ASSERT_TRUE(desktop::SaveMailAccount(account));
  EXPECT_EQ(Stored("MyName"), "007") << "a name stays text";
  EXPECT_EQ(Stored("ImapSecurity"), "Tls");
  EXPECT_EQ(Stored("SmtpPort"), "465");
}

TEST_F(MailServiceTest, WhatAStoredAccountLacksIsFilledIn) {
  platform::Process().ProgramFolder = "/program/";
  Stored("MyName") = " ";
  Stored("MyAddress") = "me@x.y";
  Stored("PostFolder") = "our post";
  SignOn();
  EXPECT_EQ(accounts_.at(0).MyName + "@localhost", desktop::WithLoginName({}).MyAddress);
  EXPECT_EQ(accounts_.at(0).PostFolder, "/program/our post/");
}

class AskingMailServiceTest : public MailServiceTest {
 protected:
  AskingMailServiceTest()
      : MailServiceTest([this](const MailAccount& suggestion) {
          ++questions_;
          suggestion_ = suggestion;
          return answer_;
        }) {}

  int questions_ = 0;
  MailAccount suggestion_;
  std::optional<MailAccount> answer_;
};

TEST_F(AskingMailServiceTest, AsksOnceAndNeverAgainWhenAnswered) {
  Stored("PostFolder") = "/everybodys/post/";
  Stored("MailKind") = "Imap";
  EXPECT_THROW(service_.SignOn(), MailError) << "cancelled";
  EXPECT_EQ(suggestion_.PostFolder, "/everybodys/post/");
  EXPECT_TRUE(suggestion_.MyAddress.ends_with("@localhost"));
  answer_ = suggestion_;
  answer_->MyAddress = "my name@localhost";
  EXPECT_THROW(service_.SignOn(), MailError);
  EXPECT_TRUE(desktop_.settings.writes.empty());
  answer_ = suggestion_;
  answer_->MyName = "Müller, Hans";
  SignOn();
  service_.SignOff();
  SignOn();
  EXPECT_EQ(questions_, 3);
  EXPECT_EQ(Stored("MailKind"), "Imap");
  EXPECT_EQ(Stored("MyAddress"), suggestion_.MyAddress);
  EXPECT_EQ(accounts_.back().MyName, "Müller, Hans");
}

TEST(MailTransportTest, AnUnknownKindOfAccountRaises) {
  MailAccount account;
  account.MailKind = "Pigeon";
  EXPECT_THROW(desktop::MakeMailTransport(account), MailError);
}

}  // namespace
