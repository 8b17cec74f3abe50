// SPDX-License-Identifier: GPL-3.0-or-later
// What the tool accepts as a drawing and as a set's parameters.
#include <QFile>
#include <QTemporaryDir>
#include <gtest/gtest.h>

#include "piece_drawing.h"
#include "set_parameters.h"

using namespace Qt::StringLiterals;

namespace art_test {

namespace {

struct MirrorCase {
  const char* fact;
  const char* half;
  const char* whole;
};

const MirrorCase mirrorCases[] = {
    {"a straight side comes back on the left", "M0,10 L30,20 L0,40",
     "M0,10 L30,20 L0,40 L-30,20 L0,10 Z"},
    {"a curve is walked backwards, its handles swapped", "M0,1 C2,3 4,5 6,7 L0,8",
     "M0,1 C2,3 4,5 6,7 L0,8 L-6,7 C-4,5 -2,3 0,1 Z"},
    {"a half that starts off the axis is refused", "M5,10 L30,20 L0,40", ""},
    {"a half that ends off the axis is refused", "M0,10 L30,20 L1,40", ""},
    {"a curve with a lost number is refused", "M0,1 C2,3 4,5 6 L0,8", ""},
    {"a lone point is refused", "M0,1", ""},
};

QString WithoutGaps(QString path) { return path.remove(u' ').replace(u"-0,"_s, u"0,"_s); }

QString Written(const QTemporaryDir& folder, const QByteArray& text) {
  QFile file(folder.filePath(u"file"_s));
  EXPECT_TRUE(file.open(QIODevice::WriteOnly));
  file.write(text);
  return file.fileName();
}

QByteArray ClassicWood() {
  QFile file(QStringLiteral(ART_SOURCE "/sets/classic-wood.ini"));
  EXPECT_TRUE(file.open(QIODevice::ReadOnly));
  return file.readAll();
}

}  // namespace

TEST(Drawing, MirrorsAHalfOutline) {
  for (const MirrorCase& row : mirrorCases) {
    EXPECT_EQ(WithoutGaps(art::MirroredPath(QString::fromLatin1(row.half))),
              WithoutGaps(QString::fromLatin1(row.whole)))
        << row.fact;
  }
}

TEST(Drawing, NamesTheFileItCannotUse) {
  const QTemporaryDir folder;
  for (const char* text : {"", "no drawing", "<svg><path d=\"{mirror M3,0 L0,1}\"/></svg>"}) {
    const QString path = Written(folder, text);
    QString error;
    EXPECT_FALSE(art::ReadPieceDrawing(path, 16, &error)) << text;
    EXPECT_TRUE(error.contains(path)) << qPrintable(error);
  }
}

TEST(Parameters, NamesTheKeyThatIsMissingOrUnreadable) {
  struct {
    const char* line;
    const char* instead;
    const char* key;
  } const cases[] = {
      {"cell=200\n", "", "set/cell"},
      {"gloss=0.55\n", "gloss=bright\n", "lamp/gloss"},
      {"ink=\"#080504\"\n", "ink=\"ebony\"\n", "black/ink"},
      {"[dark]\n", "[dusk]\n", "dark/base"},
  };
  const QTemporaryDir folder;
  QString error;
  ASSERT_TRUE(art::ReadSetParameters(Written(folder, ClassicWood()), &error));
  for (const auto& row : cases) {
    QByteArray text = ClassicWood();
    ASSERT_TRUE(text.contains(row.line)) << row.key;
    QFile::remove(folder.filePath(u"file"_s));
    EXPECT_FALSE(
        art::ReadSetParameters(Written(folder, text.replace(row.line, row.instead)), &error));
    EXPECT_TRUE(error.contains(QString::fromLatin1(row.key))) << qPrintable(error);
  }
}

}  // namespace art_test
