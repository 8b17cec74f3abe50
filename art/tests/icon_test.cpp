// SPDX-License-Identifier: GPL-3.0-or-later
// The icon family: pictures that stand for different things differ in shape, so that they can be
// told apart in black and white, and at the size that a tray and a list show them in.
#include <gtest/gtest.h>

#include "lightness.h"

using namespace Qt::StringLiterals;

namespace art_test {

namespace {

struct FamilyCase {
  const char* name;
  const char* folder;
  QStringList members;
};

const FamilyCase familyCases[] = {
    {"sort marks", "status", {u"1-ascending"_s, u"2-descending"_s}},
    {"game status",
     "status",
     {u"3-new-move"_s, u"4-waiting"_s, u"5-won"_s, u"6-lost"_s, u"7-drawn"_s}},
    {"tray set 1", "tray", {u"set-1-normal"_s, u"set-1-new-move"_s, u"set-1-no-network"_s}},
    {"tray set 2", "tray", {u"set-2-normal"_s, u"set-2-new-move"_s, u"set-2-no-network"_s}},
    {"tray set 3", "tray", {u"set-3-normal"_s, u"set-3-new-move"_s, u"set-3-no-network"_s}},
};

// What is left of a picture without its colours: the light surfaces between the dark lines.
QImage Shape(const QImage& picture) {
  return MaskOf(picture.size(), [&](int x, int y) {
    const QRgb pixel = picture.pixel(x, y);
    return qAlpha(pixel) > 127 && Lightness(pixel) > 55;
  });
}

}  // namespace

TEST(Icons, DifferInShapeNotOnlyInColour) {
  for (const FamilyCase& family : familyCases) {
    for (int side : {16, 22}) {
      QList<QImage> shapes;
      for (const QString& member : family.members) {
        const QString path = u"icons/%1/%2.ico"_s.arg(QLatin1StringView(family.folder), member);
        shapes.push_back(Shape(RenderedAt(path, side)));
      }
      for (qsizetype a = 0; a < shapes.size(); ++a) {
        for (qsizetype b = a + 1; b < shapes.size(); ++b) {
          EXPECT_GT(Difference(shapes[a], shapes[b]), 0.12)
              << family.name << " at " << side << ": " << qPrintable(family.members[a]) << " and "
              << qPrintable(family.members[b]);
        }
      }
    }
  }
}

TEST(Icons, MessagesDifferInShapeNotOnlyInColour) {
  auto shape = [](int number) {
    return Opaque(Rendered(u"messages/message-%1.png"_s.arg(number)));
  };
  for (int a = 1; a <= 5; ++a) {
    for (int b = a + 1; b <= 5; ++b) {
      EXPECT_GT(Difference(shape(a), shape(b)), 0.10) << a << " and " << b;
    }
  }
}

TEST(Icons, TheProgramIconComesInEverySizeADesktopAsksFor) {
  for (int side : {16, 22, 24, 32, 48, 64, 128, 256}) {
    EXPECT_GT(Share(Opaque(RenderedAt(u"tarvolenix.ico"_s, side))), 0.7) << side;
  }
}

}  // namespace art_test
