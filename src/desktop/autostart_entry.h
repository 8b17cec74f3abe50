// SPDX-License-Identifier: GPL-3.0-or-later
// The entry "autostart/tarvolenix.desktop" among the user's settings, by which desktops start this
// program. One of another program folder isn't ours: it is replaced, but not removed.
#pragma once

#include <string>

#include "platform/files.h"
#include "platform/session_start.h"

namespace desktop {

class AutostartEntry : public platform::SessionStart {
 public:
  /// `folder` is the executable's.
  AutostartEntry(platform::Files& files, const std::string& folder);

  /// Some desktops switch an entry off inside it.
  bool StartsProgram() override;
  void StartProgram(bool wanted) override;

 private:
  /// Whether the entry that is there starts this program; `text` gets what it says.
  bool IsOurs(std::string& text) const;

  platform::Files& files_;
  std::string text_;  ///< of an entry of ours
};

}  // namespace desktop
