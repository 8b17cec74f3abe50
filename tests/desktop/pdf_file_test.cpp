// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/pdf_file.h"

#include <QFile>
#include <QGuiApplication>
#include <QPdfWriter>
#include <QTemporaryDir>
#include <gtest/gtest.h>

#include "desktop/painted_pages.h"
#include "fakes/fake_desktop.h"

namespace desktop {
namespace {

using namespace Qt::StringLiterals;

platform::PrintedLine Line(const std::string& text, const std::string& font = "Arial") {
  platform::PrintedLine line(1);
  line[0].font.FontName = font;
  line[0].font.FontSize = 20;
  line[0].text = text;
  return line;
}

class PdfFileTest : public testing::Test {
 protected:
  static platform::Document Lines(int count) {
    return {.title = "Lines", .hasDiagrams = false, .write = [count](platform::Printer& printer) {
              for (int n = 0; n < count; ++n) printer.Print(Line("A line"));
              printer.EndDoc();
            }};
  }

  QString Old(const char* name) {
    QFile file(folder_.filePath(QString::fromUtf8(name)));
    EXPECT_TRUE(file.open(QFile::WriteOnly) && file.write("old") == 3);
    return file.fileName();
  }

  static QByteArray ContentOf(const QString& path) {
    QFile file(path);
    return file.open(QFile::ReadOnly) ? file.readAll() : QByteArray();
  }

  int argumentCount_ = 1;
  char name_[5] = "test";
  char* arguments_[2] = {name_, nullptr};
  QGuiApplication application_{argumentCount_, arguments_};
  fakes::FakeDesktop desktop_;
  QTemporaryDir folder_;
};

TEST_F(PdfFileTest, WhatFailsLeavesTheOldFile) {
  auto boards = Lines(1);
  boards.hasDiagrams = true;
  const auto [outcome, pages] = WritePdf(boards, Old("boards.pdf"));
  EXPECT_NE(outcome.why.find("\"Chess Utrecht\" isn't installed"), std::string::npos);
  EXPECT_EQ(ContentOf(folder_.filePath(u"boards.pdf"_s)), "old");
  EXPECT_NE(WritePdf(Lines(1), folder_.filePath(u"none/x.pdf"_s)).outcome.why, "");

  const QString path = Old("lines.pdf");
  EXPECT_TRUE(WritePdf(Lines(1), path).outcome.isDone);
  EXPECT_TRUE(ContentOf(path).startsWith("%PDF"));
}

TEST_F(PdfFileTest, WhatHasNoRoomGoesOnBelowAndOnTheNextPage) {
  EXPECT_EQ(WritePdf(Lines(25), folder_.filePath(u"1.pdf"_s)).pages, 1);
  EXPECT_GT(WritePdf(Lines(100), folder_.filePath(u"2.pdf"_s)).pages, 1);
  auto wide = Lines(1);
  wide.write = [](platform::Printer& printer) {
    std::string text;
    for (int n = 0; n < 2000; ++n) text += "word ";
    printer.Print(Line(text));
    printer.EndDoc();
  };
  EXPECT_GT(WritePdf(wide, folder_.filePath(u"3.pdf"_s)).pages, 1);
}

TEST_F(PdfFileTest, LinesOfADiagramAreAsHighAsItsLetters) {
  QPdfWriter writer(folder_.filePath(u"x.pdf"_s));
  writer.setPageLayout(
      LayoutFor(platform::Paper::Postcard));  // 257.5 points high within its margins
  PaintedPages pages(writer, u"Arial"_s);
  pages.Print(Line("5111111116", platform::diagramFont));
  const platform::PrintedLine line = Line("3 / / / /2", platform::diagramFont);
  EXPECT_TRUE(pages.HasRoomFor(std::vector(11, line)));
  EXPECT_FALSE(pages.HasRoomFor(std::vector(12, line)));
  EXPECT_EQ(pages.FittingSize(line), 20);
  EXPECT_LT(pages.FittingSize(Line(std::string(200, '1'), platform::diagramFont)), 10);
}

}  // namespace
}  // namespace desktop
