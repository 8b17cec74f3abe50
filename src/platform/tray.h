// SPDX-License-Identifier: GPL-3.0-or-later
// The seam to the desktop's tray. What the user does to the icon comes back as a call of the
// shell's operations. The class itself is that of a program without a tray.
#pragma once

#include <string>

namespace platform {

enum class TrayOperation { Add = 0, Modify = 1, Delete = 2 };

class Tray {
 public:
  virtual ~Tray() = default;

  /// `picture` counts from 1 through the icon sets, three pictures each: nothing new, new move, not
  /// connected. The tip has at most 63 characters, and there may be a second line about the mails.
  virtual void Notify(TrayOperation, int /*picture*/, const std::string& /*tip*/) {}

  /// Tells something in passing beside the icon, as soon as that is there.
  virtual void Say(const std::string& /*text*/) {}

  /// The list of games in the tray's menu may have changed.
  virtual void BuildGameMenu() {}
};

}  // namespace platform
