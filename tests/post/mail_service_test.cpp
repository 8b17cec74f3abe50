// SPDX-License-Identifier: GPL-3.0-or-later
// The mail service over a transport that does as the test tells it.
#include "post/mail_service.h"

#include <gtest/gtest.h>

#include <condition_variable>
#include <mutex>
#include <stdexcept>
#include <thread>

#include "fakes/fake_desktop.h"
#include "fakes/memory_passwords.h"
#include "fakes/plain_events.h"
#include "platform/process_state.h"
#include "post/servers/mail_failures.h"

namespace {

using letters::FetchedMail;
using platform::MailError;
using post::MailAccount;
using post::MailService;

/// What the test and the transport on the mail thread share.
class Script {
 public:
  std::size_t perLook = 2;

  /// Records the call, waits while the gate is shut, and raises where the test wants it.
  void Called(const std::string& call) {
    std::unique_lock lock(mutex_);
    calls_ += call + " ";
    opened_.wait(lock, [this] { return open_; });
    if (call != failing_) return;
    if (isRefusal_) throw post::LoginRefused(call + " is refused");
    if (isOutage_) throw post::ConnectionLost(call + " is cut off");
    throw std::runtime_error(call + " fails");
  }

  void Shut() { Open(false); }
  void Open(bool open = true) {
    const std::lock_guard lock(mutex_);
    open_ = open;
    opened_.notify_all();
  }

  bool IsOpen() {
    const std::lock_guard lock(mutex_);
    return open_;
  }

  void Fail(const std::string& call) {
    const std::lock_guard lock(mutex_);
    failing_ = call;
    isRefusal_ = isOutage_ = false;
  }
  void Refuse(const std::string& call) {
    Fail(call);
    isRefusal_ = true;
  }
  void CutOff(const std::string& call) {
    Fail(call);
    isOutage_ = true;
  }

  std::string Calls() {
    const std::lock_guard lock(mutex_);
    return std::exchange(calls_, {});
  }

 private:
  std::mutex mutex_;
  std::condition_variable opened_;
  bool open_ = true;
  std::string failing_;
  bool isRefusal_ = false, isOutage_ = false;
  std::string calls_;
};

class ScriptedTransport : public post::MailTransport {
 public:
  explicit ScriptedTransport(Script& script) : script_(script) {}

  void Open() override { script_.Called("open"); }
  std::vector<FetchedMail> List(bool unreadOnly) override {
    script_.Called(unreadOnly ? "unread" : "all");
    std::vector<FetchedMail> mails = {{"1", "a", "n", "a@b", "text", false},
                                      {"2", "b", "n", "a@b", "text", false}};
    if (script_.perLook == mails.size()) return mails;
    next_ = 1 - next_;
    return {mails[1 - next_]};
  }
  bool MoreToCome() const override { return next_ != 0; }
  void BeginAnew() override { next_ = 0; }
  void MarkRead(const std::string& id) override { script_.Called("mark" + id); }
  void Remove(const std::string& id) override { script_.Called("remove" + id); }
  void Send(const letters::OutgoingMail& mail) override {
    script_.Called("send:" + mail.to.at(0).address + mail.page.html);
  }
  void Close() override { script_.Called("close"); }
  void Hurry() override { script_.Open(); }

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
  void ReadMail(int index) {
    service_.MsgIndex(index);
    service_.MsgNoteText();
  }
  std::string& Stored(const std::string& name) { return desktop_.settings.groups["Mail"][name]; }

  fakes::FakeDesktop desktop_;
  fakes::PlainEvents events_;
  fakes::MemoryPasswords passwords_;
  Script script_;
  MailAccount account_;  ///< that the transport was made for
  std::string givenPassword_;
  int ready_ = 0;
  int questions_ = 0;
  std::optional<post::AccountAnswer> answer_ = post::AccountAnswer{};
  MailService service_{events_, passwords_,
                       [this](const MailAccount&) {
                         ++questions_;
                         return answer_;
                       },
                       [this](const MailAccount& account, const std::string& password) {
                         account_ = account;
                         givenPassword_ = password;
                         return std::make_unique<ScriptedTransport>(script_);
                       }};
};

TEST_F(MailServiceTest, APrefetchNeitherBlocksNorMakesTheFetchWait) {
  SignOn();
  script_.Shut();
  Prefetch();  // returns though the transport is stuck
  Prefetch();
  EXPECT_FALSE(service_.Prefetched());
  events_.Post([this] { script_.Open(); });
  service_.Fetch();
  EXPECT_EQ(service_.MsgCount(), 2);
  WaitUntilReady(2);
  EXPECT_EQ(script_.Calls(), "unread ") << "one look serves all three";
  Prefetch();
  WaitUntilReady(3);
  script_.Shut();
  service_.Fetch();  // would hang if it asked the transport
  EXPECT_FALSE(service_.Prefetched()) << "the set is taken once";
  script_.Open();
}

TEST_F(MailServiceTest, ARefusedPrefetchIsRaisedByTheNextFetchOnly) {
  SignOn();
  script_.Refuse("unread");
  Prefetch();
  WaitUntilReady(1);
  script_.Fail("");
  EXPECT_THROW(service_.Fetch(), MailError);
  EXPECT_NO_THROW(service_.Flush()) << "it isn't the queue's failure";
  EXPECT_EQ(service_.SessionID(), 0) << "the next logon begins anew";
  EXPECT_THROW(service_.Fetch(), MailError);
  SignOn();
  service_.Fetch();
  EXPECT_EQ(service_.MsgCount(), 2);
}

TEST_F(MailServiceTest, ASessionGoesOnWhileNothingAnswers) {
  script_.CutOff("open");
  EXPECT_NO_THROW(service_.SignOn());
  EXPECT_GT(service_.SessionID(), 0);
  service_.Fetch();
  EXPECT_EQ(script_.Calls(), "open ") << "what was just found out needs no second try";
  for (const char* cut : {"", "all", ""}) {
    script_.CutOff(cut);
    service_.Fetch();
    const bool isCut = *cut != '\0';
    EXPECT_EQ(service_.MsgCount(), isCut ? 0 : 2);
    EXPECT_EQ(service_.LastProblem(), isCut ? "All is cut off." : "");
    EXPECT_EQ(service_.Connection().link,
              isCut ? platform::MailLink::Waiting : platform::MailLink::Connected);
  }
}

TEST_F(MailServiceTest, APrefetchOfOtherMailsOrOfAnOlderInboxIsNotTaken) {
  SignOn();
  Prefetch();
  service_.FetchUnreadOnly(false);
  service_.Fetch();
  Prefetch();
  service_.Delete();
  service_.Fetch();
  EXPECT_EQ(script_.Calls(), "unread all unread remove1 unread ");
  WaitUntilReady(2);
}

TEST_F(MailServiceTest, ALookGoesOnBehindTheSetThatWasTakenLastOrBeginsAnew) {
  const auto fetched = [this] {
    service_.Fetch();
    service_.MsgIndex(0);
    return service_.MsgSubject() + (service_.MoreToCome() ? ", more" : "");
  };
  script_.perLook = 1;
  SignOn();
  Prefetch();
  EXPECT_EQ(fetched(), "a, more");
  Prefetch();
  EXPECT_EQ(fetched(), "b");
  EXPECT_EQ(fetched(), "a, more");
  Prefetch();
  service_.Delete();
  EXPECT_EQ(fetched(), "a, more") << "nobody took the look ahead";
  service_.FetchUnreadOnly(false);
  EXPECT_EQ(fetched(), "a, more") << "other mails are meant";
  WaitUntilReady(3);
}

TEST_F(MailServiceTest, MarksAndDeletionsAreQueuedAndFlushRaisesTheirFailure) {
  SignOn();
  service_.Fetch();
  script_.Shut();
  ReadMail(1);
  ReadMail(0);
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
  ReadMail(0);
  service_.FlushLater();  // returns though the transport is stuck
  script_.Fail("mark1");
  script_.Open();
  EXPECT_NO_THROW(service_.Flush());
  script_.Fail("remove1");
  service_.Delete();
  EXPECT_THROW(service_.Flush(), MailError) << "what comes behind it is raised as ever";
}

TEST_F(MailServiceTest, WhateverFailsASessionBeginsAndEndsAsAsked) {
  script_.Refuse("open");
  EXPECT_THROW(service_.SignOn(), MailError);
  EXPECT_EQ(service_.SessionID(), 0);
  EXPECT_TRUE(service_.LastProblem().starts_with("Open is refused."));
  script_.Fail("remove1");
  SignOn();
  EXPECT_EQ(service_.LastProblem(), "");
  service_.Fetch();
  service_.Delete();
  const auto window = std::make_shared<int>();
  service_.Prefetch([window] { ADD_FAILURE() << "called a window that is gone"; });
  EXPECT_NO_THROW(service_.SignOff());
  EXPECT_EQ(script_.Calls(), "all remove1 all close ");
  SignOn();
  Prefetch();
  WaitUntilReady(1);
  EXPECT_EQ(window.use_count(), 1);
  script_.Fail("close");
  EXPECT_NO_THROW(service_.SignOff());
}

TEST_F(MailServiceTest, WhileOneOperationWaitsAnotherIsRefusedAndItCanBeHurried) {
  service_.RecipAddress("you@x.y");
  const std::function<void()> operations[] = {[this] { service_.SignOn(); },
                                              [this] { service_.Fetch(); }};
  for (const auto& waiting : operations) {
    script_.Shut();
    const std::function<void()> leave = [&] {
      EXPECT_THROW(service_.Fetch(), MailError);
      EXPECT_THROW(service_.Send(), MailError);
      service_.Hurry();
      if (!script_.IsOpen()) events_.Post(leave);
    };
    events_.Post(leave);
    waiting();
  }
  EXPECT_EQ(script_.Calls(), "open all ");
}

TEST_F(MailServiceTest, AsksForWhatIsMissingOnceAndKeepsThePasswordApart) {
  answer_.reset();
  EXPECT_THROW(service_.SignOn(), MailError) << "cancelled";
  EXPECT_TRUE(desktop_.settings.writes.empty());
  MailService console(events_, passwords_);
  EXPECT_THROW(console.SignOn(), platform::AccountError) << "nobody can be asked";
  answer_.emplace();
  answer_->account.MailKind = "Imap";
  answer_->account.UserName = "me";
  answer_->account.ImapHost = "imap.x.y";
  answer_->password = "s3cret; |\n";
  for (int time = 0; time < 2; ++time) {
    SignOn();
    service_.SignOff();
  }
  EXPECT_EQ(questions_, 2);
  EXPECT_EQ(givenPassword_, *answer_->password);
  for (const auto& [name, value] : desktop_.settings.groups["Mail"]) {
    EXPECT_EQ(value.find("s3cret"), std::string::npos) << name;
  }
  const auto sentence = [this] {
    const auto told = std::exchange(desktop_.boxes.messages, {});
    return told.empty() ? std::string{} : told.front().text.substr(0, told.front().text.find(':'));
  };
  EXPECT_EQ(sentence(), "");
  answer_->account.ImapHost = "imap.other.org";
  EXPECT_TRUE(SaveAccountAnswer(*answer_, passwords_));
  EXPECT_EQ(passwords_.kept.size(), 1U) << "that of an account that is gone is forgotten";
  passwords_.readOnly = true;
  EXPECT_TRUE(SaveAccountAnswer(*answer_, passwords_));
  EXPECT_EQ(sentence(), "Your password could not be kept");
  answer_->account.MailKind = "Post";
  EXPECT_TRUE(SaveAccountAnswer(*answer_, passwords_));
  EXPECT_EQ(sentence(), "The password of your earlier mail account could not be removed.");
  desktop_.settings.readOnly = true;
  EXPECT_FALSE(SaveAccountAnswer(*answer_, passwords_));
  EXPECT_EQ(sentence(), "Your mail account can't be stored.");
  desktop_.settings.unreadable = true;
  EXPECT_THROW(service_.SignOn(), platform::AccountError);
  EXPECT_EQ(questions_, 2) << "an account that can't be read is none that is missing";
}

TEST_F(MailServiceTest, TheAddressBookFillsTheOutgoingBuffer) {
  std::optional<std::vector<platform::Recipient>> picked = {{{"Eva", "e@x"}, {"Max", "m@x"}}};
  const auto resolve = [](const auto&, bool mayAsk) {
    return mayAsk ? std::optional(platform::Recipient{"Ev Muster", "found@x"}) : std::nullopt;
  };
  service_.SetAskRecipients({[&](const std::string&) { return picked; }, resolve});
  service_.RecipDisplayName("Ev");
  EXPECT_THROW(service_.Show(false), MailError) << "not signed on";
  SignOn();
  EXPECT_THROW(service_.ResolveName(), MailError) << "nobody is found";
  EXPECT_EQ(service_.RecipDisplayName(), "Ev");
  service_.AddressResolveUI(true);
  service_.ResolveName();
  EXPECT_EQ(service_.RecipDisplayName() + " " + service_.RecipAddress(), "Ev Muster found@x");
  service_.Show(false);
  EXPECT_EQ(service_.RecipAddress(), "e@x");
  picked.reset();
  EXPECT_THROW(service_.Show(false), MailError);
  EXPECT_EQ(service_.RecipCount(), 2);
}

TEST_F(MailServiceTest, APageGoesWithAMailWhereTheUserWantsIt) {
  for (const bool wanted : {true, false}) {
    answer_->account.MyAddress = "me@x";
    answer_->account.SendPage = wanted;
    EXPECT_TRUE(SaveAccountAnswer(*answer_, passwords_));
    SignOn();
    service_.RecipAddress("you@x");
    service_.MsgPage({"-with-page", ""});
    service_.Send();
    events_.RunUntil([this] { return service_.OnItsWay().empty(); });
    service_.SignOff();
    const std::string sent = wanted ? "send:you@x-with-page " : "send:you@x ";
    EXPECT_NE(script_.Calls().find(sent), std::string::npos);
  }
}

}  // namespace
