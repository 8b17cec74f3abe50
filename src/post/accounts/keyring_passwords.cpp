// SPDX-License-Identifier: GPL-3.0-or-later
#include "post/accounts/keyring_passwords.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusMetaType>
#include <QDBusObjectPath>
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

/// Keyrings are reached over the session's bus; looking for one without it could take forever.
bool HasBus() {
  const char* bus = std::getenv("DBUS_SESSION_BUS_ADDRESS");
  return bus && *bus;
}

/// Whether the keyring has it behind a lock that nobody has opened: it answers then as if it had
/// nothing of that name. The entries are the library's, told by its own attributes.
bool IsLockedAway(const std::string& key) {
  using Attributes = QMap<QString, QString>;
  constexpr int patience = 1000;  // milliseconds
  qDBusRegisterMetaType<Attributes>();
  QDBusMessage search =
      QDBusMessage::createMethodCall(u"org.freedesktop.secrets"_s, u"/org/freedesktop/secrets"_s,
                                     u"org.freedesktop.Secret.Service"_s, u"SearchItems"_s);
  search << QVariant::fromValue(
      Attributes{{u"server"_s, Service()}, {u"user"_s, QString::fromStdString(key)}});
  search.setAutoStartService(false);
  const QVariant locked =
      QDBusConnection::sessionBus().call(search, QDBus::Block, patience).arguments().value(1);
  return !qdbus_cast<QList<QDBusObjectPath>>(locked).isEmpty();
}

KeyringPasswords::Outcome OutcomeOf(QKeychain::Error error) {
  using Outcome = KeyringPasswords::Outcome;
  switch (error) {
    case QKeychain::NoError:
      return Outcome::Success;
    case QKeychain::EntryNotFound:
      return Outcome::NoEntry;
    case QKeychain::AccessDenied:
    case QKeychain::AccessDeniedByUser:
      return Outcome::NoAnswer;
    default:
      return Outcome::NoKeyring;
  }
}

}  // namespace

/// Runs a job, which deletes itself when it is done. `take` is called where it succeeds.
KeyringPasswords::Outcome KeyringPasswords::Run(QKeychain::Job& job, const std::string& key,
                                                const std::function<void()>& take) {
  bool done = false;
  bool late = false;
  Outcome outcome = Outcome::NoAnswer;
  QTimer limit;
  QObject::connect(&limit, &QTimer::timeout, &limit, [&late] { late = true; });
  QObject::connect(&job, &QKeychain::Job::finished, &limit, [&] {
    done = true;
    outcome = OutcomeOf(job.error());
    if (outcome == Outcome::Success && take) take();
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
  return outcome;
}

KeyringPasswords::Outcome KeyringPasswords::ReadFromKeyring(const std::string& key,
                                                            std::optional<std::string>& password) {
  if (!HasBus()) return Outcome::NoKeyring;
  if (!answers_) return Outcome::NoAnswer;
  auto& job = *std::make_unique<QKeychain::ReadPasswordJob>(Service()).release();
  return Run(job, key, [&] { password = job.textData().toStdString(); });
}

std::optional<std::string> KeyringPasswords::Read(const std::string& key) {
  std::optional<std::string> password = file_.Read(key);
  if (!password) ReadFromKeyring(key, password);
  return password;
}

bool KeyringPasswords::Write(const std::string& key, const std::string& password) {
  if (HasBus() && answers_) {
    auto& job = *std::make_unique<QKeychain::WritePasswordJob>(Service()).release();
    job.setTextData(QString::fromStdString(password));
    if (Run(job, key) == Outcome::Success) return file_.Forget(key);
  }
  return file_.Write(key, password);
}

bool KeyringPasswords::Forget(const std::string& key) {
  if (!file_.Forget(key)) return false;
  std::optional<std::string> password;
  const Outcome outcome = ReadFromKeyring(key, password);
  if (outcome == Outcome::NoEntry) return !IsLockedAway(key);
  if (outcome != Outcome::Success) return outcome == Outcome::NoKeyring;
  auto& job = *std::make_unique<QKeychain::DeletePasswordJob>(Service()).release();
  return Run(job, key) == Outcome::Success;
}

}  // namespace post
