// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/scaled_application.h"

#include <QScreen>

#include <cmath>

#include "desktop/ini_settings.h"
#include "desktop/posix_files.h"
#include "platform/registry.h"
#include "platform/seams.h"
#include "shell/settings.h"
#include "skin/window_scale.h"

namespace app {

namespace {

constexpr const char* variable = "QT_SCALE_FACTOR";  // of the toolkit
constexpr const char* setting = "WindowScale";
constexpr double smallest = 0.2;
constexpr double largest = 4;
constexpr double sameScale = 0.01;  // sizes in logical pixels are rounded

struct Wish {
  std::optional<std::string> size;  ///< none in the plain look
  double lastScale = 1;
};

double ScaleOf(const platform::StoredValue& text) {
  const double scale = QByteArray::fromStdString(text.value_or("1")).toDouble();
  return scale >= smallest && scale <= largest ? scale : 1;
}

Wish ReadWish(const std::string& settingsFile) {
  desktop::PosixFiles files;
  desktop::IniSettings settings(files, settingsFile);
  platform::TheSeams().settings = &settings;
  Wish wish{shell::WindowSizeAtStart()};
  if (wish.size) {
    wish.lastScale = ScaleOf(platform::ReadRegistry(platform::productSection, setting));
  }
  platform::TheSeams().settings = nullptr;
  return wish;
}

/// The screen on which the windows open, as it were without the scale.
ui::ScreenRoom RoomOf(const QScreen& screen, double scale) {
  // A logical pixel that is there only in part counts as a whole one.
  const auto unscaled = [scale](int length) {
    return static_cast<int>(std::floor(length * scale + 0.25));
  };
  const QSize available = screen.availableSize();
  return {unscaled(screen.size().height()),
          {unscaled(available.width()), unscaled(available.height())},
          screen.devicePixelRatio() / scale};
}

}  // namespace

ScaledApplication::ScaledApplication(const std::string& settingsFile, int argc, char** argv)
    : given_(argv, argv + argc + 1), ownScale_(qgetenv(variable)) {
  const Wish wish = ReadWish(settingsFile);
  Make(wish.lastScale);
  const QScreen* const screen = QGuiApplication::primaryScreen();
  if (wish.size && screen) {
    const double wanted = ui::WindowScaleFor(*wish.size, RoomOf(*screen, scale_));
    if (std::abs(wanted - scale_) > sameScale) Make(wanted);
  }
  // Other programs that this one starts keep their own size.
  if (ownScale_.isEmpty()) {
    qunsetenv(variable);
  } else {
    qputenv(variable, ownScale_);
  }
}

void ScaledApplication::Make(double scale) {
  application_.reset();
  scale_ = scale;
  qputenv(variable, QByteArray::number((ownScale_.isEmpty() ? 1 : ownScale_.toDouble()) * scale));
  arguments_ = given_;  // the toolkit takes some of them out
  count_ = static_cast<int>(given_.size()) - 1;
  application_.emplace(count_, arguments_.data());
}

void ScaledApplication::RememberScale() const {
  const std::string text = QByteArray::number(scale_).toStdString();
  const auto last = platform::ReadRegistry(platform::productSection, setting);
  if (ScaleOf(last) != ScaleOf(text)) {
    platform::WriteRegistry(platform::productSection, setting, text, true);
  }
}

}  // namespace app
