// SPDX-License-Identifier: GPL-3.0-or-later
// The twelve piece pictures: proportions, outline, and how they stand out from the squares.
#include <gtest/gtest.h>

#include "lightness.h"

using namespace Qt::StringLiterals;

namespace art_test {

namespace {

constexpr int kSide = 256;
// The outline with its soft edge, in pixels of a picture.
constexpr int kOutline = 7;

struct PieceCase {
  const char* name;
  double height;  // parts of the cell
};

// The order of height is how players tell the pieces at a glance.
const PieceCase pieceCases[] = {{"Rook", 0.70},  {"Knight", 0.76}, {"Bishop", 0.80},
                                {"Queen", 0.86}, {"King", 0.90},   {"Pawn", 0.62}};

QImage Piece(const char* side, const char* name) {
  return Rendered(u"Graphics/Classic Wood/%1%2.ico"_s.arg(QString::fromLatin1(side),
                                                          QString::fromLatin1(name)));
}

double SquareLightness(int cell) {
  const QImage sheet = Rendered(u"Graphics/Classic Wood/Plain.jpg"_s);
  const int side = sheet.height() / 4;
  return MeanLightness(sheet.copy(0, cell / 8 * side, side, side));
}

template <typename Check>
void ForEachPiece(const char* side, Check check) {
  for (const PieceCase& piece : pieceCases) {
    SCOPED_TRACE(std::string(side) + piece.name);
    check(piece, Piece(side, piece.name));
  }
}

}  // namespace

TEST(Pieces, FloatOnATransparentGround) {
  for (const char* side : {"White", "Black"}) {
    ForEachPiece(side, [](const PieceCase&, const QImage& picture) {
      ASSERT_EQ(picture.size(), QSize(kSide, kSide));
      // A shadow that reached the edge would end there in a straight line.
      for (int i = 0; i < kSide; ++i) {
        for (QPoint edge :
             {QPoint(i, 0), QPoint(i, kSide - 1), QPoint(0, i), QPoint(kSide - 1, i)}) {
          ASSERT_LE(qAlpha(picture.pixel(edge)), 2) << edge.x() << "," << edge.y();
        }
      }
    });
  }
}

TEST(Pieces, KeepTheProportionsOfTheSet) {
  for (const char* side : {"White", "Black"}) {
    ForEachPiece(side, [](const PieceCase& piece, const QImage& picture) {
      const QRect bounds = Bounds(Opaque(picture));
      EXPECT_NEAR(bounds.height() / double{kSide}, piece.height, 0.015);
      EXPECT_GE(bounds.width() / double{kSide}, 0.645);
      EXPECT_LE(bounds.width() / double{kSide}, 0.735);
      EXPECT_NEAR(bounds.bottom() / double{kSide}, 0.955, 0.012);
    });
  }
}

TEST(Pieces, EbonyIsFarFromTheDarkSquare) {
  const double square = SquareLightness(8);
  ForEachPiece("Black", [&](const PieceCase&, const QImage& picture) {
    EXPECT_GE(square - MeanLightness(picture, Eroded(Opaque(picture), 1)), 30);
  });
}

// Nothing is 30 above a light square, so ivory leans on its outline there.
TEST(Pieces, IvoryHasALightFillWithinADarkOutline) {
  const double light = SquareLightness(0), dark = SquareLightness(8);
  ForEachPiece("White", [&](const PieceCase&, const QImage& picture) {
    const QImage whole = Opaque(picture), fill = Eroded(whole, kOutline);
    EXPECT_GE(MedianLightness(picture, fill) - light, 10);
    EXPECT_GE(MeanLightness(picture, fill) - dark, 30);
    EXPECT_GE(light - MeanLightness(picture, Without(whole, Eroded(whole, 3))), 30);
  });
}

TEST(Pieces, AreToldApartByOutlineAloneWhenSmall) {
  auto outline = [](const char* name) {
    return Opaque(Piece("White", name))
        .scaled(24, 24, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
  };
  for (const PieceCase& a : pieceCases) {
    for (const PieceCase& b : pieceCases) {
      if (&a >= &b) continue;
      EXPECT_GT(Difference(outline(a.name), outline(b.name)), 0.10) << a.name << " and " << b.name;
    }
  }
}

// Under the muzzle the throat draws back; on the mane's side nothing does.
TEST(Pieces, TheKnightLooksLeft) {
  const QImage knight = Opaque(Piece("White", "Knight"));
  auto leftEdge = [&](double from, double to) {
    const int top = static_cast<int>(from * kSide), bottom = static_cast<int>(to * kSide);
    return Bounds(knight.copy(0, top, kSide, bottom - top)).left();
  };
  EXPECT_LT(leftEdge(0.50, 0.60), leftEdge(0.67, 0.70) - 0.08 * kSide);
}

}  // namespace art_test
