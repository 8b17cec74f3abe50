// SPDX-License-Identifier: GPL-3.0-or-later
#include "front/scaled_application.h"

#include <QScreen>

#include <cmath>

#include "skin/window_scale.h"

namespace front {

namespace {

constexpr const char* variable = "QT_SCALE_FACTOR";  // of the toolkit
constexpr double sameScale = 0.01;                   // sizes in logical pixels are rounded

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

ScaledApplication::ScaledApplication(const StartWishes& wishes, int argc, char** argv)
    : given_(argv, argv + argc + 1), ownScale_(qgetenv(variable)) {
  Make(wishes.lastScale);
  const QScreen* const screen = QGuiApplication::primaryScreen();
  if (wishes.windowSize && screen) {
    const double wanted = ui::WindowScaleFor(*wishes.windowSize, RoomOf(*screen, scale_));
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

}  // namespace front
