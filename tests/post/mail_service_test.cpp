// SPDX-License-Identifier: GPL-3.0-or-later
// The mail service over a transport that does as the test tells it.
#include "post/mail_service.h"

#include <gtest/gtest.h>

#include <atomic>
#include <condition_variable>
#include <mutex>
#include <stdexcept>
#include <thread>

#include "fakes/fake_desktop.h"
#include "fakes/memory_passwords.h"
#include "fakes/plain_events.h"
#include "platform/process_state.h"

namespace {

using post::MailAccount;
using letters::FetchedMail;
using platform::MailError;
using post::MailService;

/// What the test and the transport on the mail thread share.
class Script {
 public:
  std::vector<FetchedMail> inbox = {{"1", "Tarvolenix : a", "n", "a@b", "text", false},
                                    {"2", "Tarvolenix : b", "n", "a@b", "text", false}};

  std::atomic<bool> oneAtATime = false;

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

class ScriptedTransport : public post::MailTransport {
 public:
  explicit ScriptedTransport(Script& script) : script_(script) {}

  void Open() override { script_.Called("open"); }
  std::vector<FetchedMail> List(bool unreadOnly) override {
    script_.Called(unreadOnly ? "unread" : "all");
    if (!script_.oneAtATime) return script_.inbox;
    const FetchedMail& mail = script_.inbox.at(next_);
    next_ = (next_ + 1) % script_.inbox.size();
    return {mail};
  }
  bool MoreToCome() const override { return next_ != 0; }
  void BeginAnew() override { next_ = 0; }
  void MarkRead(const std::string& id) override { script_.Called("mark" + id); }
  void Remove(const std::string& id) override { script_.Called("remove" + id); }
  void Send(const letters::OutgoingMail& mail) override {
    script_.Called("send:" + mail.from.address + ">" + mail.to.at(0).address);
  }
  void Close() override { script_.Called("close"); }

 private:
  Script& script_;
  std::size_t next_ = 0;
};

class MailServiceTest : public testing::Test {
 protected:
  void SignOn() {
    service_.SignOn();
    script_.Calls();
  }

  void Prefetch() {
    service_.FetchUnreadOnly(true);
    service_.Prefetch([this] { ++ready_; });
  }

  void WaitUntilReady(int times) {
    events_.RunUntil([this, times] { return ready_ == times; });
  }

  std::string& Stored(const std::string& name) { return desktop_.settings.groups["Mail"][name]; }

  fakes::FakeDesktop desktop_;
  fakes::PlainEvents events_;
  fakes::MemoryPasswords passwords_;
  Script script_;
  std::vector<MailAccount> accounts_;
  int ready_ = 0;
  int questions_ = 0;
  std::string answeredName_ = "Me";  ///< empty where the user cancels the question
  std::optional<std::string> answeredPassword_;
  std::string givenPassword_;
  MailService service_{events_, passwords_,
                       [this](MailAccount suggestion) -> std::optional<post::AccountAnswer> {
                         ++questions_;
                         if (answeredName_.empty()) return std::nullopt;
                         suggestion.MyName = answeredName_;
                         return post::AccountAnswer{suggestion, answeredPassword_};
                       },
                       [this](const MailAccount& account, const std::string& password) {
                         accounts_.push_back(account);
                         givenPassword_ = password;
                         return std::make_unique<ScriptedTransport>(script_);
                       }};
};

TEST_F(MailServiceTest, APrefetchNeitherBlocksNorMakesTheFetchWait) {
  SignOn();
  script_.Shut();
  Prefetch();  // returns though the transport is stuck
  EXPECT_EQ(ready_, 0);
  EXPECT_FALSE(service_.Prefetched());
  script_.Open();
  WaitUntilReady(1);
  EXPECT_TRUE(service_.Prefetched());
  script_.Shut();
  service_.Fetch();  // would hang if it asked the transport
  EXPECT_EQ(service_.MsgCount(), 2);
  EXPECT_FALSE(service_.Prefetched());
  script_.Open();
  service_.Fetch();
  EXPECT_EQ(script_.Calls(), "unread unread ") << "the set is taken once";
}

TEST_F(MailServiceTest, AFetchWaitsForThePrefetchThatIsUnderWay) {
  SignOn();
  script_.Shut();
  Prefetch();
  Prefetch();
  events_.Post([this] { script_.Open(); });
  service_.Fetch();
  EXPECT_EQ(service_.MsgCount(), 2);
  WaitUntilReady(2);
  EXPECT_EQ(script_.Calls(), "unread ") << "one look serves both";
}

TEST_F(MailServiceTest, AFailedPrefetchIsRaisedByTheNextFetchOnly) {
  SignOn();
  script_.Fail("unread");
  Prefetch();
  WaitUntilReady(1);
  script_.Fail("");
  EXPECT_THROW(service_.Fetch(), MailError);
  EXPECT_NO_THROW(service_.Flush()) << "it isn't the queue's failure";
  EXPECT_EQ(service_.SessionID(), 0) << "the next logon begins anew";
  SignOn();
  service_.Fetch();
  EXPECT_EQ(service_.MsgCount(), 2);
}

TEST_F(MailServiceTest, APrefetchOfOtherMailsOrOfAnOlderInboxIsNotTaken) {
  SignOn();
  Prefetch();
  service_.FetchUnreadOnly(false);
  service_.Fetch();
  EXPECT_EQ(script_.Calls(), "unread all ");

  service_.FetchUnreadOnly(true);
  service_.Fetch();
  Prefetch();
  service_.MsgIndex(0);
  service_.Delete();
  EXPECT_FALSE(service_.Prefetched());
  service_.Fetch();
  EXPECT_EQ(script_.Calls(), "unread unread remove1 unread ");

  WaitUntilReady(2);
}

TEST_F(MailServiceTest, ALookGoesOnBehindTheSetThatWasTakenLastOrBeginsAnew) {
  const auto fetched = [this] {
    service_.Fetch();
    service_.MsgIndex(0);
    return service_.MsgSubject() + (service_.MoreToCome() ? ", more" : "");
  };
  script_.oneAtATime = true;
  SignOn();
  Prefetch();
  EXPECT_EQ(fetched(), "Tarvolenix : a, more");
  Prefetch();
  EXPECT_TRUE(service_.MoreToCome()) << "the look ahead isn't taken yet";
  EXPECT_EQ(fetched(), "Tarvolenix : b");
  EXPECT_EQ(fetched(), "Tarvolenix : a, more");
  Prefetch();
  service_.Delete();
  EXPECT_EQ(fetched(), "Tarvolenix : a, more") << "nobody took the look ahead";
  service_.FetchUnreadOnly(false);
  EXPECT_EQ(fetched(), "Tarvolenix : a, more") << "other mails are meant";
  WaitUntilReady(3);
}

TEST_F(MailServiceTest, MarksAndDeletionsAreQueuedAndFlushRaisesTheirFailure) {
  SignOn();
  service_.Fetch();
  script_.Shut();
  for (const int index : {1, 0}) {
    service_.MsgIndex(index);
    service_.MsgNoteText();
  }
  service_.Delete();
  EXPECT_EQ(service_.MsgCount(), 1) << "gone from the set though the transport is stuck";
  script_.Fail("mark2");
  script_.Open();
  EXPECT_THROW(service_.Flush(), MailError);
  EXPECT_NO_THROW(service_.Flush());
  EXPECT_EQ(script_.Calls(), "all remove1 mark2 ") << "what goes needs no mark";
}

TEST_F(MailServiceTest, AFlushForLaterDoesntWaitAndItsFailuresAreGivenUp) {
  SignOn();
  service_.Fetch();
  script_.Shut();
  service_.MsgIndex(0);
  service_.MsgNoteText();
  service_.FlushLater();  // returns though the transport is stuck
  script_.Fail("mark1");
  script_.Open();
  EXPECT_NO_THROW(service_.Flush());
  script_.Fail("remove1");
  service_.Delete();
  EXPECT_THROW(service_.Flush(), MailError) << "what comes behind it is raised as ever";
}

TEST_F(MailServiceTest, WhateverFailsASessionBeginsAndEndsAsAsked) {
  script_.Fail("open");
  EXPECT_THROW(service_.SignOn(), MailError);
  EXPECT_EQ(service_.SessionID(), 0);
  EXPECT_EQ(service_.LastProblem(), "Open fails.");
  script_.Fail("remove1");
  SignOn();
  EXPECT_EQ(service_.LastProblem(), "");
  service_.Fetch();
  service_.Delete();
  EXPECT_NO_THROW(service_.SignOff());
  EXPECT_EQ(script_.Calls(), "all remove1 close ");
  SignOn();
  script_.Fail("close");
  EXPECT_NO_THROW(service_.SignOff());
  EXPECT_EQ(service_.SessionID(), 0);
  Prefetch();
  WaitUntilReady(1);
  EXPECT_THROW(service_.Fetch(), MailError) << "a look without a session fails as any other";
}

TEST_F(MailServiceTest, WhoSignsOffHearsOfNoPrefetchAnyMore) {
  SignOn();
  const auto window = std::make_shared<int>();
  service_.Prefetch([window] { ADD_FAILURE() << "called a window that is gone"; });
  service_.SignOff();
  SignOn();
  Prefetch();
  WaitUntilReady(1);
  EXPECT_EQ(window.use_count(), 1);
}

TEST_F(MailServiceTest, WhileOneOperationWaitsAnotherIsRefused) {
  service_.RecipAddress("you@x.y");
  int refused = 0;
  const auto meanwhile = [&](const std::function<void()>& waiting) {
    script_.Shut();
    events_.Post([&] {
      EXPECT_THROW(service_.Fetch(), MailError);
      EXPECT_THROW(service_.Send(), MailError);
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
  EXPECT_EQ(script_.Calls(), "open all send:" + accounts_.at(0).MyAddress + ">you@x.y ");
}

TEST_F(MailServiceTest, AStoredAccountIsTakenAsItIs) {
  platform::Process().ProgramFolder = "/program/";
  Stored("MailKind") = "Imap";
  Stored("MyName") = "007";
  Stored("MyAddress") = "me@x.y";
  Stored("PostFolder") = "our post";
  Stored("ImapPort") = "10143";
  Stored("UserName") = "me";
  Stored("ImapHost") = "x.y";
  passwords_.kept["me@x.y"] = "secret";
  Stored("SmtpPort") = "nonsense";
  SignOn();
  const MailAccount account = accounts_.at(0);
  EXPECT_EQ(account.MailKind + account.MyName + account.MyAddress, "Imap007me@x.y");
  EXPECT_EQ(account.PostFolder, "/program/our post/");
  EXPECT_EQ(account.ImapPort, 10143);
  EXPECT_EQ(account.SmtpPort, 465);
  EXPECT_EQ(givenPassword_, "secret");
  EXPECT_TRUE(desktop_.settings.writes.empty());
  ASSERT_TRUE(post::SaveMailAccount(account));
  EXPECT_EQ(Stored("MyName"), "007") << "a name stays text";
}

TEST_F(MailServiceTest, AsksForTheAccountOnceAndNeverAgainWhenAnswered) {
  answeredName_ = "";
  EXPECT_THROW(service_.SignOn(), MailError) << "cancelled";
  EXPECT_TRUE(desktop_.settings.writes.empty());
  answeredName_ = "Müller, Hans";
  for (int time = 0; time < 2; ++time) {
    SignOn();
    service_.SignOff();
  }
  EXPECT_EQ(questions_, 2);
  EXPECT_TRUE(Stored("MyAddress").ends_with("@localhost"));
  EXPECT_EQ(accounts_.back().MyName, "Müller, Hans");
  desktop_.settings.unreadable = true;
  EXPECT_THROW(service_.SignOn(), platform::AccountError);
  EXPECT_EQ(questions_, 2) << "an account that can't be read is none that is missing";
}

TEST_F(MailServiceTest, AsksForAPasswordThatIsMissingAndKeepsItApart) {
  Stored("MyAddress") = Stored("UserName") = "me@x.y";
  Stored("ImapHost") = "imap.x.y";
  MailService console(events_, passwords_, {}, [this](const auto&, const auto&) {
    return std::make_unique<ScriptedTransport>(script_);
  });
  EXPECT_THROW(console.SignOn(), platform::AccountError) << "none is chosen, nobody can be asked";
  Stored("MailKind") = "Imap";
  EXPECT_THROW(console.SignOn(), MailError) << "nobody can be asked";
  answeredPassword_ = "s3cret; |\n";
  SignOn();
  service_.SignOff();
  SignOn();
  EXPECT_EQ(questions_, 1);
  EXPECT_EQ(givenPassword_, "s3cret; |\n");
  EXPECT_EQ(passwords_.kept["me@x.y@imap.x.y"], "s3cret; |\n");
  for (const auto& [name, value] : desktop_.settings.groups["Mail"]) {
    EXPECT_EQ(value.find("s3cret"), std::string::npos) << name;
  }
}

TEST_F(MailServiceTest, TheAddressBookFillsTheOutgoingBuffer) {
  std::vector<platform::Recipient> picked = {{"Eva", "e@x.org"}, {"Max", "m@x.org"}};
  std::string asked;
  const auto recipients = [this] {
    std::string text;
    for (int i = 0; i < service_.RecipCount(); ++i) {
      service_.RecipIndex(i);
      text += service_.RecipDisplayName() + " " + service_.RecipAddress() + ";";
    }
    service_.RecipIndex(0);
    return text;
  };
  service_.SetAskRecipients(
      {[&](const std::string& caption) -> std::optional<std::vector<platform::Recipient>> {
         asked = caption;
         if (picked.empty()) return std::nullopt;
         return picked;
       },
       [&](const platform::Recipient& typed, bool mayAsk) -> std::optional<platform::Recipient> {
         asked = typed.name + (mayAsk ? "?" : "");
         if (typed.name == "Nobody") return std::nullopt;
         return platform::Recipient{typed.name + " Muster", "found@x.org"};
       }});
  service_.RecipDisplayName("Ev");
  EXPECT_THROW(service_.Show(false), MailError) << "not signed on";
  EXPECT_THROW(service_.ResolveName(), MailError) << "not signed on";
  SignOn();
  service_.AddressResolveUI(true);
  service_.ResolveName();
  EXPECT_EQ(asked, "Ev?");
  EXPECT_EQ(recipients(), "Ev Muster found@x.org;");
  service_.RecipDisplayName("Nobody");
  EXPECT_THROW(service_.ResolveName(), MailError);
  EXPECT_EQ(recipients(), "Nobody found@x.org;");

  service_.AddressCaption("Who?");
  service_.Show(false);
  EXPECT_EQ(asked, "Who?");
  EXPECT_EQ(recipients(), "Eva e@x.org;Max m@x.org;");
  picked.clear();
  EXPECT_THROW(service_.Show(false), MailError);
  EXPECT_EQ(recipients(), "Eva e@x.org;Max m@x.org;");
}

}  // namespace
