// SPDX-License-Identifier: GPL-3.0-or-later
// Every chess set on every board: light and dark squares, and the pieces on them, are told apart by
// lightness alone. A sheet holds each square as it looks with each piece on it.
#include <gtest/gtest.h>

#include <cmath>
#include <ostream>

#include "lightness.h"

using namespace Qt::StringLiterals;

namespace art_test {

namespace {

constexpr int kSide = 200;
constexpr int kDark = 8, kBlack = 16;
constexpr int kRook = 1, kFallenKing = 7;

struct BoardCase {
  const char* set;
  const char* board;
  double least = 35, most = 46;  // how far light and dark squares are apart in lightness
};

const BoardCase boardCases[] = {{"Classic Wood", "Plain"},
                                {"Classic Wood", "Walnut and maple"},
                                {"Classic Wood", "Green felt"},
                                {"Classic Wood", "Slate"},
                                {"Flat", "Plain"},
                                {"Flat", "Moss"},
                                {"Flat", "Sand"},
                                {"High contrast", "Plain", 60, 100},
                                {"High contrast", "Grey", 60, 100}};

void PrintTo(const BoardCase& board, std::ostream* out) {
  *out << board.set << ", " << board.board;
}

class BoardSheets : public ::testing::TestWithParam<BoardCase> {
 protected:
  QImage Cell(int number) const {
    return sheet.copy(number % 8 * kSide, number / 8 * kSide, kSide, kSide);
  }

  double SquareLightness(int empty) const { return LightnessAt(Cell(empty), 0.5); }

  /// That of the piece: where its cell differs from the empty square by more than JPEG and a faint
  /// shadow do.
  double PieceLightness(int number, double share) const {
    const QImage cell = Cell(number), empty = Cell(number & kDark);
    return LightnessAt(cell, share, [&](QPoint at) {
      return std::abs(Lightness(cell.pixel(at)) - Lightness(empty.pixel(at))) > 9;
    });
  }

  const QImage sheet = Rendered(u"Graphics/%1/%2.jpg"_s.arg(QLatin1StringView(GetParam().set),
                                                            QLatin1StringView(GetParam().board)));
};

TEST_P(BoardSheets, SquaresAndPiecesStandOut) {
  ASSERT_EQ(sheet.size(), QSize(8 * kSide, 4 * kSide));
  const double light = SquareLightness(0), dark = SquareLightness(kDark);
  EXPECT_GT(light - dark, GetParam().least);
  EXPECT_LT(light - dark, GetParam().most);
  for (int column = kRook; column <= kFallenKing; ++column) {
    SCOPED_TRACE("column " + std::to_string(column));
    EXPECT_LT(PieceLightness(column + kBlack + kDark, 0.5), dark - 29);
    // The darker part of what is drawn there is outline and shadow.
    EXPECT_GT(PieceLightness(column + kDark, 0.7), dark + 30);
    // White can't be 30 above a light square; there its outline tells it.
    EXPECT_LT(PieceLightness(column, 0.15), light - 30);
  }
}

INSTANTIATE_TEST_SUITE_P(All, BoardSheets, ::testing::ValuesIn(boardCases));

}  // namespace

}  // namespace art_test
