// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/network_watch.h"

#include <QNetworkInformation>

#include "platform/seams.h"
#include "shell/polling_loop.h"

namespace app {
namespace {

bool AnythingWaits() {
  return platform::TheSeams().mailState->Connection().link == platform::MailLink::Waiting;
}

void GoOn() {
  if (!AnythingWaits()) return;
  platform::TheSeams().mailState->DeliverNow();
  shell::CheckTimerTick();
}

}  // namespace

void NetworkWatch::Follow() {
  if (isListening_ || !AnythingWaits()) return;
  isListening_ = true;
  using Information = QNetworkInformation;
  if (!Information::loadBackendByFeatures(Information::Feature::Reachability)) return;
  connect(Information::instance(), &Information::reachabilityChanged, this,
          [](Information::Reachability reachability) {
            if (reachability == Information::Reachability::Online) GoOn();
          });
}

}  // namespace app
