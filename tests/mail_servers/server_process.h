// SPDX-License-Identifier: GPL-3.0-or-later
// A server as a child of this process, which never outlives it.
#pragma once

#include <sys/types.h>

#include <filesystem>
#include <string>
#include <vector>

class ServerProcess {
 public:
  /// Starts `command`, a program's path and its arguments; what it says goes to the file `log`.
  ServerProcess(const std::vector<std::string>& command, std::string log);

  /// Asks it to stop and waits until it has.
  ~ServerProcess();
  ServerProcess(const ServerProcess&) = delete;
  ServerProcess& operator=(const ServerProcess&) = delete;

  void AskToStop();

  /// Raises, with what the server has said, where it doesn't listen there soon.
  void AwaitPort(int port);

 private:
  bool IsRunning();

  std::string log_;
  pid_t pid_ = -1;  // -1 once it has ended
};

/// Runs a shell command in `folder`. Raises, with what it has said, where it fails.
void RunCommand(const std::filesystem::path& folder, const std::string& command);

/// Ports of this machine that nobody listens on.
std::vector<int> FreePorts(std::size_t count);

/// A connected socket, or -1.
int ConnectTo(int port);
