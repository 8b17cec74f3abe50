// SPDX-License-Identifier: GPL-3.0-or-later
// Hears from the desktop that the network is back, where the desktop knows; what waits for it goes
// on at once then. Without such a desktop it goes on with its next try. Nobody asks the desktop
// until something waits: its plugins cost time and memory that most runs never need.
#pragma once

#include <QObject>

namespace app {

class NetworkWatch : public QObject {
  Q_OBJECT

 public:
  /// The mail service has told of a change.
  void Follow();

 private:
  bool isListening_ = false;
};

}  // namespace app
