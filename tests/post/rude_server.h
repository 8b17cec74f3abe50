// SPDX-License-Identifier: GPL-3.0-or-later
// A mail server on loopback that is as polite as its table of answers, until the test tells it to
// answer one command rudely.
#pragma once

#include <atomic>
#include <map>
#include <mutex>
#include <string>
#include <thread>
#include <vector>

/// What a client's line contains, and what is answered: lines, in which "$" stands for the client's
/// tag. The first that fits counts; an unexpected line hangs up. "" answers the connection itself.
/// Behind an answer that begins with "354" or "+ go on" a mail is swallowed up to its line ".":
/// that is `endOfMail` here.
using Answers = std::vector<std::pair<std::string, std::string>>;

inline const std::string endOfMail = "(end of the mail)";
inline const std::string emptyLine =
    "(an empty line)";  ///< what the client sends, not the greeting

// Answers that are none. What stands ahead of them in an answer is sent first.
inline const std::string hang = "\x01";    ///< says nothing, until it is told to go on
inline const std::string hangUp = "\x02";  ///< closes the connection
inline const std::string flood = "\x03";   ///< never stops

class RudeServer {
 public:
  explicit RudeServer(Answers answers);
  ~RudeServer();
  RudeServer(const RudeServer&) = delete;
  RudeServer& operator=(const RudeServer&) = delete;

  int Port() const { return port_; }

  /// Answers `command` that way from now on; "" as `answer` makes it polite again.
  void Answer(const std::string& command, const std::string& answer);

  /// The same for the next time only.
  void AnswerOnce(const std::string& command, const std::string& answer);

  /// Lets everything that hangs go on, politely.
  void GoOn() { ++released_; }

  /// How many client lines contained `text`.
  int Count(const std::string& text);

  /// Closes the connection that is open, as a server does with an idle one.
  void Cut();

 private:
  void Serve();
  void Converse(int client);
  bool Reply(int client, const std::string& line);
  std::string AnswerTo(const std::string& line);

  const Answers polite_;
  int listener_ = -1;
  int port_ = 0;
  std::mutex mutex_;
  std::map<std::string, std::string> rude_;
  std::map<std::string, std::string> rudeOnce_;
  std::vector<std::string> lines_;
  std::string tag_;          // of the client's last command
  bool swallowing_ = false;  // a mail
  std::atomic<int> client_ = -1;
  std::atomic<int> released_ = 0;
  std::atomic<bool> stopping_ = false;
  std::thread thread_;
};
