// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/network_watch.h"

#include <QNetworkInformation>

#include "platform/seams.h"
#include "shell/polling_loop.h"

namespace app {
namespace {

void GoOn() {
  platform::MailState& mails = *platform::TheSeams().mailState;
  if (mails.Connection().link != platform::MailLink::Waiting) return;
  mails.DeliverNow();
  shell::CheckTimerTick();
}

}  // namespace

NetworkWatch::NetworkWatch() {
  using Information = QNetworkInformation;
  if (!Information::loadBackendByFeatures(Information::Feature::Reachability)) return;
  connect(Information::instance(), &Information::reachabilityChanged, this,
          [](Information::Reachability reachability) {
            if (reachability == Information::Reachability::Online) GoOn();
          });
}

}  // namespace app
