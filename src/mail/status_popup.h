// SPDX-License-Identifier: GPL-3.0-or-later
// The status popup of one errand, taken down however the errand ends.
#pragma once

#include <string>

#include "platform/messages.h"

namespace mail {

class StatusPopup {
 public:
  /// Without `wanted` it does nothing, as for a quiet tick.
  explicit StatusPopup(bool wanted) : wanted_(wanted) {}
  ~StatusPopup() {
    if (wanted_) platform::ShowStatus(false);
  }
  StatusPopup(const StatusPopup&) = delete;
  StatusPopup& operator=(const StatusPopup&) = delete;

  void Show(const std::string& text) const {
    if (wanted_) platform::ShowStatus(true, text);
  }

 private:
  bool wanted_;
};

}  // namespace mail
