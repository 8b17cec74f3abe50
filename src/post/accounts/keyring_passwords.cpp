// SPDX-License-Identifier: GPL-3.0-or-later
#include "post/accounts/keyring_passwords.h"

#include <QEventLoop>
#include <QTimer>
#include <qt6keychain/keychain.h>

#include <chrono>
#include <cstdlib>
#include <memory>

#include "platform/process_state.h"

namespace post {

using namespace Qt::StringLiterals;

namespace {

/// Long enough to find and type the keyring's own password.
constexpr std::chrono::minutes longestWait{2};

QString Service() { return u"Tarvolenix"_s; }

}  // namespace

/// Keyrings are reached over the session's bus; looking for one without it could take forever.
bool KeyringPasswords::IsReachable() const {
  const char* bus = std::getenv("DBUS_SESSION_BUS_ADDRESS");
  return answers_ && bus && *bus;
}

/// Runs a job, which deletes itself when it is done. `take` is called where it succeeds.
bool KeyringPasswords::Succeeds(QKeychain::Job& job, const std::string& key,
                                const std::function<void()>& take) {
  bool done = false;
  bool late = false;
  bool success = false;
  QTimer limit;
  QObject::connect(&limit, &QTimer::timeout, &limit, [&late] { late = true; });
  QObject::connect(&job, &QKeychain::Job::finished, &limit, [&] {
    done = true;
    success = job.error() == QKeychain::NoError;
    if (success) take();
  });
  job.setInsecureFallback(false);
  job.setKey(QString::fromStdString(key));
  limit.start(longestWait);
  job.start();
  QEventLoop loop;
  while (!done && !late && !platform::Process().Stopping) {
    loop.processEvents(QEventLoop::WaitForMoreEvents | QEventLoop::ExcludeUserInputEvents);
  }
  answers_ = done || !late;
  return success;
}

std::optional<std::string> KeyringPasswords::Read(const std::string& key) {
  std::optional<std::string> password = file_.Read(key);
  if (password || !IsReachable()) return password;
  auto& job = *std::make_unique<QKeychain::ReadPasswordJob>(Service()).release();
  Succeeds(job, key, [&] { password = job.textData().toStdString(); });
  return password;
}

bool KeyringPasswords::Write(const std::string& key, const std::string& password) {
  if (IsReachable()) {
    auto& job = *std::make_unique<QKeychain::WritePasswordJob>(Service()).release();
    job.setTextData(QString::fromStdString(password));
    if (Succeeds(job, key, [] {})) return file_.Forget(key);
  }
  return file_.Write(key, password);
}

bool KeyringPasswords::Forget(const std::string& key) {
  if (!file_.Forget(key)) return false;
  if (!Read(key)) return true;
  auto& job = *std::make_unique<QKeychain::DeletePasswordJob>(Service()).release();
  return Succeeds(job, key, [] {});
}

}  // namespace post
