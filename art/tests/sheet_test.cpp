// SPDX-License-Identifier: GPL-3.0-or-later
// The board sheet: every square as it looks with every piece on it.
#include <gtest/gtest.h>

#include <cmath>

#include "lightness.h"

using namespace Qt::StringLiterals;

namespace art_test {

namespace {

constexpr int kSide = 200;
constexpr int kDark = 8, kBlack = 16;
constexpr int kKing = 5, kFallenKing = 7;

QImage Cell(int number) {
  static const QImage sheet = Rendered(u"Graphics/Classic Wood/Plain.jpg"_s);
  return sheet.copy(number % 8 * kSide, number / 8 * kSide, kSide, kSide);
}

// Where a cell differs from its empty square by more than wood, JPEG and a faint shadow do.
QImage Changed(int number) {
  const QImage cell = Cell(number), empty = Cell(number & kDark);
  return MaskOf(cell.size(), [&](int x, int y) {
    return std::abs(Lightness(cell.pixel(x, y)) - Lightness(empty.pixel(x, y))) > 9;
  });
}

double Share(const QImage& mask) {
  int count = 0;
  for (int y = 0; y < kSide; ++y) {
    for (int x = 0; x < kSide; ++x) count += mask.constScanLine(y)[x] > 127;
  }
  return count / double{kSide * kSide};
}

}  // namespace

TEST(Sheet, EveryPieceIsSeenOnItsSquareAndStaysInsideIt) {
  ASSERT_EQ(Rendered(u"Graphics/Classic Wood/Plain.jpg"_s).size(), QSize(8 * kSide, 4 * kSide));
  for (int number = 0; number < 32; ++number) {
    if (number % 8 == 0) continue;
    SCOPED_TRACE("cell " + std::to_string(number));
    const QImage changed = Changed(number);
    EXPECT_GT(Share(changed), 0.18);
    EXPECT_LT(Share(changed), 0.50);
    EXPECT_TRUE(QRect(2, 2, kSide - 4, kSide - 4).contains(Bounds(changed)));
  }
}

TEST(Sheet, ColumnsHoldThePiecesInOrder) {
  const double heights[] = {0, 0.70, 0.76, 0.80, 0.86, 0.90, 0.62};
  for (int column = 1; column <= 6; ++column) {
    for (int square : {0, kDark, kBlack, kBlack + kDark}) {
      EXPECT_NEAR(Bounds(Changed(column + square)).top(), (0.955 - heights[column]) * kSide, 4)
          << "cell " << column + square;
    }
  }
}

TEST(Sheet, RowsGoFromWhiteToBlack) {
  for (int column = 1; column < 8; ++column) {
    for (int dark : {0, kDark}) {
      EXPECT_GT(MeanLightness(Cell(column + dark)),
                MeanLightness(Cell(column + dark + kBlack)) + 10)
          << "column " << column;
    }
  }
}

TEST(Sheet, TheFallenKingLies) {
  for (int square : {0, kDark, kBlack, kBlack + kDark}) {
    SCOPED_TRACE("square " + std::to_string(square));
    const QRect stands = Bounds(Changed(square + kKing)),
                lies = Bounds(Changed(square + kFallenKing));
    EXPECT_GT(stands.height(), stands.width());
    EXPECT_GT(lies.width(), 1.2 * lies.height());
    EXPECT_NEAR(lies.bottom(), stands.bottom(), 6);
  }
}

}  // namespace art_test
