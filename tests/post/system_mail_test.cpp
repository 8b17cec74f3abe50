// SPDX-License-Identifier: GPL-3.0-or-later
// How the system's own mail fails.
#include "post/system_mail.h"

#include <gtest/gtest.h>
#include <signal.h>

#include "fakes/temporary_folder.h"
#include "platform/mail_client.h"

namespace {

namespace fs = std::filesystem;
using post::SystemMail;

class SystemMailTest : public testing::Test {
 protected:
  SystemMailTest() { post::Maildir(folder_ / "Maildir/").Create(); }

  std::string Program(const std::string& lines) const {
    WriteFile(folder_ / "sendmail", "#!/bin/sh\n" + lines + "\n");
    fs::permissions(folder_ / "sendmail", fs::perms::owner_all);
    return folder_ / "sendmail";
  }

  /// What the user hears; blank where nothing was raised.
  template <typename Work>
  static std::string Raised(const Work& work) {
    try {
      work();
    } catch (const platform::MailError& error) {
      return error.what();
    }
    return {};
  }

  std::string SendRaises(const std::string& program,
                         std::chrono::milliseconds timeLimit = std::chrono::minutes(1)) const {
    SystemMail mail(folder_ / "Maildir", program, timeLimit);
    const std::string text(1 << 20, 'x');
    return Raised([&] {
      mail.Send(
          {{"Me", "me@x.y"}, {{"", "-you@x.y"}, {"", "`id`$HOME@x.y"}}, "Tarvolenix : e4", text});
    });
  }

  TemporaryFolder folder_;
};

TEST_F(SystemMailTest, BothEndsMustBeThere) {
  const std::string sendmail = Program("exit 0");
  const auto open = [](const std::string& maildir, const std::string& program) {
    return Raised([&] { SystemMail(maildir, program).Open(); });
  };
  EXPECT_EQ(open(folder_ / "Maildir", sendmail), "");
  for (const char* maildir : {"none", "sendmail"}) {
    EXPECT_NE(open(folder_ / maildir, sendmail), "") << maildir;
  }
  EXPECT_FALSE(fs::exists(folder_ / "none"));
  WriteFile(folder_ / "plain", "#!/bin/sh\n");
  for (const char* program : {"none", "Maildir", "plain"}) {
    EXPECT_NE(open(folder_ / "Maildir", folder_ / program), "") << program;
  }
}

TEST_F(SystemMailTest, SaysWhatTheProgramSays) {
  const std::pair<const char*, const char*> rows[] = {
      {"exit 0", ""},
      {"echo warning >&2; cat > /dev/null", ""},
      {"echo one >&2; echo 'sendmail: no|such host' >&2; echo; exit 68", "sendmail: no such host"},
      {"[ \"$*\" = '-i -- -you@x.y `id`$HOME@x.y' ]", ""},
      {"cat | grep -c . | grep -q '^[0-9]*$'", ""},
      {"grep -q \"$(printf '\\r')\" && echo 'has CR'; exit 1", "sendmail didn't take the mail"},
      {"kill -9 $$", "sendmail didn't take the mail"},
  };
  for (const auto& [lines, said] : rows) {
    const std::string raised = SendRaises(Program(lines));
    EXPECT_NE(raised.find(said), std::string::npos) << lines << "\n" << raised;
    EXPECT_EQ(raised.empty(), std::string(said).empty()) << lines << "\n" << raised;
  }
  EXPECT_NE(SendRaises(folder_ / "none"), "");
}

TEST_F(SystemMailTest, EndsAProgramThatHangs) {
  const std::string hanging = Program("echo $$ > \"$0.pid\"; sleep 1000; exit 0");
  EXPECT_NE(SendRaises(hanging, std::chrono::seconds(1)), "");
  const int process = std::stoi(ReadFile(folder_ / "sendmail.pid"));
  EXPECT_NE(::kill(process, 0), 0);
}

}  // namespace
