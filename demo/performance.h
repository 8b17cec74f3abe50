// SPDX-License-Identifier: GPL-3.0-or-later
// What a player does, one step after the other, each when the program is ready for it. The steps go
// on in whatever event loop runs, so dialogs that wait for an answer get it.
#pragma once

#include <QElapsedTimer>
#include <QObject>
#include <QPoint>
#include <QTimer>

#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace demo {

/// Where on the screen something is; nothing while it can't be used.
using Spot = std::function<std::optional<QPoint>()>;

struct Step {
  std::string told;                    ///< in plain words; empty where it isn't worth telling
  Spot where;                          ///< it waits until this stands still; null: no need to
  std::function<void(QPoint at)> act;  ///< null: only wait
  std::function<bool()> worked;        ///< null: always; else it is tried again after a while
};

class Performance : public QObject {
 public:
  /// `isBusy` tells that a step's own work still goes on.
  Performance(std::string player, std::vector<Step> steps, std::function<bool()> isBusy);

  /// The last step may have ended the program, and all ticks with it.
  bool IsOver() const { return next_ + (acted_ ? 1 : 0) >= steps_.size(); }

  /// For a player who never came to his end.
  void TellWhereItStopped() const;

 private:
  void Tick();
  bool StandsStill(const Step& step);
  void Act(const Step& step, const char* prefix);
  void Tell(const std::string& text) const;

  const std::string player_;
  const std::vector<Step> steps_;
  const std::function<bool()> isBusy_;
  std::size_t next_ = 0;
  bool acted_ = false;
  std::optional<QPoint> spot_;
  QElapsedTimer total_;
  QElapsedTimer still_;     // since when the spot is where it is
  QElapsedTimer sinceAct_;  // of the step that is on
  QTimer ticks_;
};

}  // namespace demo
