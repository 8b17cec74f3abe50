// SPDX-License-Identifier: GPL-3.0-or-later
// The message icons and the program icon.
#include <gtest/gtest.h>

#include "lightness.h"

using namespace Qt::StringLiterals;

namespace art_test {

namespace {

QImage MessageIcon(int number) { return Rendered(u"messages/message-%1.png"_s.arg(number)); }

}  // namespace

TEST(MessageIcons, LeaveRoomRoundTheirDrawing) {
  for (int number = 1; number <= 5; ++number) {
    const QImage icon = MessageIcon(number);
    ASSERT_EQ(icon.size(), QSize(96, 96));
    EXPECT_TRUE(QRect(1, 1, 94, 94).contains(Bounds(Opaque(icon)))) << number;
  }
}

TEST(MessageIcons, DifferInShapeNotOnlyInColour) {
  for (int a = 1; a <= 5; ++a) {
    for (int b = a + 1; b <= 5; ++b) {
      EXPECT_GT(Difference(Opaque(MessageIcon(a)), Opaque(MessageIcon(b))), 0.10)
          << a << " and " << b;
    }
  }
}

TEST(ProgramIcon, IsLargeWithRoundCorners) {
  const QImage icon = Rendered(u"tarvolenix.png"_s);
  ASSERT_EQ(icon.size(), QSize(256, 256));
  EXPECT_LT(qAlpha(icon.pixel(4, 4)), 40);
  EXPECT_EQ(qAlpha(icon.pixel(128, 128)), 255);
}

}  // namespace art_test
