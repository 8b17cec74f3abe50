// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/program/given_files.h"

#include <chrono>
#include <utility>

#include "platform/messages.h"
#include "platform/process_state.h"
#include "shell/given_files.h"
#include "widgets/front_window.h"

namespace ui {

using namespace std::chrono_literals;
using platform::Process;

GivenFiles::GivenFiles() {
  looks_.setInterval(500ms);
  connect(&looks_, &QTimer::timeout, this, &GivenFiles::TakeIfFree);
}

void GivenFiles::Give(const std::vector<std::string>& paths) {
  waiting_.insert(waiting_.end(), paths.begin(), paths.end());
  if (Process().StartupComplete) BringActiveWindowToFront();
  if (Process().BoardOpen) {
    platform::ShowMessage(platform::MailIcon, "Game import",
                          "The file is imported as soon as you have closed the board.", "OK", {},
                          false, platform::AttentionSound);
  }
  looks_.start();
  TakeIfFree();
}

void GivenFiles::TakeIfFree() {
  if (!shell::MayTakeGivenFiles()) return;
  looks_.stop();
  const auto files = std::exchange(waiting_, {});
  if (!files.empty()) shell::TakeGivenFiles(files);
}

}  // namespace ui
