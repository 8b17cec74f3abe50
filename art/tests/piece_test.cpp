// SPDX-License-Identifier: GPL-3.0-or-later
// The twelve piece pictures.
#include <gtest/gtest.h>

#include "lightness.h"

using namespace Qt::StringLiterals;

namespace art_test {

namespace {

constexpr int kSide = 256;

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

}  // namespace

TEST(Pieces, KeepTheProportionsOfTheSet) {
  for (const PieceCase& piece : pieceCases) {
    for (const char* side : {"White", "Black"}) {
      SCOPED_TRACE(std::string(side) + piece.name);
      const QImage picture = Piece(side, piece.name);
      ASSERT_EQ(picture.size(), QSize(kSide, kSide));
      const QRect bounds = Bounds(Opaque(picture));
      EXPECT_NEAR(bounds.height() / double{kSide}, piece.height, 0.015);
      EXPECT_NEAR(bounds.bottom() / double{kSide}, 0.955, 0.012);
    }
  }
}

}  // namespace art_test
