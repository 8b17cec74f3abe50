// SPDX-License-Identifier: GPL-3.0-or-later
// Every chess set on every board: the sheets, which hold each square as it looks with each piece on
// it, and the piece pictures.
#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <ostream>

#include "lightness.h"

using namespace Qt::StringLiterals;

namespace art_test {

namespace {

constexpr int kSide = 200, kIconSide = 256;
constexpr int kDark = 8, kBlack = 16;
constexpr int kRook = 1, kKing = 5, kPawn = 6, kFallenKing = 7;

struct PieceCase {
  const char* name;
  double height;  // parts of the cell
};

// By column. The order of height is how players tell the pieces at a glance.
const PieceCase pieceCases[] = {{"", 0},         {"Rook", 0.70}, {"Knight", 0.76}, {"Bishop", 0.80},
                                {"Queen", 0.86}, {"King", 0.90}, {"Pawn", 0.62}};

struct BoardCase {
  const char* set;
  const char* board;
  double least, most;  // how far light and dark squares are apart in lightness
  double halo;         // how much further than its height a piece's second outline reaches
};

const BoardCase boardCases[] = {
    {"Classic Wood", "Plain", 35, 45, 0},
    {"Classic Wood", "Walnut and maple", 35, 46, 0},
    {"Classic Wood", "Green felt", 35, 45, 0},
    {"Classic Wood", "Slate", 35, 45, 0},
    {"Flat", "Plain", 35, 45, 0},
    {"Flat", "Moss", 35, 45, 0},
    {"Flat", "Sand", 35, 45, 0},
    {"High contrast", "Plain", 60, 100, 0.019},
    {"High contrast", "Grey", 60, 100, 0.019},
};

void PrintTo(const BoardCase& board, std::ostream* out) {
  *out << board.set << ", " << board.board;
}

QString PathOf(const BoardCase& board, const QString& file) {
  return u"Graphics/%1/%2"_s.arg(QLatin1StringView(board.set), file);
}

// A sheet cell by cell, and what of each cell is piece.
struct Sheet {
  explicit Sheet(const BoardCase& board)
      : whole(Rendered(PathOf(board, QLatin1StringView(board.board) + u".jpg"_s))) {
    for (int number = 0; number < 32; ++number) {
      cells[At(number)] = whole.copy(number % 8 * kSide, number / 8 * kSide, kSide, kSide);
      changed[At(number)] = ChangedBy(number);
    }
  }

  const QImage& Cell(int number) const { return cells[At(number)]; }
  const QImage& Piece(int number) const { return changed[At(number)]; }

  QImage whole;

 private:
  static size_t At(int number) { return static_cast<size_t>(number); }

  // Where a cell differs from its empty square by more than JPEG and a faint shadow do.
  QImage ChangedBy(int number) const {
    const QImage &cell = Cell(number), &empty = Cell(number & kDark);
    return MaskOf(cell.size(), [&](int x, int y) {
      return std::abs(Lightness(cell.pixel(x, y)) - Lightness(empty.pixel(x, y))) > 9;
    });
  }

  std::array<QImage, 32> cells, changed;
};

double SquareLightness(const Sheet& sheet, int empty) {
  const QImage& cell = sheet.Cell(empty);
  return LightnessAt(cell, MaskOf(cell.size(), [](int, int) { return true; }), 0.5);
}

class BoardSheets : public ::testing::TestWithParam<BoardCase> {
 protected:
  const BoardCase& board = GetParam();
  const Sheet sheet{board};
};

TEST_P(BoardSheets, SquaresDifferClearly) {
  ASSERT_EQ(sheet.whole.size(), QSize(8 * kSide, 4 * kSide));
  const double apart = SquareLightness(sheet, 0) - SquareLightness(sheet, kDark);
  EXPECT_GT(apart, board.least);
  EXPECT_LT(apart, board.most);
  EXPECT_EQ(Share(sheet.Piece(kBlack)) + Share(sheet.Piece(kBlack + kDark)), 0)
      << "the empty squares of both sides are the same";
}

TEST_P(BoardSheets, ColumnsHoldThePiecesInOrderAndInsideTheirSquares) {
  for (int column = kRook; column <= kPawn; ++column) {
    for (int square : {0, kDark, kBlack, kBlack + kDark}) {
      SCOPED_TRACE("cell " + std::to_string(column + square));
      const QImage& piece = sheet.Piece(column + square);
      EXPECT_GT(Share(piece), 0.07);
      EXPECT_LT(Share(piece), 0.50);
      EXPECT_TRUE(QRect(2, 2, kSide - 4, kSide - 4).contains(Bounds(piece)));
      EXPECT_NEAR(Bounds(piece).top(), (0.955 - pieceCases[column].height - board.halo) * kSide, 4);
    }
  }
}

TEST_P(BoardSheets, PiecesStandOutFromTheSquareTheyCouldDrownIn) {
  const double light = SquareLightness(sheet, 0), dark = SquareLightness(sheet, kDark);
  for (int column = kRook; column <= kFallenKing; ++column) {
    SCOPED_TRACE("column " + std::to_string(column));
    const int black = column + kBlack + kDark;
    EXPECT_LT(LightnessAt(sheet.Cell(black), sheet.Piece(black), 0.5), dark - 29);
    // The darker part of what is drawn there is outline and shadow.
    EXPECT_GT(LightnessAt(sheet.Cell(column + kDark), sheet.Piece(column + kDark), 0.7), dark + 30);
    // White can't be 30 above a light square; there its outline tells it.
    EXPECT_LT(LightnessAt(sheet.Cell(column), sheet.Piece(column), 0.15), light - 30);
  }
}

TEST_P(BoardSheets, TheFallenKingLies) {
  for (int square : {0, kDark, kBlack, kBlack + kDark}) {
    SCOPED_TRACE("square " + std::to_string(square));
    const QRect stands = Bounds(sheet.Piece(square + kKing)),
                lies = Bounds(sheet.Piece(square + kFallenKing));
    EXPECT_GT(stands.height(), stands.width());
    EXPECT_GT(lies.width(), 1.2 * lies.height());
    EXPECT_NEAR(lies.bottom(), stands.bottom(), 7);
    EXPECT_TRUE(QRect(2, 2, kSide - 4, kSide - 4).contains(lies));
  }
}

INSTANTIATE_TEST_SUITE_P(All, BoardSheets, ::testing::ValuesIn(boardCases));

}  // namespace

TEST(PiecePictures, KeepTheProportionsOfTheSet) {
  for (const BoardCase& board : boardCases) {
    for (int column = kRook; column <= kPawn; ++column) {
      for (const char* side : {"White", "Black"}) {
        const PieceCase& piece = pieceCases[column];
        const QString name = QLatin1StringView(side) + QLatin1StringView(piece.name) + u".ico"_s;
        SCOPED_TRACE(qPrintable(PathOf(board, name)));
        const QImage picture = Rendered(PathOf(board, name));
        ASSERT_EQ(picture.size(), QSize(kIconSide, kIconSide));
        const QRect bounds = Bounds(Opaque(picture));
        EXPECT_NEAR(bounds.height() / double{kIconSide}, piece.height + 2 * board.halo, 0.015);
        EXPECT_NEAR(bounds.bottom() / double{kIconSide}, 0.955 + board.halo, 0.012);
      }
    }
  }
}

}  // namespace art_test
