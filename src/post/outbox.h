// SPDX-License-Identifier: GPL-3.0-or-later
// The mails that wait to be sent, a file each in a folder of the account, so that they survive
// anything. Several processes may use one folder, and several threads one outbox.
//
//   Tarvolenix mail on its way 1
//   Thread 14                      a name, a blank and the length of what follows in bytes
//   090320260805-7
//   ...
//   End 0
//
// A file is whole or it counts for nothing: what is cut, or is no such file, is passed over and
// stays. File names begin with a number that rises, whatever the clock does: the order of the mails
// and, of two of the same thread, the newer one.
#pragma once

#include <cstdint>
#include <map>
#include <memory>
#include <mutex>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "letters/mails.h"
#include "platform/files.h"

namespace post {

enum class QueueState { Waiting, Perhaps, Failed, FailedAndTold };

struct QueuedMail {
  std::string file;            ///< its name in the folder
  letters::OutgoingMail mail;  ///< without its sender, which is the account of the day
  std::int64_t queued = 0;     ///< seconds since 1970
  std::int64_t nextTry = 0;    ///< likewise
  int tries = 0;
  QueueState state = QueueState::Waiting;
  std::string reason;  ///< why the last try failed
};

class Outbox {
 public:
  /// `folder` ends in "/"; it is made with the first mail.
  explicit Outbox(std::string folder) : folder_(std::move(folder)) {}

  /// What waits, in order. Raises platform::FileError where the folder can't be read.
  std::vector<QueuedMail> Mails();

  /// Returns when the mail is on the disk. It takes the place of those of its thread. Raises
  /// platform::FileError; then nothing has changed.
  QueuedMail Add(const letters::OutgoingMail& mail, std::int64_t now);

  /// False where the mail is gone: sent, or replaced by a newer one. Raises platform::FileError.
  bool Update(const QueuedMail& mail);
  bool IsThere(const QueuedMail& mail);

  /// For a mail that was sent, of those that Mails has told of.
  void Remove(const QueuedMail& mail);

  /// Nothing where another process is delivering. Raises platform::FileError.
  std::unique_ptr<platform::HeldLock> TryToDeliver();

  /// Gives all mails to another outbox, in order. Raises platform::FileError, also while another
  /// program sends them.
  void MoveTo(Outbox& other);

  /// Forgets all mails; raises the same.
  void Drop();

 private:
  std::optional<QueuedMail> ReadFile(const std::string& name);
  std::vector<QueuedMail> Read(const std::vector<std::string>& names);
  void MakeFolder();
  std::unique_ptr<platform::HeldLock> LockOrRaise();
  std::vector<std::string> Names();

  std::string folder_;
  std::mutex mutex_;
  std::map<std::string, QueuedMail> known_;  // as they were read last, by file
};

/// The folder of the account with this address, beside the games.
std::string OutboxFolder(std::string_view address);

}  // namespace post
