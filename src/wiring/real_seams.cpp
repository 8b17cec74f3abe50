// SPDX-License-Identifier: GPL-3.0-or-later
#include "wiring/real_seams.h"

#include <utility>

#include "desktop/folders.h"
#include "desktop/loaded_sounds.h"
#include "platform/seams.h"

namespace wiring {

RealSeams::RealSeams(const std::string& settingsFile, post::MailService::AskAccount ask,
                     post::MailService::AskRecipients askRecipients)
    : settings_(files_, settingsFile),
      autostart_(files_, desktop::ProgramFolder()),
      passwords_(post::PasswordsBeside(settingsFile)),
      sounds_(std::make_unique<desktop::LoadedSounds>()),
      tokens_(events_, *passwords_, sign_in::UsualClientFiles(settingsFile)),
      mail_(std::in_place, events_, *passwords_, std::move(ask), post::TransportsWith(tokens_)) {
  mail_->SetAskRecipients(std::move(askRecipients));
  platform::Seams& seams = platform::TheSeams();
  seams.MSess = &*mail_;
  seams.MMess = &*mail_;
  seams.mailState = &*mail_;
  seams.movePages = &movePages_;
  seams.notices = &notices_;
  seams.settings = &settings_;
  seams.sessionStart = &autostart_;
  seams.sounds = sounds_.get();
  seams.clock = &clock_;
  seams.events = &events_;
  seams.files = &files_;
}

RealSeams::~RealSeams() {
  mail_->StopDelivering();
  mail_.reset();          // with its threads, which may renew a sign-in to the last
  tokens_.KeepRenewed();  // while there are settings to go by
  platform::TheSeams() = {};
}

}  // namespace wiring
