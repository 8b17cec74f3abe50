// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/single_instance.h"

#include <QCoreApplication>
#include <QTest>
#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdlib>
#include <future>
#include <optional>

#include "desktop/instance_channel.h"
#include "fakes/temporary_folder.h"

namespace {

using desktop::SingleInstance;

class SingleInstanceTest : public testing::Test {
 protected:
  SingleInstanceTest() { ::setenv("XDG_RUNTIME_DIR", (session_ / "").c_str(), 1); }
  ~SingleInstanceTest() override { ::unsetenv("XDG_RUNTIME_DIR"); }

  std::string LockFile() {
    for (const auto& entry : std::filesystem::directory_iterator(session_ / "")) {
      if (entry.path().extension() == ".lock") return entry.path().string();
    }
    return {};
  }

  TemporaryFolder session_;
  TemporaryFolder program_;
};

TEST_F(SingleInstanceTest, OneRunsAtATimeFromEachFolder) {
  std::optional<SingleInstance> first(program_ / "");
  EXPECT_FALSE(first->IsAnotherRunning());
  EXPECT_FALSE(first->IsAnotherRunning()) << "it isn't its own rival";
  SingleInstance second(program_ / "");
  EXPECT_TRUE(second.IsAnotherRunning());
  SingleInstance elsewhere(session_ / "");
  EXPECT_FALSE(elsewhere.IsAnotherRunning());
  first.reset();
  EXPECT_FALSE(second.IsAnotherRunning());
}

TEST_F(SingleInstanceTest, TheRunningOneTakesTheFilesOfLaterStarts) {
  int argumentCount = 1;
  char name[] = "test";
  char* arguments[] = {name, nullptr};
  QCoreApplication application(argumentCount, arguments);
  SingleInstance first(program_ / "");
  WriteFile(first.Socket(), "left by a crash");
  EXPECT_FALSE(desktop::HandOverFiles(first.Socket(), {"/a"}, {})) << "nobody listens";
  desktop::GivenFiles taken;
  const desktop::GivenFiles files{"/a b;c\n.txt", "/\xC3\xA4"};
  auto handedOver = std::async(std::launch::async, [&] {
    return desktop::HandOverFiles(SingleInstance(program_ / "").Socket(), files);
  });
  // One that has just begun listens a moment later.
  QTest::qWait(50);
  const desktop::InstanceChannel channel(first.Socket(), [&](const auto& files) { taken = files; });
  EXPECT_TRUE(QTest::qWaitFor([&] { return !taken.empty(); }));
  EXPECT_TRUE(handedOver.get());
  EXPECT_EQ(taken, files);
}

TEST_F(SingleInstanceTest, WhatACrashOrAPowerCutLeavesIsNobodys) {
  const pid_t child = ::fork();
  if (child == 0) {
    SingleInstance crashing(program_ / "");
    ::_exit(crashing.IsAnotherRunning() ? 1 : 0);  // without the destructor
  }
  int status = -1;
  ::waitpid(child, &status, 0);
  ASSERT_EQ(status, 0);
  const std::string file = LockFile();
  ASSERT_NE(file, "");
  EXPECT_FALSE(SingleInstance(program_ / "").IsAnotherRunning());
  WriteFile(file, "");
  EXPECT_FALSE(SingleInstance(program_ / "").IsAnotherRunning()) << "a file that names nobody";
}

}  // namespace
