// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/screen_scale.h"

#include <QGuiApplication>
#include <QScreen>

#include <optional>
#include <vector>

#include "desktop/ini_settings.h"
#include "desktop/posix_files.h"
#include "platform/seams.h"
#include "shell/settings.h"
#include "skin/window_scale.h"

namespace app {

namespace {

constexpr const char* variable = "QT_SCALE_FACTOR";  // of the toolkit

QByteArray before;

std::optional<std::string> ChosenSize(const std::string& settingsFile) {
  desktop::PosixFiles files;
  desktop::IniSettings settings(files, settingsFile);
  platform::TheSeams().settings = &settings;
  auto size = shell::WindowSizeAtStart();
  platform::TheSeams().settings = nullptr;
  return size;
}

/// The one on which the windows open, where there is one just now.
std::optional<ui::ScreenRoom> LookAtScreen(int argc, char** argv) {
  std::vector<char*> arguments(argv, argv + argc + 1);  // the toolkit takes some of them out
  const QGuiApplication look(argc, arguments.data());
  const QScreen* const screen = QGuiApplication::primaryScreen();
  if (!screen) return std::nullopt;
  const QSize available = screen->availableSize();
  return ui::ScreenRoom{
      screen->size().height(), {available.width(), available.height()}, screen->devicePixelRatio()};
}

}  // namespace

void ScaleWindows(const std::string& settingsFile, int argc, char** argv) {
  before = qgetenv(variable);
  const auto size = ChosenSize(settingsFile);
  const auto screen = size ? LookAtScreen(argc, argv) : std::nullopt;
  if (!screen) return;
  const double factor = ui::WindowScaleFor(*size, *screen);
  const double own = before.isEmpty() ? 1 : before.toDouble();
  qputenv(variable, QByteArray::number(own * factor));
}

void KeepScaleToOneself() {
  if (before.isEmpty()) {
    qunsetenv(variable);
  } else {
    qputenv(variable, before);
  }
}

}  // namespace app
