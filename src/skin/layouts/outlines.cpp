// SPDX-License-Identifier: GPL-3.0-or-later
#include "skin/layouts/outlines.h"

#include <cmath>
#include <cstdlib>
#include <iterator>
#include <numbers>

#include "skin/layouts/dialog_layout.h"

namespace ui::layouts {
namespace {

constexpr Point statusWindow[] = {
    {28, 6},   {301, 6},  {302, 8},  {306, 8},  {307, 8},  {310, 9},  {316, 15}, {319, 22},
    {320, 27}, {321, 30}, {322, 35}, {322, 42}, {321, 43}, {319, 54}, {318, 55}, {316, 60},
    {309, 67}, {304, 69}, {297, 70}, {29, 70},  {28, 69},  {23, 69},  {23, 68},  {20, 67},
    {13, 60},  {10, 53},  {9, 48},   {8, 45},   {7, 40},   {7, 33},   {8, 32},   {10, 21},
    {11, 20},  {13, 15},  {18, 10},  {19, 10},  {21, 8},   {23, 8}};

/// A plaque: four round corners, each set back by a small step, and a crest in the middle of the
/// upper edge.
struct Plaque {  // NOLINT(clang-analyzer-optin.performance.Padding)
  std::string_view window;
  double left, right, top, bottom;
  int cornerPoints;  // of each corner; two of them make the step
  double radius;
  int crestPoints;  // one alone lies in the straight edge
  double crestWidth;
  double crestHeight;
};

constexpr double step = 3;

constexpr Plaque plaques[] = {
    {"NotifyForm", 4, 630, 4, 202, 7, 18, 12, 120, 5},
    {"SelectSound", 5, 304, 5, 228, 7, 18, 13, 104, 5},
    {"ChooseOpponent", 5, 324, 6, 135, 8, 18, 15, 104, 5},
    {"ExchangePawn", 5, 256, 6, 139, 9, 18, 16, 96, 5},
    {"Credits", 5, 494, 5, 279, 10, 20, 18, 144, 6},
    {"NewGameInfo", 5, 346, 5, 227, 12, 20, 21, 120, 6},
    {"OptionsPage", 6, 522, 5, 354, 14, 22, 21, 144, 6},
    {"Board", 8, 725, 9, 557, 20, 24, 1, 0, 0},
    {"SetupWarningForm", 3, 451, 3, 256, 16, 22, 22, 144, 6},
    {"SelectPrinter", 6, 345, 5, 186, 16, 20, 23, 120, 6},
    {"AboutBox", 5, 456, 5, 293, 19, 24, 25, 144, 7},
    {"MsgForm", 7, 455, 6, 226, 19, 22, 26, 144, 6},
    {"GameInterface", 5, 874, 5, 336, 24, 24, 34, 192, 7},
    {"HeldMailForm", 5, 595, 5, 560, 14, 22, 21, 144, 6},
    {"HeldMailNote", 5, 595, 5, 344, 14, 22, 21, 144, 6},
};

/// One corner, from the step at the left edge to the step at the top edge, as seen from the upper
/// left corner of the rectangle.
Outline CornerOf(const Plaque& plaque) {
  const double centre = step + plaque.radius;
  const int arcPoints = plaque.cornerPoints - 2;
  Outline corner{{0, centre}};
  for (int i = 0; i < arcPoints; ++i) {
    const double angle = std::numbers::pi / 2 * i / (arcPoints - 1);
    corner.push_back(
        {centre - plaque.radius * std::cos(angle), centre - plaque.radius * std::sin(angle)});
  }
  corner.push_back({centre, 0});
  return corner;
}

/// A soft wave, from left to right. An even number of points gives it a flat middle.
void AddCrest(const Plaque& plaque, Outline& outline) {
  const double middle = (plaque.left + plaque.right) / 2;
  const double edge = plaque.top + plaque.crestHeight;
  const int steps = plaque.crestPoints - 1;
  for (int i = 0; i <= steps; ++i) {
    const int fromMiddle = 2 * i - steps;  // in half steps
    const double along = steps == 0 ? 0 : 1.0 * fromMiddle / steps;
    const double slope = std::abs(fromMiddle) <= 1 ? 0 : along;
    outline.push_back({middle + plaque.crestWidth / 2 * along,
                       edge - plaque.crestHeight * (1 + std::cos(std::numbers::pi * slope)) / 2});
  }
}

Outline OutlineOf(const Plaque& plaque) {
  const Outline corner = CornerOf(plaque);
  const Outline back(corner.rbegin(), corner.rend());
  const double top = plaque.top + plaque.crestHeight;
  Outline outline;
  for (const Point& p : corner) outline.push_back({plaque.left + p.x, top + p.y});
  AddCrest(plaque, outline);
  for (const Point& p : back) outline.push_back({plaque.right - p.x, top + p.y});
  for (const Point& p : corner) outline.push_back({plaque.right - p.x, plaque.bottom - p.y});
  for (const Point& p : back) outline.push_back({plaque.left + p.x, plaque.bottom - p.y});
  return outline;
}

}  // namespace

Outline DialogOutline(const Size& size) {
  return OutlineOf(Plaque{dialog.window, 1, size.width - 1.0, 1, size.height - 1.0, 14, 22, 21,
                          dialogCrest - 8.0, dialogCrestHeight});
}

Outline OutlineOf(std::string_view window) {
  if (window == dialog.window) return DialogOutline(dialog.size);
  if (window == "StatusWindow") return {std::begin(statusWindow), std::end(statusWindow)};
  for (const Plaque& plaque : plaques) {
    if (plaque.window == window) return OutlineOf(plaque);
  }
  return {};
}

}  // namespace ui::layouts
