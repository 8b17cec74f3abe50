// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/posix_files.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

#include <functional>
#include <set>

#include "fakes/temporary_folder.h"

namespace {

using platform::FileError;

class PosixFilesTest : public testing::Test {
 protected:
  TemporaryFolder folder_;
  desktop::PosixFiles files_;
};

TEST_F(PosixFilesTest, ARenameKeepsThePlacesPermissionsAndALinkToIt) {
  namespace fs = std::filesystem;
  fs::create_directory(folder_ / "a folder isn't listed");
  for (const std::string& parent : {testing::TempDir(), std::string("/dev/shm/")}) {
    if (!fs::exists(parent)) continue;  // elsewhere the same file system, or none
    const TemporaryFolder elsewhere(parent);
    files_.Write(elsewhere / "real", "old");
    fs::permissions(elsewhere / "real", static_cast<fs::perms>(0640));
    fs::create_symlink(elsewhere / "real", folder_ / "link");
    files_.Write(folder_ / "new", "new");
    files_.Rename(folder_ / "new", folder_ / "link");
    EXPECT_TRUE(fs::is_symlink(folder_ / "link")) << parent;
    EXPECT_EQ(files_.Read(elsewhere / "real"), "new") << parent;
    EXPECT_EQ(fs::status(elsewhere / "real").permissions(), static_cast<fs::perms>(0640));
    EXPECT_EQ(files_.List(folder_ / ""), std::vector<std::string>{"link"}) << parent;
    files_.Remove(folder_ / "link");
  }
}

TEST_F(PosixFilesTest, AStampTellsAReplacedAndARewrittenFile) {
  EXPECT_EQ(files_.Stamp(folder_ / "a"), "");
  files_.Write(folder_ / "a", "one");
  const std::string one = files_.Stamp(folder_ / "a");
  files_.Write(folder_ / "b", "two");
  files_.Rename(folder_ / "b", folder_ / "a");
  std::set<std::string> stamps = {one, files_.Stamp(folder_ / "a")};
  for (int change = 1; change <= 50; ++change) {  // faster than the file system's clock strikes
    WriteFile(folder_ / "a", change % 2 == 0 ? "two" : "one");
    stamps.insert(files_.Stamp(folder_ / "a"));
  }
  EXPECT_EQ(stamps.size(), 52U);
  EXPECT_EQ(files_.Stamp("/bin/sh"), files_.Stamp("/bin/sh")) << "a file that nobody changes";
}

TEST_F(PosixFilesTest, EveryFailureRaises) {
  ASSERT_EQ(::mkfifo((folder_ / "pipe").c_str(), 0600), 0);
  WriteFile(folder_ / "file", "x");
  const std::pair<const char*, std::function<void()>> rows[] = {
      {"read an absent file", [this] { files_.Read(folder_ / "no"); }},
      {"read a pipe that nobody writes", [this] { files_.Read(folder_ / "pipe"); }},
      {"write to a full disk", [this] { files_.Write("/dev/full", "x"); }},
      {"write in an absent folder", [this] { files_.Write(folder_ / "no/x", "x"); }},
      {"rename an absent file", [this] { files_.Rename(folder_ / "no", folder_ / "x"); }},
      {"rename onto a folder", [this] { files_.Rename(folder_ / "file", folder_ / ""); }},
      {"remove an absent file", [this] { files_.Remove(folder_ / "no"); }},
      {"list an absent folder", [this] { files_.List(folder_ / "no"); }},
  };
  for (const auto& [name, operation] : rows) EXPECT_THROW(operation(), FileError) << name;
}

}  // namespace
