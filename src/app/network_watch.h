// SPDX-License-Identifier: GPL-3.0-or-later
// Hears from the desktop that the network is back, where the desktop knows; what waits for it goes
// on at once then. Without such a desktop it goes on with its next try.
#pragma once

#include <QObject>

namespace app {

class NetworkWatch : public QObject {
  Q_OBJECT

 public:
  NetworkWatch();
};

}  // namespace app
