// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/program/given_files.h"

#include <algorithm>
#include <chrono>
#include <utility>

#include "platform/messages.h"
#include "platform/process_state.h"
#include "shell/given_files.h"
#include "ui/exchange/import_games.h"
#include "widgets/front_window.h"

namespace ui {

using namespace std::chrono_literals;
using platform::Process;

GivenFiles::GivenFiles(std::function<void(const QStringList& paths)> importGames)
    : importGames_(std::move(importGames)) {
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
  auto moves = std::exchange(waiting_, {});
  QStringList games;
  std::erase_if(moves, [&games](const std::string& path) {
    const QString name = QString::fromStdString(path);
    if (IsPgnFile(name)) games << name;
    return IsPgnFile(name);
  });
  if (!moves.empty()) shell::TakeGivenFiles(moves);
  if (!games.isEmpty()) importGames_(games);
}

}  // namespace ui
