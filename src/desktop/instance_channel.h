// SPDX-License-Identifier: GPL-3.0-or-later
// The way from a start that finds the program running to the one that runs: the files that the user
// gave go through a local socket beside the mark of the single instance, behind what lets its
// window come to front. Each part ends with a NUL, and the whole with another; the running program
// answers with one byte.
#pragma once

#include <QLocalServer>

#include <chrono>
#include <functional>
#include <string>
#include <vector>

namespace desktop {

using GivenFiles = std::vector<std::string>;

/// The end of the running program. Where there can be no socket, nobody finds it.
class InstanceChannel : public QObject {
 public:
  /// For the only instance: what a crashed one has left is swept away. `take` is called from the
  /// event loop.
  InstanceChannel(const std::string& socket, std::function<void(const GivenFiles&)> take);

 private:
  void Read(QLocalSocket& caller);

  QLocalServer server_;
  std::function<void(const GivenFiles&)> take_;
};

/// True where the running program has taken the files over; without any it knows that somebody
/// looks for it. One that has only begun may not listen yet: it is tried anew until `patience`
/// ends.
bool HandOverFiles(const std::string& socket, const GivenFiles& files,
                   std::chrono::milliseconds patience = std::chrono::seconds(3));

}  // namespace desktop
