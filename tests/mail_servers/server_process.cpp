// SPDX-License-Identifier: GPL-3.0-or-later
#include "mail_servers/server_process.h"

#include <arpa/inet.h>
#include <fcntl.h>
#include <netinet/in.h>
#include <signal.h>
#include <sys/prctl.h>
#include <sys/socket.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <cstdlib>
#include <fstream>
#include <iterator>
#include <stdexcept>
#include <thread>

namespace {

using namespace std::chrono_literals;

sockaddr_in LoopbackAddress(int port) {
  sockaddr_in address{};
  address.sin_family = AF_INET;
  address.sin_port = htons(static_cast<in_port_t>(port));
  address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
  return address;
}

/// In the child: nothing but what may be called between fork and exec.
[[noreturn]] void Become(char* const* arguments, const char* log, pid_t parent) {
  ::prctl(PR_SET_PDEATHSIG, SIGTERM);
  if (::getppid() != parent) ::_exit(1);
  const int output = ::open(log, O_WRONLY | O_CREAT | O_APPEND, 0644);
  ::dup2(output, STDOUT_FILENO);
  ::dup2(output, STDERR_FILENO);
  ::execv(arguments[0], arguments);
  ::_exit(127);
}

std::string ContentOf(const std::filesystem::path& file) {
  std::ifstream stream(file);
  return {std::istreambuf_iterator<char>(stream), {}};
}

}  // namespace

ServerProcess::ServerProcess(const std::vector<std::string>& command, std::string log)
    : log_(std::move(log)) {
  std::vector<char*> arguments;
  for (const std::string& argument : command) {
    arguments.push_back(const_cast<char*>(argument.c_str()));
  }
  arguments.push_back(nullptr);
  const pid_t parent = ::getpid();
  pid_ = ::fork();
  if (pid_ == 0) Become(arguments.data(), log_.c_str(), parent);
  if (pid_ < 0) throw std::runtime_error("Can't start " + command[0]);
}

ServerProcess::~ServerProcess() {
  AskToStop();
  for (int i = 0; i < 500 && IsRunning(); ++i) std::this_thread::sleep_for(20ms);
  if (!IsRunning()) return;
  ::kill(pid_, SIGKILL);
  ::waitpid(pid_, nullptr, 0);
}

void ServerProcess::AskToStop() {
  if (IsRunning()) ::kill(pid_, SIGTERM);
}

bool ServerProcess::IsRunning() {
  if (pid_ > 0 && ::waitpid(pid_, nullptr, WNOHANG) != 0) pid_ = -1;
  return pid_ > 0;
}

void ServerProcess::AwaitPort(int port) {
  for (int i = 0; i < 1000 && IsRunning(); ++i) {
    if (const int socket = ConnectTo(port); socket >= 0) {
      ::close(socket);
      return;
    }
    std::this_thread::sleep_for(10ms);
  }
  throw std::runtime_error("A mail server doesn't start:\n" + ContentOf(log_));
}

void RunCommand(const std::filesystem::path& folder, const std::string& command) {
  const std::string line =
      "cd '" + folder.string() + "' && { " + command + "; } > command.log 2>&1 < /dev/null";
  if (std::system(line.c_str()) == 0) return;
  throw std::runtime_error(command + " fails:\n" + ContentOf(folder / "command.log"));
}

std::vector<int> FreePorts(std::size_t count) {
  std::vector<int> ports;
  std::vector<int> sockets;  // all open together, so that no port comes twice
  while (ports.size() < count) {
    sockaddr_in address = LoopbackAddress(0);
    socklen_t size = sizeof address;
    sockets.push_back(::socket(AF_INET, SOCK_STREAM, 0));
    auto* const any = reinterpret_cast<sockaddr*>(&address);
    if (::bind(sockets.back(), any, size) != 0 || ::getsockname(sockets.back(), any, &size) != 0) {
      throw std::runtime_error("No free port");
    }
    ports.push_back(ntohs(address.sin_port));
  }
  for (const int socket : sockets) ::close(socket);
  return ports;
}

int ConnectTo(int port) {
  const sockaddr_in address = LoopbackAddress(port);
  const int socket = ::socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0);
  if (::connect(socket, reinterpret_cast<const sockaddr*>(&address), sizeof address) == 0) {
    return socket;
  }
  ::close(socket);
  return -1;
}
