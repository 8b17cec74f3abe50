// SPDX-License-Identifier: GPL-3.0-or-later
// The access tokens of this run. What gets them, the refresh token, is kept with the passwords;
// some providers give another one with every access token, which then has to be kept in its place.
#pragma once

#include <chrono>
#include <functional>
#include <map>
#include <memory>
#include <mutex>
#include <string>
#include <thread>

#include "platform/events.h"
#include "post/accounts/access_tokens.h"
#include "post/accounts/passwords.h"
#include "sign_in/services.h"

namespace sign_in {

class KeptTokens : public post::AccessTokens {
 public:
  /// A clock that is set counts for nothing. It stands still while the computer sleeps: a token
  /// that ended meanwhile is refused, and renewed then.
  using Clock = std::chrono::steady_clock;
  using Now = std::function<Clock::time_point()>;

  /// Belongs to the window's thread, as `events` and `passwords` do, which must outlive it.
  KeptTokens(platform::Events& events, post::Passwords& passwords, ClientFiles files,
             Now now = Clock::now);
  ~KeptTokens() override = default;
  KeptTokens(const KeptTokens&) = delete;
  KeptTokens& operator=(const KeptTokens&) = delete;

  std::string Token(const post::MailAccount& account, const std::string& refresh,
                    const std::string& stale, const post::Patience& patience) override;

  /// Callable from any thread: what counts now in the place of a refresh token that may be spent.
  std::string Newest(std::string refresh) const;

  /// Keeps what was renewed: at the end, when no thread renews any more. Until then that is done by
  /// itself, as soon as the window's thread is free.
  void KeepRenewed();

  const ClientFiles& Files() const { return files_; }

 private:
  struct Access {
    std::string token;
    Clock::time_point end;
  };

  bool IsGood(const Access& access, const std::string& stale) const;
  std::string Renewed(const post::MailAccount& account, const std::string& refresh,
                      const post::Patience& patience);
  void Follow(const std::string& spent, const std::string& next);
  std::string Kept(const std::string& key, const post::Patience& patience);
  void KeepSoon(const std::string& key, const std::string& spent);
  void Keep(const std::string& key, const std::string& spent);

  platform::Events& events_;
  post::Passwords& passwords_;
  ClientFiles files_;
  Now now_;
  std::shared_ptr<const bool> audience_;  // goes with this
  const std::thread::id home_ = std::this_thread::get_id();
  bool isTold_ = false;

  std::timed_mutex renewing_;             // guards what follows, and holds questions apart
  std::map<std::string, Access> access_;  // by the refresh token that counts now

  mutable std::mutex mutex_;                      // guards what follows
  std::map<std::string, std::string> followers_;  // what came in the place of a spent token
  std::map<std::string, std::string> unkept_;     // the token that is spent, by the account's key
};

}  // namespace sign_in
