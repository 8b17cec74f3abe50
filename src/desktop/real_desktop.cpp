// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/real_desktop.h"

#include <QCoreApplication>

#include <utility>

#include "desktop/folders.h"
#include "desktop/plain_events.h"
#include "desktop/qt_events.h"
#include "desktop/qt_sounds.h"
#include "platform/desktop.h"

namespace desktop {
namespace {

std::unique_ptr<platform::Events> MakeEvents() {
  if (QCoreApplication::instance()) return std::make_unique<QtEvents>();
  return std::make_unique<PlainEvents>();
}

}  // namespace

RealDesktop::RealDesktop(const std::string& programFolder, MailService::AskAccount ask)
    : settings_(SettingsFileFor(programFolder)),
      sounds_(std::make_unique<QtSounds>()),
      events_(MakeEvents()),
      mail_(*events_, std::move(ask)) {
  platform::Desktop& desktop = platform::TheDesktop();
  desktop.MSess = &mail_;
  desktop.MMess = &mail_;
  desktop.settings = &settings_;
  desktop.sounds = sounds_.get();
  desktop.clock = &clock_;
  desktop.events = events_.get();
  desktop.files = &files_;
}

RealDesktop::~RealDesktop() { platform::TheDesktop() = {}; }

}  // namespace desktop
