// SPDX-License-Identifier: GPL-3.0-or-later
// The seams of a real run: everything but the message boxes, which the windows or the console bring
// along.
#pragma once

#include <memory>
#include <optional>
#include <string>

#include "desktop/autostart_entry.h"
#include "desktop/desktop_notices.h"
#include "desktop/ini_settings.h"
#include "desktop/posix_files.h"
#include "desktop/qt_events.h"
#include "desktop/system_clock.h"
#include "pages/mail_pages.h"
#include "platform/sounds.h"
#include "post/accounts/passwords.h"
#include "post/mail_service.h"
#include "sign_in/kept_tokens.h"

namespace wiring {

/// Installs itself for its lifetime. Waits in the event loop of the application object, which must
/// be there already.
class RealSeams {
 public:
  /// Passwords are kept beside the settings. `ask` is the dialog for the mail account; without it
  /// there must be one. `askRecipients` is the address book's; without it nobody is found.
  explicit RealSeams(const std::string& settingsFile, post::MailService::AskAccount ask = {},
                     post::MailService::AskRecipients askRecipients = {});
  ~RealSeams();
  RealSeams(const RealSeams&) = delete;
  RealSeams& operator=(const RealSeams&) = delete;

  post::Passwords& KeptPasswords() { return *passwords_; }
  sign_in::KeptTokens& Tokens() { return tokens_; }
  desktop::QtEvents& Events() { return events_; }
  post::MailService& Mail() { return *mail_; }

 private:
  desktop::PosixFiles files_;
  desktop::IniSettings settings_;
  desktop::AutostartEntry autostart_;
  std::unique_ptr<post::Passwords> passwords_;
  desktop::SystemClock clock_;
  std::unique_ptr<platform::Sounds> sounds_;
  desktop::QtEvents events_;
  pages::MailPages movePages_;
  desktop::DesktopNotices notices_;
  sign_in::KeptTokens tokens_;
  std::optional<post::MailService> mail_;  // until the end begins
};

}  // namespace wiring
