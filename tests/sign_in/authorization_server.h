// SPDX-License-Identifier: GPL-3.0-or-later
// A provider on loopback that signs everybody in who brings the right proofs, unless the test has
// told it what to say instead.
#pragma once

#include <QUrlQuery>

#include <deque>
#include <functional>
#include <mutex>
#include <set>
#include <string>
#include <thread>

class AuthorizationServer {
 public:
  AuthorizationServer();

  std::string Url(const std::string& path) const;

  /// The next questions for tokens or codes are answered so, one each.
  void Say(int status, const std::string& content);

  std::function<void()> meanwhile;  ///< ahead of each answer

  void Revoke();  ///< all that it has given
  int Asked() const { return asked_; }

 private:
  using Answer = std::pair<int, std::string>;
  void Serve(const std::stop_token& stop);
  Answer AnswerTo(const QString& path, const QUrlQuery& fields);
  Answer Authorize(const QUrlQuery& fields);
  Answer Give(const QUrlQuery& fields);

  std::mutex mutex_;
  std::deque<Answer> said_;
  std::set<QString> good_;  // codes and refresh tokens
  QUrlQuery question_;      // of the browser
  std::atomic<int> asked_ = 0;
  std::atomic<int> port_ = 0;
  std::jthread thread_;
};
