// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/single_instance.h"

#include <QCryptographicHash>
#include <QDir>

#include <cstdlib>
#include <filesystem>
#include <system_error>

#include "desktop/folders.h"

namespace desktop {

using namespace Qt::StringLiterals;

namespace {

namespace fs = std::filesystem;

/// Only the user's own: the session's folder, or his data folder where there is none.
std::string LockFolder() {
  const char* session = std::getenv("XDG_RUNTIME_DIR");
  std::error_code error;
  if (session && *session == '/' && fs::is_directory(session, error)) {
    return std::string(session) + "/";
  }
  std::string folder = DataHome() + "tarvolenix/";
  fs::create_directories(folder, error);
  return folder;
}

/// The same for every path that leads to the folder.
QString MarkName(const std::string& folder) {
  const QString path = QDir(QString::fromStdString(folder)).canonicalPath();
  const QByteArray digest =
      QCryptographicHash::hash(path.toUtf8(), QCryptographicHash::Sha256).toHex();
  return u"tarvolenix-"_s + QString::fromLatin1(digest.left(16));
}

}  // namespace

SingleInstance::SingleInstance(const std::string& folder)
    : mark_(QString::fromStdString(LockFolder()) + MarkName(folder)),
      lock_(std::make_unique<QLockFile>(mark_ + u".lock"_s)) {
  // However long the program runs, its lock is good; a dead process's is not.
  lock_->setStaleLockTime(0);
}

std::string SingleInstance::Socket() const { return (mark_ + u".socket"_s).toStdString(); }

bool SingleInstance::IsAnotherRunning() {
  if (lock_->isLocked() || lock_->tryLock()) return false;
  if (lock_->error() != QLockFile::LockFailedError) return false;
  // A file that names nobody, as after a power cut, belongs to nobody.
  qint64 process = 0;
  QString host;
  QString program;
  if (lock_->getLockInfo(&process, &host, &program)) return true;
  return !(lock_->removeStaleLockFile() && lock_->tryLock());
}

}  // namespace desktop
