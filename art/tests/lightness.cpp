// SPDX-License-Identifier: GPL-3.0-or-later
#include "lightness.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <vector>

namespace art_test {

namespace {

double Linear(int value) {
  static const auto table = [] {
    std::array<double, 256> linear{};
    for (size_t i = 0; i < linear.size(); ++i) {
      const double share = static_cast<double>(i) / 255;
      linear[i] = share <= 0.04045 ? share / 12.92 : std::pow((share + 0.055) / 1.055, 2.4);
    }
    return linear;
  }();
  return table[static_cast<size_t>(value)];
}

}  // namespace

QImage Rendered(const QString& name) {
  QImage picture(QStringLiteral(ART_OUTPUT "/") + name);
  EXPECT_FALSE(picture.isNull()) << qPrintable(name);
  return picture;
}

double Lightness(QRgb colour) {
  const double y = 0.2126 * Linear(qRed(colour)) + 0.7152 * Linear(qGreen(colour)) +
                   0.0722 * Linear(qBlue(colour));
  return y > 216.0 / 24389 ? 116 * std::cbrt(y) - 16 : y * 24389 / 27;
}

double LightnessAt(const QImage& picture, double share,
                   const std::function<bool(QPoint)>& isMeant) {
  std::vector<double> values;
  for (int y = 0; y < picture.height(); ++y) {
    for (int x = 0; x < picture.width(); ++x) {
      if (isMeant({x, y})) values.push_back(Lightness(picture.pixel(x, y)));
    }
  }
  EXPECT_FALSE(values.empty());
  if (values.empty()) return 0;
  const auto place = static_cast<ptrdiff_t>(share * static_cast<double>(values.size() - 1));
  std::nth_element(values.begin(), values.begin() + place, values.end());
  return values[static_cast<size_t>(place)];
}

}  // namespace art_test
