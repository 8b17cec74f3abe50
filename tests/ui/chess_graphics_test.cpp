// SPDX-License-Identifier: GPL-3.0-or-later
#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include "ui_fixture.h"

namespace ui {
namespace {

class ChessGraphicsTest : public testing::Test {
 protected:
  ChessGraphicsTest() {
    platform::Process().ProgramFolder = folder_.path().toStdString() + "/";
    QDir(folder_.path()).mkpath(QStringLiteral("Graphics/Märchen Set"));
    const ChessGraphics graphics = ColouredGraphics();
    for (const char* side : {"White", "Black"}) {
      for (const char* kind : {"Rook", "Knight", "Bishop", "Queen", "King", "Pawn"}) {
        Save(graphics.IconSet[0], std::string(side) + kind + ".ico", "ICO");
      }
    }
    Save(graphics.ChessSet, "Plain.jpg", "PNG");
  }

  std::string PathOf(const std::string& name) const {
    return platform::Process().ProgramFolder + "Graphics/Märchen Set/" + name;
  }

  void Save(const QImage& image, const std::string& name, const char* format) const {
    ASSERT_TRUE(image.save(QString::fromStdString(PathOf(name)), format));
  }

  void Spoil(const std::string& name, const QByteArray& content) const {
    QFile file(QString::fromStdString(PathOf(name)));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(content);
  }

  bool Load() { return LoadChessGraphics("Märchen Set", "Plain", graphics_); }

  fakes::FakeDesktop desktop_;
  QTemporaryDir folder_;
  ChessGraphics graphics_;
};

TEST_F(ChessGraphicsTest, ASetLoadsIntoTheNumbersOfItsPiecesAndCells) {
  QImage bishop(32, 32, QImage::Format_ARGB32);
  bishop.fill(Qt::blue);
  Save(bishop, "BlackBishop.ico", "ICO");
  ASSERT_TRUE(Load());
  EXPECT_EQ(graphics_.Icon(rules::BlackBishop).pixelColor(5, 5), QColor(Qt::blue));
  EXPECT_EQ(graphics_.Icon(rules::BlackQueen).pixelColor(5, 5), QColor(Qt::red));
  for (int cell = 0; cell < 32; ++cell) {
    EXPECT_EQ(graphics_.Cell(cell).pixelColor(5, 5), ColourOfCell(cell)) << cell;
  }
}

struct BrokenFile {
  const char* name;
  const char* file;
  QByteArray content;
};

TEST_F(ChessGraphicsTest, ABrokenPictureIsNamedAndTheOldSetStays) {
  const QByteArray picture = "\x89PNG\r\n\x1a\n and nothing more";
  const BrokenFile rows[] = {{"an empty icon", "WhiteRook.ico", ""},
                             {"text for an icon", "BlackPawn.ico", "not a picture"},
                             {"an empty board", "Plain.jpg", ""},
                             {"a board cut off", "Plain.jpg", picture}};
  ASSERT_TRUE(Load());
  for (const BrokenFile& row : rows) {
    SCOPED_TRACE(row.name);
    QFile::copy(QString::fromStdString(PathOf(row.file)), folder_.filePath(QStringLiteral("kept")));
    Spoil(row.file, row.content);
    EXPECT_FALSE(Load());
    const platform::Message& message = desktop_.boxes.messages.back();
    EXPECT_EQ(message.icon, 2);
    EXPECT_EQ(message.title, "Graphics error.");
    EXPECT_EQ(message.text, "Tarvolenix ecountered an error loading the graphics file " +
                                PathOf(row.file) +
                                ".\n\nPlease select a valid chess set before attempting to open "
                                "the chess board.");
    EXPECT_EQ(desktop_.sounds.played.back(), "/program/Data/Cs005.tvs");
    EXPECT_EQ(graphics_.Cell(31).pixelColor(5, 5), ColourOfCell(31));
    QFile::remove(QString::fromStdString(PathOf(row.file)));
    QFile::rename(folder_.filePath(QStringLiteral("kept")),
                  QString::fromStdString(PathOf(row.file)));
  }
  QFile::remove(QString::fromStdString(PathOf("WhiteKing.ico")));
  EXPECT_FALSE(Load()) << "an icon is missing";
}

struct SheetCase {
  const char* name;
  int width, height;
  bool loads;
};

TEST_F(ChessGraphicsTest, ASheetOfAnySizeGivesCellsOrIsRefused) {
  const SheetCase rows[] = {{"one pixel a cell", 8, 4, true},
                            {"too narrow for eight columns", 7, 4, false},
                            {"too low for four rows", 8, 3, false},
                            {"a rest at the edges is left over", 87, 45, true},
                            {"cells that aren't square", 80, 200, true},
                            {"larger than any board needs", 9000, 40, true}};
  for (const SheetCase& row : rows) {
    SCOPED_TRACE(row.name);
    QImage sheet(row.width, row.height, QImage::Format_RGB32);
    sheet.fill(Qt::green);
    Save(sheet, "Plain.jpg", "PNG");
    EXPECT_EQ(Load(), row.loads);
    for (int cell = 0; row.loads && cell < 32; ++cell) {
      EXPECT_EQ(graphics_.Cell(cell).pixelColor(0, 0), QColor(Qt::green)) << cell;
    }
    EXPECT_LE(graphics_.ChessSet.width(), 8 * 512);
  }
}

}  // namespace
}  // namespace ui
