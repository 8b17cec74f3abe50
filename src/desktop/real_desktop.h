// SPDX-License-Identifier: GPL-3.0-or-later
// The seams of a real run: everything but the message boxes, which the windows or the console bring
// along.
#pragma once

#include <memory>
#include <string>

#include "desktop/ini_settings.h"
#include "desktop/mail_service.h"
#include "desktop/posix_files.h"
#include "desktop/system_clock.h"
#include "platform/events.h"
#include "platform/sounds.h"

namespace desktop {

/// Installs itself for its lifetime. Where there is an application object it waits in that one's
/// event loop, and can play sounds; make it after that object.
class RealDesktop {
 public:
  /// `ask` is the dialog for the mail account; without it the login name is taken.
  explicit RealDesktop(const std::string& programFolder, MailService::AskAccount ask = {});
  ~RealDesktop();
  RealDesktop(const RealDesktop&) = delete;
  RealDesktop& operator=(const RealDesktop&) = delete;

 private:
  PosixFiles files_;
  IniSettings settings_;
  SystemClock clock_;
  std::unique_ptr<platform::Sounds> sounds_;
  std::unique_ptr<platform::Events> events_;
  MailService mail_;
};

}  // namespace desktop
