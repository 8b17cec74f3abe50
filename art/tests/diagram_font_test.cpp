// SPDX-License-Identifier: GPL-3.0-or-later
// The font of the printed diagrams: squares that make a board when they are only set side by side.
#include <QPainter>
#include <QPainterPath>
#include <QRawFont>
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>

using namespace Qt::StringLiterals;

namespace {

constexpr int kSide = 100;  // dots of a square, ten a line of the hatching

QImage Set(const QStringList& lines) {
  const QRawFont font(QStringLiteral(ART_OUTPUT "/Fonts/Tarvolenix Diagrams.ttf"), kSide,
                      QFont::PreferNoHinting);
  EXPECT_EQ(font.ascent() + font.descent() + font.leading(), kSide);
  QImage page(kSide * static_cast<int>(lines[0].size()), kSide * static_cast<int>(lines.size()),
              QImage::Format_RGB32);
  page.fill(Qt::white);
  QPainter painter(&page);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.translate(0, font.ascent());
  for (const QString& line : lines) {
    double x = 0;
    for (const quint32 glyph : font.glyphIndexesForString(line)) {
      EXPECT_NE(glyph, 0U) << qPrintable(line);
      painter.fillPath(font.pathForGlyph(glyph).translated(x, 0), Qt::black);
      x += font.advancesForGlyphIndexes({glyph})[0].x();
    }
    painter.translate(0, kSide);
  }
  return page;
}

double Black(const QImage& page) {
  return 1 - qGray(page.scaled(1, 1, {}, Qt::SmoothTransformation).pixel(0, 0)) / 255.0;
}

TEST(DiagramFont, PiecesAreTheSameOnBothSquaresAndStandClearOfTheDarkOne) {
  EXPECT_EQ(Black(Set({u" "_s})), 0);
  const double hatching = Black(Set({u"/"_s}));
  EXPECT_LT(hatching, 0.3);
  for (const QString& row : {u"rRtT"_s, u"nNmM"_s, u"bBvV"_s, u"qQwW"_s, u"kKlL"_s, u"pPoO"_s}) {
    SCOPED_TRACE(qPrintable(row));
    const QImage light = Set({row.left(2)}), dark = Set({row.right(2)});
    EXPECT_GT(Black(Set({row.mid(1, 1)})), 1.5 * Black(Set({row.left(1)})));
    EXPECT_LT(Black(dark), Black(light) + 0.75 * hatching);
    QImage both = dark;
    QPainter painter(&both);
    painter.setCompositionMode(QPainter::CompositionMode_Darken);
    painter.drawImage(0, 0, light);
    EXPECT_NEAR(Black(both), Black(dark), 0.001);
  }
}

TEST(DiagramFont, HatchingGoesOnInTheNextSquare) {
  const QImage page = Set({u"//"_s, u"//"_s});
  for (int i = 0; i < 190 * 190; ++i) {
    const int x = i % 190, y = i / 190;
    ASSERT_NEAR(qGray(page.pixel(x, y + 10)), qGray(page.pixel(x + 10, y)), 40) << i;
  }
}

TEST(DiagramFont, TheBorderIsClosedAndNoLineLeavesIt) {
  const QImage page = Set({u"5116"_s, u"3  2"_s, u"7448"_s});
  for (double angle = 0; angle < 6.3; angle += 0.002) {
    int grey = 255, darkest = 255;
    for (int away = 0; away < kSide * 3 / 2; ++away) {
      const QPointF step(4.0 / 3 * away * std::cos(angle), away * std::sin(angle));
      grey = qGray(page.pixel(page.rect().center() + step.toPoint()));
      darkest = std::min(darkest, grey);
    }
    ASSERT_TRUE(darkest < 60 && grey == 255) << angle;
  }
}

}  // namespace
