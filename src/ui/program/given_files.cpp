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

namespace {

bool IsMoveFile(const std::string& path) { return !IsPgnFile(QString::fromStdString(path)); }

QStringList AsList(const std::vector<std::string>& paths) {
  QStringList list;
  for (const std::string& path : paths) list << QString::fromStdString(path);
  return list;
}

const char* WhenTheyAreTaken(std::size_t files) {
  return files == 1 ? "The file is imported as soon as you have closed the board."
                    : "The files are imported as soon as you have closed the board.";
}

}  // namespace

GivenFiles::GivenFiles(std::function<void(const QStringList& paths)> importGames)
    : importGames_(std::move(importGames)) {
  looks_.setInterval(500ms);
  connect(&looks_, &QTimer::timeout, this, &GivenFiles::TakeIfFree);
}

void GivenFiles::Give(const std::vector<std::string>& paths) {
  waiting_.insert(waiting_.end(), paths.begin(), paths.end());
  if (Process().StartupComplete) BringActiveWindowToFront();
  if (Process().BoardOpen) {
    platform::ShowMessage(platform::MailIcon, "Game import", WhenTheyAreTaken(waiting_.size()),
                          "OK", {}, false, platform::AttentionSound);
  }
  looks_.start();
  TakeIfFree();
}

// A move that is played opens its board: what is left waits for that one.
void GivenFiles::TakeIfFree() {
  while (!waiting_.empty() && shell::MayTakeGivenFiles()) TakeNextKind();
  if (waiting_.empty()) looks_.stop();
}

void GivenFiles::TakeNextKind() {
  const auto games = std::stable_partition(waiting_.begin(), waiting_.end(), IsMoveFile);
  const std::vector<std::string> moves(waiting_.begin(), games);
  if (moves.empty()) return importGames_(AsList(std::exchange(waiting_, {})));
  waiting_.erase(waiting_.begin(), games);
  shell::TakeGivenFiles(moves);
}

}  // namespace ui
