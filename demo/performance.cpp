// SPDX-License-Identifier: GPL-3.0-or-later
#include "demo/performance.h"

#include <QApplication>
#include <QWidget>

#include <cstdio>
#include <utility>

namespace demo {

namespace {

constexpr int tickMilliseconds = 30;
constexpr int stillMilliseconds = 150;      // a window that comes up is moved and framed at first
constexpr int patienceMilliseconds = 4000;  // then a user tries again

}  // namespace

Performance::Performance(std::string player, std::vector<Step> steps, std::function<bool()> isBusy)
    : player_(std::move(player)), steps_(std::move(steps)), isBusy_(std::move(isBusy)) {
  total_.start();
  connect(&ticks_, &QTimer::timeout, this, &Performance::Tick);
  ticks_.start(tickMilliseconds);
}

void Performance::Tick() {
  if (next_ == steps_.size() || isBusy_()) return;
  const Step& step = steps_[next_];
  if (!acted_) {
    if (StandsStill(step)) Act(step, "");
    return;
  }
  if (!step.worked || step.worked()) {
    acted_ = false;
    spot_.reset();
    ++next_;
  } else if (step.act && sinceAct_.hasExpired(patienceMilliseconds) && StandsStill(step)) {
    Act(step, "(again) ");
  }
}

bool Performance::StandsStill(const Step& step) {
  if (!step.where) return true;
  const auto now = step.where();
  if (now != spot_) still_.start();
  spot_ = now;
  return now && still_.hasExpired(stillMilliseconds);
}

void Performance::Act(const Step& step, const char* prefix) {
  if (!step.told.empty()) Tell(prefix + step.told);
  acted_ = true;
  sinceAct_.start();
  // May run a dialog before it comes back, and the next steps in it.
  if (step.act) step.act(spot_.value_or(QPoint()));
}

void Performance::Tell(const std::string& text) const {
  std::printf("%5.1f s  %-5s %s\n", static_cast<double>(total_.elapsed()) / 1000, player_.c_str(),
              text.c_str());
  std::fflush(stdout);
}

void Performance::TellWhereItStopped() const {
  for (std::size_t step = next_; step < steps_.size(); ++step) {
    if (steps_[step].told.empty()) continue;
    Tell("FAILED: this never happened, or had no effect: " + steps_[step].told);
    break;
  }
  for (const QWidget* window : QApplication::topLevelWidgets()) {
    if (!window->isVisible()) continue;
    Tell("  on the screen: " + window->objectName().toStdString() + " \"" +
         window->windowTitle().toStdString() + "\"");
    const auto* message = window->findChild<QWidget*>(QStringLiteral("Message"));
    if (message) Tell("  it says: " + message->property("plainText").toString().toStdString());
  }
}

}  // namespace demo
