// SPDX-License-Identifier: GPL-3.0-or-later
#include "lightness.h"

#include <QImageReader>
#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <vector>

namespace art_test {

namespace {

constexpr int kOpaque = 250;

bool Has(const QImage& mask, int x, int y) {
  return mask.valid(x, y) && qGray(mask.pixel(x, y)) > 127;
}

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

QImage RenderedAt(const QString& name, int side) {
  QImageReader reader(QStringLiteral(ART_OUTPUT "/") + name);
  do {
    QImage picture = reader.read();
    if (picture.width() == side) return picture;
  } while (reader.jumpToNextImage());
  ADD_FAILURE() << qPrintable(name) << " has no picture of " << side << " pixels";
  return {};
}

double Lightness(QRgb colour) {
  const double y = 0.2126 * Linear(qRed(colour)) + 0.7152 * Linear(qGreen(colour)) +
                   0.0722 * Linear(qBlue(colour));
  return y > 216.0 / 24389 ? 116 * std::cbrt(y) - 16 : y * 24389 / 27;
}

double LightnessAt(const QImage& picture, const QImage& mask, double share) {
  std::vector<double> values;
  for (int y = 0; y < picture.height(); ++y) {
    for (int x = 0; x < picture.width(); ++x) {
      if (Has(mask, x, y)) values.push_back(Lightness(picture.pixel(x, y)));
    }
  }
  EXPECT_FALSE(values.empty());
  if (values.empty()) return 0;
  const auto place = static_cast<ptrdiff_t>(share * static_cast<double>(values.size() - 1));
  std::nth_element(values.begin(), values.begin() + place, values.end());
  return values[static_cast<size_t>(place)];
}

QImage MaskOf(QSize size, const std::function<bool(int, int)>& holds) {
  QImage mask(size, QImage::Format_Grayscale8);
  for (int y = 0; y < size.height(); ++y) {
    for (int x = 0; x < size.width(); ++x) mask.scanLine(y)[x] = holds(x, y) ? 255 : 0;
  }
  return mask;
}

QImage Opaque(const QImage& picture) {
  return MaskOf(picture.size(),
                [&](int x, int y) { return qAlpha(picture.pixel(x, y)) >= kOpaque; });
}

double Difference(const QImage& a, const QImage& b) {
  int either = 0, one = 0;
  for (int y = 0; y < a.height(); ++y) {
    for (int x = 0; x < a.width(); ++x) {
      either += Has(a, x, y) || Has(b, x, y);
      one += Has(a, x, y) != Has(b, x, y);
    }
  }
  return static_cast<double>(one) / either;
}

double Share(const QImage& mask) {
  int count = 0;
  for (int y = 0; y < mask.height(); ++y) {
    for (int x = 0; x < mask.width(); ++x) count += Has(mask, x, y);
  }
  return static_cast<double>(count) / (mask.width() * mask.height());
}

QRect Bounds(const QImage& mask) {
  QRect bounds;
  for (int y = 0; y < mask.height(); ++y) {
    for (int x = 0; x < mask.width(); ++x) {
      if (Has(mask, x, y)) bounds |= QRect(x, y, 1, 1);
    }
  }
  return bounds;
}

}  // namespace art_test
