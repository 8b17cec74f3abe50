// SPDX-License-Identifier: GPL-3.0-or-later
#include "front/start_wishes.h"

#include <QByteArray>

#include "desktop/ini_settings.h"
#include "desktop/posix_files.h"
#include "platform/registry.h"
#include "platform/seams.h"
#include "shell/start_settings.h"

namespace front {

namespace {

constexpr const char* setting = "WindowScale";
constexpr double smallest = 0.2;
constexpr double largest = 4;

double ScaleOf(const platform::StoredValue& text) {
  const double scale = QByteArray::fromStdString(text.value_or("1")).toDouble();
  return scale >= smallest && scale <= largest ? scale : 1;
}

}  // namespace

StartWishes ReadStartWishes(const std::string& settingsFile) {
  desktop::PosixFiles files;
  desktop::IniSettings settings(files, settingsFile);
  platform::TheSeams().settings = &settings;
  StartWishes wishes{shell::WindowSizeAtStart()};
  wishes.splash = shell::BeginsWithSplash();
  if (wishes.windowSize) {
    wishes.lastScale = ScaleOf(platform::ReadRegistry(platform::productSection, setting));
  }
  platform::TheSeams().settings = nullptr;
  return wishes;
}

void RememberScale(double scale) {
  const std::string text = QByteArray::number(scale).toStdString();
  const auto last = platform::ReadRegistry(platform::productSection, setting);
  if (ScaleOf(last) != ScaleOf(text)) {
    platform::WriteRegistry(platform::productSection, setting, text, true);
  }
}

}  // namespace front
