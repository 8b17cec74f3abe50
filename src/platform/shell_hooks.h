// SPDX-License-Identifier: GPL-3.0-or-later
// What mail and board tell the layers that stand to their right. Shell and windows fill the
// record; a hook that nobody filled does nothing.
#pragma once

#include <functional>
#include <string>

namespace platform {

struct ShellHooks {
  std::function<void()> updateTrayStatus;   ///< the tray's icon and tip may have changed
  std::function<void()> notifyNewMoves;     ///< deliver what PendingGames holds
  std::function<void()> checkTimerChanged;  ///< the polling timer was started, stopped or retimed
  std::function<void()> removeTrayIcon;
  std::function<void()> handedOver;  ///< the start is over: the windows may greet a new user
  std::function<void()> stopped;     ///< all is saved and closed: the event loop may end
  std::function<void(const std::string&)> skinMissing;  ///< a file that no window can do without
  std::function<bool()> signIn;      ///< at the mail provider, anew; true where the user did
  std::function<void()> endProcess;  ///< at once, without the work of an orderly stop
  /// What a message that isn't shown would have said; filled while a window has a line for it.
  std::function<void(const std::string&)> quietMessage;
  std::function<void(bool)> busyPointer;  ///< true before work that takes a moment, false behind it
};

/// Calls a hook that may be unfilled.
inline void CallHook(const std::function<void()>& hook) {
  if (hook) hook();
}

}  // namespace platform
