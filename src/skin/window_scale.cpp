// SPDX-License-Identifier: GPL-3.0-or-later
#include "skin/window_scale.h"

#include <algorithm>
#include <cmath>
#include <iterator>

#include "skin/layouts/board_layout.h"
#include "skin/layouts/game_interface_layout.h"

namespace ui {

namespace {

constexpr WindowSize sizes[] = {
    {"Auto", "As large as the screen allows", 0},
    {"100", "100 %", 100},
    {"125", "125 %", 125},
    {"150", "150 %", 150},
    {"175", "175 %", 175},
    {"200", "200 %", 200},
};

constexpr double shareOfHeight = 0.8;  // of the screen, for the board
constexpr double step = 0.25;          // between whole sizes, at which lines stay sharp
constexpr double largest = 3;          // the art has no more pixels

/// So that the board takes its share of the screen's height.
double LargestFor(const ScreenRoom& screen) {
  const double share = shareOfHeight * screen.height / layouts::board.size.height;
  return std::clamp(std::floor(share / step) * step, 1.0, largest);
}

}  // namespace

std::span<const WindowSize> WindowSizes() { return sizes; }

double WindowScaleFor(std::string_view stored, const ScreenRoom& screen) {
  const auto* const chosen =
      std::find_if(std::begin(sizes), std::end(sizes),
                   [stored](const auto& size) { return size.stored == stored; });
  const int percent = chosen == std::end(sizes) ? 100 : chosen->percent;
  const double wanted = percent == 0 ? LargestFor(screen) : percent / 100.0;
  // The board is the highest of all windows, and the list the widest.
  const double fitting = std::min(1.0 * screen.available.width / layouts::gameInterface.size.width,
                                  1.0 * screen.available.height / layouts::board.size.height);
  return std::max(std::min(wanted, fitting), 1 / screen.pixelRatio);
}

}  // namespace ui
