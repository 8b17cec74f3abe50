// SPDX-License-Identifier: GPL-3.0-or-later
// The seam to the dialogs that speak to the user: the one message dialog, the status popup, and the
// desktop's plain box for what can't wait for a skin.
#pragma once

#include <string>

namespace platform {

struct Message {
  int icon = 1;  ///< 1 information, 2 error, 3 setup warning, 4 mail, 5 database
  std::string title;
  std::string text;  ///< lines end in "\n"
  std::string okCaption;
  std::string cancelCaption;  ///< empty: one button only
  int timeoutTicks = 0;       ///< 30-second ticks until it answers Cancel for itself; 0 never
  bool escapeIsOk = false;    ///< the second button is an extra: Escape means the first one
};

enum class PlainIcon { Warning, Stop };

class MessageBoxes {
 public:
  virtual ~MessageBoxes() = default;

  /// Modal. True for the first button, false for the second or a time-out.
  virtual bool Ask(const Message& message) = 0;

  virtual void ShowStatus(const std::string& text) = 0;
  virtual void HideStatus() = 0;

  virtual void PlainBox(PlainIcon icon, const std::string& title, const std::string& text) = 0;
};

}  // namespace platform
