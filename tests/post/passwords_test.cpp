// SPDX-License-Identifier: GPL-3.0-or-later
#include "post/accounts/passwords.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

#include <numeric>

#include "fakes/fake_desktop.h"
#include "fakes/temporary_folder.h"
#include "post/accounts/file_passwords.h"
#include "post/accounts/keyring_passwords.h"

namespace {

using post::FilePasswords;

mode_t ModeOf(const std::string& path) {
  struct stat status {};
  EXPECT_EQ(::stat(path.c_str(), &status), 0) << path;
  return status.st_mode & 0777;
}

class FilePasswordsTest : public testing::Test {
 protected:
  TemporaryFolder folder_;
  std::string path_ = folder_ / "below/Tarvolenix.passwords";
  FilePasswords passwords_{path_};
};

TEST_F(FilePasswordsTest, AnyPasswordReadsBackAndStandsNowhereInPlainText) {
  std::string all(256, '\0');
  std::iota(all.begin(), all.end(), '\0');
  const std::pair<std::string, std::string> rows[] = {{"anna@imap.example.org", "two words"},
                                                      {"anna@imap.example.or", "%41=;#\""},
                                                      {"a b|c\n@[::1]", "ключ 棋 ♔"},
                                                      {"all@bytes", all}};
  for (const auto& [key, password] : rows) EXPECT_TRUE(passwords_.Write(key, "an older one"));
  for (const auto& [key, password] : rows) EXPECT_TRUE(passwords_.Write(key, password));
  for (const auto& [key, password] : rows) EXPECT_EQ(FilePasswords(path_).Read(key), password);
  EXPECT_EQ(ReadFile(path_).find("two words"), std::string::npos);
  EXPECT_EQ(passwords_.Read("anna"), std::nullopt);
  EXPECT_TRUE(passwords_.Forget(rows[0].first));
  EXPECT_EQ(passwords_.Read(rows[0].first), std::nullopt);
  EXPECT_EQ(passwords_.Read(rows[1].first), rows[1].second);
}

TEST_F(FilePasswordsTest, NobodyElseCanReadTheFileWhateverWasThereBefore) {
  ASSERT_TRUE(passwords_.Write("a@b", "1"));
  EXPECT_EQ(ModeOf(path_), 0600u);
  ::chmod(path_.c_str(), 0644);
  WriteFile(path_ + ".new", "left by a crash");
  ::chmod((path_ + ".new").c_str(), 0666);
  ASSERT_TRUE(passwords_.Write("c@d", "2"));
  EXPECT_EQ(ModeOf(path_), 0600u);
  ::chmod(path_.c_str(), 0644);
  EXPECT_EQ(passwords_.Read("a@b"), "1");
  EXPECT_EQ(ModeOf(path_), 0600u) << "a copy that came out open is closed by the first look";
  fakes::FakeDesktop desktop;
  const std::string open = "/proc/self/comm";  // of a file system that closes nothing to others
  WriteFile(open, "a secret\n");
  FilePasswords others(open);
  for (int look = 0; look < 2; ++look) EXPECT_EQ(others.Read("a"), std::nullopt);
  EXPECT_EQ(desktop.boxes.messages.size(), 1u);
}

TEST_F(FilePasswordsTest, ADamagedLineHarmsNoOther) {
  ASSERT_TRUE(passwords_.Write("first@x", "1"));
  const std::string good = ReadFile(path_);
  for (const char* damage : {"%", "first", "a%40b %4", "a%40b %GG", "a%40b -1", "\xFF\xFE"}) {
    SCOPED_TRACE(damage);
    WriteFile(path_, std::string(damage) + '\n' + good + damage);  // without an end of line
    EXPECT_EQ(passwords_.Read("first@x"), "1");
    EXPECT_EQ(passwords_.Read("a@b"), std::nullopt);
    EXPECT_TRUE(passwords_.Write("last@x", "2"));
    EXPECT_EQ(passwords_.Read("first@x"), "1");
    EXPECT_EQ(passwords_.Read("last@x"), "2");
  }
}

TEST_F(FilePasswordsTest, WhatCantBeKeptIsTold) {
  std::filesystem::create_directories(path_);
  EXPECT_FALSE(passwords_.Write("a@b", "1"));
  EXPECT_EQ(passwords_.Read("a@b"), std::nullopt);
  WriteFile(folder_ / "file", "");
  EXPECT_FALSE(FilePasswords(folder_ / "file/passwords").Write("a@b", "1"));
}

class KeyringPasswordsTest : public FilePasswordsTest {
 protected:
  KeyringPasswordsTest() {
    ::unsetenv("DBUS_SESSION_BUS_ADDRESS");
    ::setenv("XDG_CONFIG_HOME", (folder_ / "config").c_str(), 1);
  }
  ~KeyringPasswordsTest() override { ::unsetenv("XDG_CONFIG_HOME"); }
};

TEST_F(KeyringPasswordsTest, WithoutAKeyringTheFileBesideTheSettingsStandsIn) {
  for (const char* settings : {"config/Norlewick/Tarvolenix.conf", "portable/Tarvolenix.conf"}) {
    const auto passwords = post::PasswordsBeside(folder_ / settings);
    EXPECT_EQ(passwords->Read("a@b"), std::nullopt);
    ASSERT_TRUE(passwords->Write("a@b", settings));
    EXPECT_EQ(passwords->Read("a@b"), settings);
  }
  EXPECT_EQ(FilePasswords(folder_ / "config/Norlewick/Tarvolenix.passwords").Read("a@b"),
            "config/Norlewick/Tarvolenix.conf");
  std::filesystem::create_directories(folder_ / "full/Tarvolenix.passwords");
  const auto passwords = post::PasswordsBeside(folder_ / "full/Tarvolenix.conf");
  EXPECT_FALSE(passwords->Write("a@b", "1"));
  EXPECT_EQ(passwords->Read("a@b"), "1") << "in this run";
  passwords->Forget("a@b");
  EXPECT_EQ(passwords->Read("a@b"), std::nullopt);
}

}  // namespace
