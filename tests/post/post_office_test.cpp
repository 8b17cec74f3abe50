// SPDX-License-Identifier: GPL-3.0-or-later
#include "post/post_office.h"

#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <set>
#include <thread>

#include "fakes/temporary_folder.h"
#include "letters/mail_text.h"
#include "platform/mail_client.h"
#include "post/accounts/local_address.h"

namespace {

namespace fs = std::filesystem;
using platform::MailError;
using post::Maildir;

TEST(BoxNameTest, IsAlwaysOnePlainFolder) {
  const std::pair<const char*, const char*> rows[] = {
      {"Hans.Meier+chess_1-x@Example.ORG", "hans.meier+chess_1-x@example.org"},
      {"  a@b ", "a@b"},
      {"bob", "bob@localhost"},
      {"../../etc/passwd@x", "%2E.%2F..%2Fetc%2Fpasswd@x"},
      {"a%2Fb@x", "a%252fb@x"},
      {"a\nb c@x", "a%0Ab%20c@x"},
      {"..", "%2E.@localhost"}};
  for (const auto& [address, name] : rows) {
    EXPECT_EQ(post::BoxName(address), name) << address;
  }
  EXPECT_THROW(post::BoxName(""), MailError);
}

class MaildirTest : public testing::Test {
 protected:
  MaildirTest() { box_.Create(); }

  void Put(const std::string& name, const std::string& subject = "Tarvolenix : e4") {
    WriteFile(path_ + name, "From: a@b\nSubject: " + subject + "\n\nbody of " + name + "\n");
  }

  std::string Ids(bool unreadOnly = false) {
    std::string ids;
    for (const auto& mail : box_.List(unreadOnly)) ids += mail.id + (mail.read ? "+ " : " ");
    return ids;
  }

  std::set<std::string> Files() const {
    std::set<std::string> names;
    for (const auto& entry : fs::recursive_directory_iterator(path_)) {
      if (!entry.is_directory()) names.insert(fs::relative(entry.path(), path_).string());
    }
    return names;
  }

  TemporaryFolder folder_;
  std::string path_ = folder_ / "box/";
  Maildir box_{path_};
};

TEST_F(MaildirTest, OrdersByTheTimeOfDelivery) {
  for (const char* name : {"new/1000.M7P1.h", "cur/999.P9.h:2,", "new/1000.M30P1.h",
                           "new/1001.1_0.h", "new/1000.M7P0.h", "new/noTime"}) {
    Put(name);
  }
  EXPECT_EQ(Ids(), "noTime 999.P9.h 1000.M7P0.h 1000.M7P1.h 1000.M30P1.h 1001.1_0.h ");
}

TEST_F(MaildirTest, TellsAndSetsTheMarksOfTheStore) {
  for (const char* name :
       {"new/1.a", "cur/2.a", "cur/3.a:2,FR", "cur/4.a:2,RS", "cur/5.a:2,T", "new/6.a:2,S"}) {
    Put(name);
  }
  EXPECT_EQ(Ids(true), "1.a 2.a 3.a 6.a ");
  EXPECT_EQ(Ids(false), "1.a 2.a 3.a 4.a+ 6.a ");
  fs::rename(path_ + "new/1.a", path_ + "cur/1.a:2,F");  // as another program may
  for (const char* id : {"1.a", "2.a", "3.a", "4.a", "6.a", "gone"}) box_.MarkRead(id);
  EXPECT_EQ(Files(), (std::set<std::string>{"cur/1.a:2,FS", "cur/2.a:2,S", "cur/3.a:2,FRS",
                                            "cur/4.a:2,RS", "cur/5.a:2,T", "cur/6.a:2,S"}));
  box_.Remove("1.a");
  box_.Remove("1.a");
  EXPECT_EQ(Ids(false), "2.a+ 3.a+ 4.a+ 6.a+ ");
}

TEST_F(MaildirTest, ALookThatHasBroughtEnoughLeavesTheRestToTheNext) {
  for (const char* name : {"new/1.a", "cur/2.a:2,S", "new/3.a"}) Put(name);
  box_ = Maildir(path_, 1);
  EXPECT_EQ(Ids(), "1.a ");
  box_.Remove("1.a");
  EXPECT_EQ(Ids(), "2.a+ ");
  Put("new/4.a");
  EXPECT_EQ(Ids(), "3.a ");
  EXPECT_EQ(Ids(), "4.a ");
  EXPECT_FALSE(box_.MoreToCome());
  EXPECT_EQ(Ids(), "2.a+ ") << "the round is complete";
  EXPECT_TRUE(box_.MoreToCome());
  box_.BeginAnew();
  EXPECT_EQ(Ids(), "2.a+ ");
}

TEST_F(MaildirTest, LeavesAloneWhatIsNoMailOfOurs) {
  Put("new/1.good");
  Put("new/2.foreign", "Hello");
  Put("new/4.noblank", "Tarvolenix: e4");
  WriteFile(path_ + "new/5.rubbish", std::string("\0\xFF\xFE\r\r\n:::\0", 10));
  fs::create_directory(path_ + "new/7.folder");
  fs::create_symlink("/dev/zero", path_ + "new/8.link");
  ASSERT_EQ(::mkfifo((path_ + "new/9.pipe").c_str(), 0600), 0);
  Put("new/10.sparse");
  fs::resize_file(path_ + "new/10.sparse", 1ull << 30);
  WriteFile(path_ + "new/11.header", "Subject: Tarvolenix : e4\nX: " + std::string(1 << 20, 'x'));
  Put("tmp/12.unfinished");
  const auto before = Files();
  for (int look = 0; look < 2; ++look) EXPECT_EQ(Ids(true), "1.good ");
  EXPECT_EQ(Files(), before);
}

TEST_F(MaildirTest, DeliversAtOnceFromManySides) {
  std::array<std::thread, 4> senders;
  for (std::thread& sender : senders) {
    sender = std::thread([this] {
      const Maildir other(path_);
      for (int n = 0; n < 25; ++n) other.Deliver("From: a@b.c\nSubject: Tarvolenix : x\n\nwhole\n");
    });
  }
  std::size_t seen = 0;
  while (seen < 100) {
    const auto mails = box_.List(true);
    EXPECT_GE(mails.size(), seen);
    for (const auto& mail : mails) EXPECT_EQ(mail.text, "whole\n");
    seen = mails.size();
  }
  for (std::thread& sender : senders) sender.join();
  EXPECT_TRUE(fs::is_empty(path_ + "tmp"));
}

TEST_F(MaildirTest, ADeliveryThatIsCutOffLeavesNoHalfMail) {
  const pid_t child = ::fork();
  if (child == 0) {
    const rlimit shorterThanTheMail{100, 100};
    ::setrlimit(RLIMIT_FSIZE, &shorterThanTheMail);  // the system kills whoever writes more
    box_.Deliver("From: a@b.c\nSubject: Tarvolenix : x\n\n" + std::string(1000, 'x'));
    ::_exit(0);
  }
  int status = 0;
  ::waitpid(child, &status, 0);
  ASSERT_TRUE(WIFSIGNALED(status));
  EXPECT_EQ(Ids(), "");
  EXPECT_FALSE(fs::is_empty(path_ + "tmp"));
}

TEST_F(MaildirTest, AbandonedDeliveriesGoAndNothingElse) {
  for (const char* name : {"tmp/old", "tmp/fresh", "tmp/folder/old", "new/old", "elsewhere/old"}) {
    fs::create_directories(fs::path(path_ + name).parent_path());
    Put(name);
    const auto age = std::chrono::hours(std::string(name).ends_with("old") ? 37 : 35);
    fs::last_write_time(path_ + name, fs::file_time_type::clock::now() - age);
  }
  fs::create_symlink(path_ + "elsewhere/old", path_ + "tmp/link");
  auto left = Files();
  left.erase("tmp/old");
  box_.RemoveAbandoned();
  EXPECT_EQ(Files(), left);
  fs::rename(path_ + "tmp", path_ + "away");
  fs::create_directory_symlink(path_ + "elsewhere", path_ + "tmp");
  left = Files();
  box_.RemoveAbandoned();
  EXPECT_EQ(Files(), left) << "somebody has laid a link to other files";
}

TEST(PostOfficeTest, IsPrivateUntilItsFolderIsShared) {
  const TemporaryFolder folder;
  const auto permissions = [](const std::string& path) { return fs::status(path).permissions(); };
  post::MailAccount account;
  account.MyAddress = "me@localhost";
  account.PostFolder = folder / "post/";
  post::PostOffice me(account);
  me.Open();
  EXPECT_EQ(permissions(folder / "post"), fs::perms::owner_all);
  EXPECT_EQ(permissions(folder / "post/me@localhost/new"), fs::perms::owner_all);

  fs::permissions(folder / "post", static_cast<fs::perms>(01777));
  me.Send({{"Me", "me@localhost"}, {{"You", "You"}}, "Tarvolenix : e4", "x"});
  const std::string box = folder / "post/you@localhost/new/";
  EXPECT_EQ(permissions(box), static_cast<fs::perms>(0777));
  EXPECT_EQ(permissions(fs::directory_iterator(box)->path().string()),
            static_cast<fs::perms>(0666));
}

}  // namespace
