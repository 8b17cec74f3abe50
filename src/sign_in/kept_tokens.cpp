// SPDX-License-Identifier: GPL-3.0-or-later
#include "sign_in/kept_tokens.h"

#include <future>
#include <memory>
#include <utility>

#include "platform/settings_store.h"
#include "post/accounts/mail_account.h"
#include "post/servers/mail_failures.h"
#include "sign_in/token_endpoint.h"

namespace sign_in {
namespace {

/// A token must outlast the logon that it is taken for.
constexpr std::chrono::seconds margin(60);

constexpr std::chrono::seconds leastWait(4);

/// How soon a hurry is noticed.
constexpr std::chrono::milliseconds slice(50);

std::unique_lock<std::timed_mutex> Locked(std::timed_mutex& mutex, const post::Patience& patience) {
  std::unique_lock lock(mutex, std::defer_lock);
  while (!lock.try_lock_for(slice)) {
    if (patience.IsOver()) throw post::ConnectionLost("The sign-in was given up.");
  }
  return lock;
}

/// Once it is asked, the sign-in so far may count no more: a hurry waits a while for the answer.
Tokens TokensFor(const Service& service, const std::string& refresh,
                 const post::Patience& patience) {
  try {
    return AskForTokens(service, {{"grant_type", "refresh_token"}, {"refresh_token", refresh}},
                        post::Patience(patience, leastWait));
  } catch (const GrantRefused& refusal) {
    if (WantsNewSignIn(refusal.error)) throw post::SignInLapsed(refusal.what());
    throw;
  }
}

bool IsOfTheAccount(const std::string& key) {
  try {
    const post::MailAccount account = post::LoadMailAccount();
    return post::NeedsPassword(account) && post::PasswordKey(account) == key;
  } catch (const platform::SettingsError&) {
    return true;
  }
}

}  // namespace

KeptTokens::KeptTokens(platform::Events& events, post::Passwords& passwords, ClientFiles files,
                       Now now)
    : events_(events),
      passwords_(passwords),
      files_(std::move(files)),
      now_(std::move(now)),
      audience_(std::make_shared<bool>()) {}

std::string KeptTokens::Token(const post::MailAccount& account, const std::string& refresh,
                              const std::string& stale, const post::Patience& patience) {
  // One asks at a time: a refresh token may count only once.
  const auto lock = Locked(renewing_, patience);
  const Access& access = access_[Newest(refresh)];
  if (IsGood(access, stale)) return access.token;
  try {
    return Renewed(account, Newest(refresh), patience);
  } catch (const post::SignInLapsed&) {
    // Another program may have renewed it, or the user may have signed in again meanwhile.
    const std::string kept = Newest(Kept(post::PasswordKey(account), patience));
    if (kept.empty() || kept == Newest(refresh)) throw;
    Follow(Newest(refresh), kept);
    return Renewed(account, kept, patience);
  }
}

std::string KeptTokens::Newest(std::string refresh) const {
  const std::lock_guard lock(mutex_);
  for (auto at = followers_.find(refresh); at != followers_.end(); at = followers_.find(refresh)) {
    refresh = at->second;
  }
  return refresh;
}

void KeptTokens::Follow(const std::string& spent, const std::string& next) {
  const std::lock_guard lock(mutex_);
  followers_.erase(next);  // a provider may come back to an earlier one
  followers_[spent] = next;
}

bool KeptTokens::IsGood(const Access& access, const std::string& stale) const {
  return !access.token.empty() && access.token != stale && now_() + margin < access.end;
}

std::string KeptTokens::Renewed(const post::MailAccount& account, const std::string& refresh,
                                const post::Patience& patience) {
  access_.erase(refresh);
  const Service service =
      WithMetadata(ServiceNamed(account.SignIn, files_), &Service::token, patience);
  const auto asked = now_();
  const Tokens tokens = TokensFor(service, refresh, patience);
  const bool isAnother = !tokens.refresh.empty() && tokens.refresh != refresh;
  access_[isAnother ? tokens.refresh : refresh] = {tokens.access, asked + tokens.lifetime};
  if (isAnother) {
    Follow(refresh, tokens.refresh);
    KeepSoon(post::PasswordKey(account), refresh);
  }
  return tokens.access;
}

/// The passwords belong to the window's thread.
std::string KeptTokens::Kept(const std::string& key, const post::Patience& patience) {
  if (std::this_thread::get_id() == home_) return passwords_.Read(key).value_or("");
  const auto kept = std::make_shared<std::promise<std::string>>();
  auto answer = kept->get_future();
  events_.Post([this, kept, key, audience = std::weak_ptr(audience_)] {
    kept->set_value(audience.expired() ? "" : passwords_.Read(key).value_or(""));
  });
  while (answer.wait_for(slice) != std::future_status::ready) {
    if (patience.IsOver()) throw post::ConnectionLost("The sign-in was given up.");
  }
  return answer.get();
}

void KeptTokens::KeepSoon(const std::string& key, const std::string& spent) {
  {
    const std::lock_guard lock(mutex_);
    unkept_[key] = spent;
  }
  if (std::this_thread::get_id() == home_) return KeepRenewed();
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
  for (const auto& [key, spent] : unkept) Keep(key, spent);
}

/// Of an account that is the user's no longer nothing is kept, and a newer sign-in stays. What a
/// keyring has that doesn't answer is spent.
void KeptTokens::Keep(const std::string& key, const std::string& spent) {
  const auto kept = passwords_.Read(key);
  const std::string newest = Newest(kept.value_or(spent));
  if (kept ? newest == *kept : !IsOfTheAccount(key)) return;
  const bool keeps = passwords_.Write(key, newest);
  if (!keeps && !isTold_) post::ReportUnkept(post::Secret::SignIn);
  isTold_ = !keeps;
}

}  // namespace sign_in
