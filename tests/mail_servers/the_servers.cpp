// SPDX-License-Identifier: GPL-3.0-or-later
#include "mail_servers/the_servers.h"

#include <gtest/gtest.h>

#include <exception>
#include <optional>

namespace {

class RunningServers : public testing::Environment {
 public:
  void SetUp() override {
    try {
      servers.emplace();
    } catch (const std::exception& error) {
      FAIL() << error.what();
    }
  }
  void TearDown() override { servers.reset(); }

  std::optional<MailServers> servers;
};

// Owned by the test framework.
auto* const running = static_cast<RunningServers*>(
    testing::AddGlobalTestEnvironment(std::make_unique<RunningServers>().release()));

}  // namespace

MailServers& TheServers() { return running->servers.value(); }
