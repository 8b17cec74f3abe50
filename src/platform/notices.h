// SPDX-License-Identifier: GPL-3.0-or-later
// The seam to the notifications that a desktop shows for all programs. The class itself is that of
// a desktop without any.
#pragma once

#include <functional>
#include <string>

#include "platform/windows.h"

namespace platform {

struct Notice {
  std::string title;
  std::string text;  ///< of several lines; nothing in it is markup
};

class Notices {
 public:
  virtual ~Notices() = default;

  using Answered = std::function<void(NotifyChoice)>;

  /// Offers Play and Later, in the place of what was shown before. Never waits, and where the
  /// desktop shows nothing, nobody hears of it. `answered` is called at most once, from the event
  /// loop; looking at the notice or closing it is no answer.
  virtual void Show(const Notice& /*notice*/, const Answered& /*answered*/) {}

  /// The user knows, or needn't know any more.
  virtual void Withdraw() {}
};

inline Notices noNotices;

}  // namespace platform
