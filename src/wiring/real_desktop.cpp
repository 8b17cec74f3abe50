// SPDX-License-Identifier: GPL-3.0-or-later
#include "wiring/real_desktop.h"

#include <utility>

#include "desktop/folders.h"
#include "desktop/qt_sounds.h"
#include "platform/desktop.h"

namespace wiring {

RealDesktop::RealDesktop(const std::string& programFolder, post::MailService::AskAccount ask,
                         post::MailService::AskRecipients askRecipients)
    : settings_(files_, desktop::SettingsFileFor(programFolder)),
      passwords_(post::PasswordsBeside(desktop::SettingsFileFor(programFolder))),
      sounds_(std::make_unique<desktop::QtSounds>()),
      mail_(events_, *passwords_, std::move(ask)) {
  mail_.SetAskRecipients(std::move(askRecipients));
  platform::Desktop& desktop = platform::TheDesktop();
  desktop.MSess = &mail_;
  desktop.MMess = &mail_;
  desktop.settings = &settings_;
  desktop.sounds = sounds_.get();
  desktop.clock = &clock_;
  desktop.events = &events_;
  desktop.files = &files_;
}

RealDesktop::~RealDesktop() { platform::TheDesktop() = {}; }

}  // namespace wiring
