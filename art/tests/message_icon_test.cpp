// SPDX-License-Identifier: GPL-3.0-or-later
#include <gtest/gtest.h>

#include "lightness.h"

using namespace Qt::StringLiterals;

namespace art_test {

namespace {

QImage MessageIcon(int number) { return Rendered(u"messages/message-%1.png"_s.arg(number)); }

}  // namespace

TEST(MessageIcons, DifferInShapeNotOnlyInColour) {
  for (int a = 1; a <= 5; ++a) {
    for (int b = a + 1; b <= 5; ++b) {
      EXPECT_GT(Difference(Opaque(MessageIcon(a)), Opaque(MessageIcon(b))), 0.10)
          << a << " and " << b;
    }
  }
}

}  // namespace art_test
