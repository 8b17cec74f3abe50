// SPDX-License-Identifier: GPL-3.0-or-later
#include "sign_in/kept_tokens.h"

#include <memory>
#include <utility>

#include "post/servers/mail_failures.h"
#include "sign_in/token_endpoint.h"

namespace sign_in {
namespace {

/// A token must outlast the logon that it is taken for.
constexpr std::chrono::seconds margin(60);

std::unique_lock<std::timed_mutex> Locked(std::timed_mutex& mutex, const post::Patience& patience) {
  constexpr std::chrono::milliseconds slice(50);  // how soon a hurry is noticed
  std::unique_lock lock(mutex, std::defer_lock);
  while (!lock.try_lock_for(slice)) {
    if (patience.IsOver()) throw post::ConnectionLost("The sign-in was given up.");
  }
  return lock;
}

}  // namespace

KeptTokens::KeptTokens(platform::Events& events, post::Passwords& passwords, ClientFiles files,
                       Now now)
    : events_(events),
      passwords_(passwords),
      files_(std::move(files)),
      now_(std::move(now)),
      audience_(std::make_shared<bool>()) {}

KeptTokens::~KeptTokens() { KeepRenewed(); }

std::string KeptTokens::Token(const post::MailAccount& account, const std::string& refresh,
                              const std::string& stale, const post::Patience& patience) {
  // One asks at a time: a refresh token may count only once.
  const auto lock = Locked(renewing_, patience);
  Known& known = known_.try_emplace(refresh, Known{refresh, {}, {}}).first->second;
  if (!IsGood(known, stale)) Renew(known, account, patience);
  return known.access;
}

bool KeptTokens::IsGood(const Known& known, const std::string& stale) const {
  return !known.access.empty() && known.access != stale && now_() + margin < known.end;
}

void KeptTokens::Renew(Known& known, const post::MailAccount& account,
                       const post::Patience& patience) {
  const Service service = WithMetadata(ServiceNamed(account.SignIn, files_), patience);
  const auto asked = now_();
  try {
    const Tokens tokens = AskForTokens(
        service, {{"grant_type", "refresh_token"}, {"refresh_token", known.refresh}}, patience);
    known.access = tokens.access;
    known.end = asked + tokens.lifetime;
    if (tokens.refresh.empty() || tokens.refresh == known.refresh) return;
    known.refresh = tokens.refresh;
  } catch (const GrantRefused& refusal) {
    known.access.clear();
    if (refusal.error == "invalid_grant") throw post::SignInLapsed(refusal.what());
    throw;
  } catch (...) {
    known.access.clear();
    throw;
  }
  KeepLater(post::PasswordKey(account), known.refresh);
}

/// The passwords belong to the window's thread.
void KeptTokens::KeepLater(const std::string& key, const std::string& refresh) {
  {
    const std::lock_guard lock(mutex_);
    unkept_[key] = refresh;
  }
  events_.Post([this, audience = std::weak_ptr(audience_)] {
    if (!audience.expired()) KeepRenewed();
  });
}

void KeptTokens::KeepRenewed() {
  std::map<std::string, std::string> unkept;
  {
    const std::lock_guard lock(mutex_);
    unkept.swap(unkept_);
  }
  for (const auto& [key, refresh] : unkept) {
    // Of an account that is the user's no longer nothing is kept.
    if (passwords_.Read(key)) passwords_.Write(key, refresh);
  }
}

}  // namespace sign_in
