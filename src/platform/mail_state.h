// SPDX-License-Identifier: GPL-3.0-or-later
// The seam to what the mail service knows of its connection and of the mails that it was given to
// send: shown beside the games, and never asked by those who send and retrieve. The class itself is
// that of a service that has nothing to tell. It belongs to the window's thread.
#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

namespace platform {

enum class MailLink {
  None,       ///< not signed on
  Connected,  ///< the last that was tried worked
  Waiting,    ///< nothing answers; it is tried again
  Refused     ///< only the user can mend it, and until he signs on again nothing is tried
};

struct MailConnection {
  MailLink link = MailLink::None;
  std::int64_t since = 0;    ///< seconds since 1970
  std::int64_t triedAt = 0;  ///< likewise: when nothing answered the last time
  std::int64_t nextTry = 0;  ///< to send what waits; 0 none
  std::string reason;        ///< a sentence, where it isn't connected
  bool wantsSignIn = false;  ///< a new sign-in at the mail provider mends the refusal
};

/// What becomes of a mail that was given to the service. One that is gone for good isn't told of.
enum class MailStage {
  Sending,  ///< just being tried, or about to be
  Waiting,  ///< to be tried again
  Perhaps,  ///< the same, but the last try may have worked
  Failed    ///< not tried again unless the user wants it
};

struct MailOnItsWay {
  std::string thread;
  std::string to;  ///< the address
  MailStage stage = MailStage::Sending;
  int tries = 0;
  std::int64_t nextTry = 0;  ///< seconds since 1970; 0 where none is planned
  std::string reason;        ///< a sentence: why it wasn't sent
  bool isTold = false;       ///< the user has heard that it failed
};

class MailState {
 public:
  virtual ~MailState() = default;

  virtual MailConnection Connection() { return {}; }

  /// In the order in which they were given.
  virtual std::vector<MailOnItsWay> OnItsWay() { return {}; }

  /// Calls `changed` on the window's thread, from its event loop, when the two above have changed.
  virtual void OnChange(const std::function<void()>& /*changed*/) {}

  /// Tries all that waits, at once.
  virtual void DeliverNow() {}

  /// The user has heard that the mail of this thread failed.
  virtual void NoteTold(const std::string& /*thread*/) {}
};

inline MailState noMailState;

}  // namespace platform
