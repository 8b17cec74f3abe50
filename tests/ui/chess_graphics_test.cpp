// SPDX-License-Identifier: GPL-3.0-or-later
#include <QFile>
#include <QTemporaryDir>

#include "ui_fixture.h"

namespace ui {
namespace {

class ChessGraphicsTest : public testing::Test {
 protected:
  ChessGraphicsTest() {
    platform::Process().ProgramFolder = folder_.path().toStdString() + "/";
    SaveChessSet(QString::fromStdString(PathOf("")));
  }

  std::string PathOf(const std::string& name) const {
    return platform::Process().ProgramFolder + "Graphics/Märchen Set/" + name;
  }

  void Save(const QImage& image, const std::string& name, const char* format) const {
    ASSERT_TRUE(image.save(QString::fromStdString(PathOf(name)), format));
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

TEST_F(ChessGraphicsTest, ABrokenPictureIsNamedAndTheOldSetStays) {
  const std::pair<const char*, QByteArray> rows[] = {
      {"WhiteRook.ico", ""},
      {"BlackPawn.ico", "not a picture"},
      {"Plain.jpg", "\x89PNG\r\n\x1a\n and nothing more"}};
  ASSERT_TRUE(Load());
  for (const auto& [name, content] : rows) {
    SCOPED_TRACE(name);
    SaveChessSet(QString::fromStdString(PathOf("")));
    QFile file(QString::fromStdString(PathOf(name)));
    ASSERT_TRUE(file.open(QFile::WriteOnly) && file.write(content) == content.size());
    file.close();
    EXPECT_FALSE(Load());
    const platform::Message& message = desktop_.boxes.messages.back();
    EXPECT_EQ(message.icon, 2);
    EXPECT_EQ(message.title, "Graphics error.");
    EXPECT_EQ(message.text, "Tarvolenix ecountered an error loading the graphics file " +
                                PathOf(name) +
                                ".\n\nPlease select a valid chess set before attempting to open "
                                "the chess board.");
    EXPECT_EQ(desktop_.sounds.played.back(), "/program/Data/Cs005.tvs");
    EXPECT_EQ(graphics_.Cell(31).pixelColor(5, 5), ColourOfCell(31));
  }
}

TEST_F(ChessGraphicsTest, ASheetOfAnySizeGivesCellsOrIsRefused) {
  const std::tuple<const char*, int, int, bool> rows[] = {
      {"one pixel a cell", 8, 4, true},
      {"too narrow for eight columns", 7, 4, false},
      {"too low for four rows", 8, 3, false},
      {"cells that aren't square, with a rest", 87, 205, true},
      {"larger than any board needs", 9000, 40, true},
      {"absurdly large", 20000, 40, false}};
  for (const auto& [name, width, height, loads] : rows) {
    SCOPED_TRACE(name);
    QImage sheet(width, height, QImage::Format_RGB32);
    sheet.fill(Qt::green);
    Save(sheet, "Plain.jpg", "PNG");
    EXPECT_EQ(Load(), loads);
    for (int cell = 0; loads && cell < 32; ++cell) {
      EXPECT_EQ(graphics_.Cell(cell).pixelColor(0, 0), QColor(Qt::green)) << cell;
    }
    EXPECT_LE(graphics_.ChessSet.width(), 8 * 512);
  }
}

}  // namespace
}  // namespace ui
