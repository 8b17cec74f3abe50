// SPDX-License-Identifier: GPL-3.0-or-later
// The program's own skins can be read: every text against what lies behind it, at its own place.
#include <QDir>
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <functional>
#include <vector>

#include "platform/text_fields.h"
#include "ui/colour_chart.h"
#include "ui/layouts/all_windows.h"
#include "ui/skin_table.h"

namespace ui {
namespace {

using namespace Qt::StringLiterals;

constexpr double readable = 4.5;

double Luminance(const QColor& colour) {
  const auto linear = [](double part) {
    return part <= 0.04045 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4);
  };
  return 0.2126 * linear(colour.redF()) + 0.7152 * linear(colour.greenF()) +
         0.0722 * linear(colour.blueF());
}

double Contrast(const QColor& one, const QColor& other) {
  const double a = Luminance(one), b = Luminance(other);
  const double low = std::min(a, b), high = std::max(a, b);
  return (high + 0.05) / (low + 0.05);
}

class SkinContrastTest : public testing::TestWithParam<const char*> {
 protected:
  QImage Picture(std::string_view file) const {
    const QString path = QStringLiteral(TARVOLENIX_SKINS) + u'/' + QString::fromUtf8(GetParam()) +
                         u'/' + QString::fromStdString(std::string(file));
    const QImage picture(path);
    EXPECT_FALSE(picture.isNull()) << path.toStdString();
    return picture;
  }

  static void ForEachRow(std::string_view controls,
                         const std::function<void(int row, std::string_view control)>& check) {
    platform::FieldWalk names(controls, ';');
    const int rows = platform::CountFields(controls, ';');
    for (int row = 1; row <= rows; ++row) check(row, names.Next());
  }

  /// A texture may have single pixels that come too close.
  static double ContrastOn(const QImage& background, const layouts::Rect& place,
                           const QColor& text) {
    std::vector<double> contrasts;
    for (int y = place.y; y < place.Bottom(); ++y) {
      for (int x = place.x; x < place.Right(); ++x) {
        contrasts.push_back(Contrast(background.pixelColor(x, y), text));
      }
    }
    const auto nearlyWorst = contrasts.begin() + static_cast<std::ptrdiff_t>(contrasts.size() / 50);
    std::nth_element(contrasts.begin(), nearlyWorst, contrasts.end());
    return *nearlyWorst;
  }
};

TEST_P(SkinContrastTest, EveryTextIsReadableAtItsPlace) {
  for (const layouts::Layout& window : layouts::allWindows) {
    const SkinRow& row = *FindSkinRow(window.window);
    if (window.controls.empty() || row.textChart.empty()) continue;
    const QImage background = Picture(row.background)
                                  .scaled(window.size.width, window.size.height,
                                          Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
    const QImage chart = Picture(row.textChart);
    ForEachRow(row.textControls, [&](int number, std::string_view control) {
      EXPECT_GE(
          ContrastOn(background, layouts::RectOf(window, control), SkinColour(chart, 1, number)),
          readable)
          << control;
    });
    if (window.window != "Board") continue;
    constexpr int band = layouts::boardBand;
    const layouts::Rect& squares = layouts::boardSquares;
    const layouts::Rect coordinates[] = {{squares.x, squares.Bottom() + 1, squares.width, band - 1},
                                         {squares.x - band, squares.y, band - 1, squares.height}};
    for (const layouts::Rect& place : coordinates) {
      EXPECT_GE(ContrastOn(background, place, SkinColour(chart, 1, 1)), readable) << "coordinates";
    }
  }
}

TEST_P(SkinContrastTest, FieldsAndGridsAreReadable) {
  for (const layouts::Layout& window : layouts::allWindows) {
    const SkinRow& row = *FindSkinRow(window.window);
    const auto check = [&](std::string_view file, std::string_view controls, int columns) {
      if (file.empty()) return;
      const QImage chart = Picture(file);
      ForEachRow(controls, [&](int number, std::string_view control) {
        for (int column = 1; column < columns; column += 2) {
          EXPECT_GE(
              Contrast(SkinColour(chart, column, number), SkinColour(chart, column + 1, number)),
              readable)
              << control << ", column " << column;
        }
      });
    };
    check(row.fieldChart, row.fieldControls, 2);
    check(row.gridChart, row.gridControls, 6);
  }
}

INSTANTIATE_TEST_SUITE_P(, SkinContrastTest,
                         testing::Values("Tarvolenix Classic", "Tarvolenix Night"));

}  // namespace
}  // namespace ui
