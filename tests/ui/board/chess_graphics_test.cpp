// SPDX-License-Identifier: GPL-3.0-or-later
#include <QFile>
#include <QTemporaryDir>

#include <optional>

#include "ui/ui_fixture.h"

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

  /// What the user was told: the file that is named, or "a general error", or nothing.
  std::string Told() {
    if (desktop_.boxes.messages.empty()) return {};
    const platform::Message message = desktop_.boxes.messages.back();
    desktop_.boxes.messages.clear();
    EXPECT_EQ(message.icon, 2);
    EXPECT_EQ(message.title, "Graphics error.");
    EXPECT_EQ(message.okCaption, "OK");
    EXPECT_EQ(desktop_.sounds.played.back(), "/program/Data/Cs005.tvs");
    const std::string general =
        "Tarvolenix ecountered a general error loading the graphics" + advice;
    if (message.text == general) return "a general error";
    const std::string before = "Tarvolenix ecountered an error loading the graphics file ";
    EXPECT_TRUE(message.text.starts_with(before) && message.text.ends_with(advice)) << message.text;
    return message.text.substr(before.size(), message.text.size() - before.size() - advice.size());
  }

  bool Load() { return boards::LoadChessGraphics("Märchen Set", "Plain", graphics_); }

  const std::string advice =
      ".\n\nPlease select a valid chess set before attempting to open the chess board.";
  fakes::FakeDesktop desktop_;
  QTemporaryDir folder_;
  boards::ChessGraphics graphics_;
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
  const std::tuple<const char*, const char*, std::optional<QByteArray>> rows[] = {
      {"a piece's picture is deleted", "BlackPawn.ico", {}},
      {"the board's picture is deleted", "Plain.jpg", {}},
      {"an empty file", "WhiteRook.ico", ""},
      {"no picture", "BlackPawn.ico", "not a picture"}};
  ASSERT_TRUE(Load());
  for (const auto& [name, fileName, content] : rows) {
    SCOPED_TRACE(name);
    SaveChessSet(QString::fromStdString(PathOf("")));
    QFile file(QString::fromStdString(PathOf(fileName)));
    if (content) {
      ASSERT_TRUE(file.open(QFile::WriteOnly) && file.write(*content) == content->size());
      file.close();
    } else {
      ASSERT_TRUE(file.remove());
    }
    EXPECT_FALSE(Load());
    EXPECT_EQ(Told(), PathOf(fileName));
    EXPECT_EQ(graphics_.Cell(31).pixelColor(5, 5), ColourOfCell(31));
  }
}

TEST_F(ChessGraphicsTest, ASheetOfAnySizeGivesCellsOrIsRefused) {
  const std::string path = PathOf("Plain.jpg"), general = "a general error";
  const std::tuple<const char*, int, int, std::string> rows[] = {
      {"one pixel a cell", 8, 4, ""},
      {"too narrow for eight columns", 7, 4, general},
      {"too low for four rows", 8, 3, general},
      {"larger than any board needs", 9000, 40, ""},
      {"absurdly large", 20000, 40, path}};
  for (const auto& [name, width, height, told] : rows) {
    SCOPED_TRACE(name);
    QImage sheet(width, height, QImage::Format_RGB32);
    sheet.fill(Qt::green);
    Save(sheet, "Plain.jpg", "PNG");
    const bool loads = told.empty();
    EXPECT_EQ(Load(), loads);
    EXPECT_EQ(Told(), told);
    for (int cell = 0; loads && cell < 32; ++cell) {
      EXPECT_EQ(graphics_.Cell(cell).pixelColor(0, 0), QColor(Qt::green)) << cell;
    }
    EXPECT_LE(graphics_.ChessSet.width(), 8 * 512);
  }
}

}  // namespace
}  // namespace ui
