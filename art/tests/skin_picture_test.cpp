// SPDX-License-Identifier: GPL-3.0-or-later
// The skins: of the right sizes, and legible wherever the windows write.
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <string>
#include <vector>

#include "lightness.h"
#include "skin/layouts/all_windows.h"
#include "skin/layouts/outlines.h"
#include "skin/layouts/skin_table.h"
#include "skin/layouts/strips.h"

using namespace Qt::StringLiterals;

namespace art_test {

namespace {

namespace layouts = ui::layouts;

constexpr double kLegible = 4.5;
constexpr int kScale = 3;
// As much of a text's ground may be worse than legible: no letter is lost in it.
constexpr double kSpeck = 0.02;

QString Named(std::string_view name) {
  return QString::fromLatin1(name.data(), static_cast<qsizetype>(name.size()));
}

double Luminance(QRgb colour) {
  const double lightness = Lightness(colour);
  return lightness > 8 ? std::pow((lightness + 16) / 116, 3) : lightness * 27 / 24389;
}

double Contrast(QRgb a, QRgb b) {
  const auto [dark, light] = std::minmax({Luminance(a), Luminance(b)});
  return (light + 0.05) / (dark + 0.05);
}

class Skin : public testing::TestWithParam<const char*> {
 protected:
  static QImage Load(std::string_view file) {
    return Rendered(u"UI Graphics/%1/%2"_s.arg(QLatin1StringView(GetParam()), Named(file)));
  }

  static QRgb ColourOf(const QImage& chart, int column, int row) {
    const QPoint pixel(107 + 15 * (column - 1), 7 + 15 * (row - 1));
    EXPECT_TRUE(chart.valid(pixel)) << "no column " << column << " in row " << row;
    return chart.valid(pixel) ? chart.pixel(pixel) : 0;
  }

  /// Each control of a list with its row of the chart.
  template <typename Check>
  static void ForEachRow(std::string_view file, std::string_view controls, Check check) {
    if (file.empty()) return;
    const QImage chart = Load(file);
    int row = 0;
    for (const QString& sharing : Named(controls).split(u';')) {
      ++row;
      for (const QString& control : sharing.split(u',')) {
        SCOPED_TRACE(std::string(file) + ": " + control.toStdString());
        check(chart, row, control);
      }
    }
  }

  /// The contrast of a colour with the picture at a rectangle, but for its worst specks.
  static double ContrastAt(const QImage& picture, QRgb text, const layouts::Rect& rect) {
    std::vector<double> contrasts;
    for (int y = rect.y * kScale; y < rect.Bottom() * kScale; ++y) {
      for (int x = rect.x * kScale; x < rect.Right() * kScale; ++x) {
        contrasts.push_back(Contrast(text, picture.pixel(x, y)));
      }
    }
    const auto worst = contrasts.begin() + std::lround(kSpeck * double(contrasts.size()));
    std::nth_element(contrasts.begin(), worst, contrasts.end());
    return *worst;
  }
};

// Where a control writes; without a layout of its own, anywhere inside the rim.
layouts::Rect PlaceOf(const layouts::Layout& layout, std::string_view control) {
  constexpr int rim = 20;
  if (!layout.controls.empty()) return layouts::RectOf(layout, control);
  return layouts::Rect{0, 0, layout.size.width, layout.size.height}.Grown(-rim);
}

}  // namespace

TEST_P(Skin, TextsAreLegibleOnThePictureBehindThem) {
  for (const layouts::Layout& layout : layouts::allWindows) {
    SCOPED_TRACE(std::string(layout.window));
    const ui::SkinRow& row = *ui::FindSkinRow(layout.window);
    const QImage background = Load(row.background);
    ASSERT_EQ(background.size(), QSize(layout.size.width, layout.size.height) * kScale);
    // The texts of the options stand on its pages.
    if (layout.window == "OptionsPage") continue;
    ForEachRow(row.textChart, row.textControls,
               [&](const QImage& chart, int r, const QString& control) {
                 const auto place = PlaceOf(layout, control.toStdString());
                 EXPECT_GE(ContrastAt(background, ColourOf(chart, 1, r), place), kLegible);
               });
  }
}

TEST_P(Skin, CoordinatesAreLegibleOnTheFrameOfTheBoard) {
  const QImage background = Load("Board.jpg");
  const QRgb text = ColourOf(Load("BoardText.bmp"), 1, 1);
  const layouts::Rect& board = layouts::RectOf(layouts::board, "CBoard");
  constexpr int band = layouts::boardBand;
  for (const layouts::Rect& side : {layouts::Rect{board.x, board.y, band, board.height},
                                    {board.Right() - band, board.y, band, board.height},
                                    {board.x, board.y, board.width, band},
                                    {board.x, board.Bottom() - band, board.width, band}}) {
    EXPECT_GE(ContrastAt(background, text, side), kLegible) << side.x << ", " << side.y;
  }
}

TEST_P(Skin, ChartsPairLegibleColours) {
  for (const layouts::Layout& layout : layouts::allWindows) {
    const ui::SkinRow& row = *ui::FindSkinRow(layout.window);
    ForEachRow(row.fieldChart, row.fieldControls, [](const QImage& chart, int r, const QString&) {
      EXPECT_GE(Contrast(ColourOf(chart, 1, r), ColourOf(chart, 2, r)), kLegible);
    });
    ForEachRow(row.gridChart, row.gridControls, [](const QImage& chart, int r, const QString&) {
      for (const int back : {1, 3, 5}) {
        EXPECT_GE(Contrast(ColourOf(chart, back, r), ColourOf(chart, back + 1, r)), kLegible);
      }
    });
    ForEachRow(row.tabChart, row.tabPages, [&](const QImage& tabs, int page, const QString&) {
      ForEachRow(row.textChart, row.textControls, [&](const QImage& chart, int r, const QString&) {
        EXPECT_GE(Contrast(ColourOf(tabs, 1, page), ColourOf(chart, 1, r)), kLegible);
      });
    });
  }
}

TEST_P(Skin, ButtonsAreLightUnderTheirCaptions) {
  const struct {
    const char* file;
    layouts::Strip strip;
    layouts::Rect caption;
  } strips[] = {
      {"SystemButtons.bmp", layouts::systemButtons, {8, 6, 80, 16}},
      {"BoardButtons.bmp", layouts::toolbarButtons, layouts::toolbarButtons.caption},
      {"BoardSetupButtons.bmp", layouts::toolbarButtons, layouts::toolbarButtons.caption},
      {"InterfaceButtons.bmp", layouts::interfaceButtons, layouts::interfaceButtons.caption},
  };
  for (const auto& [file, strip, caption] : strips) {
    const QImage picture = Load(file);
    const QSize cell = QSize(strip.cell.width, strip.cell.height) * kScale;
    ASSERT_EQ(picture.size(), QSize(cell.width() * strip.columns, cell.height() * strip.rows));
    for (int row = 0; row < strip.rows; ++row) {
      for (int column = 0; column < strip.columns; ++column) {
        const QPoint corner(column * cell.width(), row * cell.height());
        EXPECT_GE(ContrastAt(picture.copy({corner, cell}), qRgb(0, 0, 0), caption), 8)
            << file << ", row " << row << ", column " << column;
      }
    }
  }
}

INSTANTIATE_TEST_SUITE_P(Skins, Skin, testing::Values("Tarvolenix Classic", "Tarvolenix Night"),
                         [](const auto& skin) {
                           std::string name = skin.param;
                           std::erase(name, ' ');
                           return name;
                         });

}  // namespace art_test
