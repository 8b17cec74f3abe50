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

platform::Document Lines(int count, const std::string& text, bool hasDiagrams = false) {
  return {.title = {}, .hasDiagrams = hasDiagrams, .write = [=](platform::Printer& printer) {
            for (int n = 0; n < count; ++n) printer.Print(Line(text));
            printer.EndDoc();
          }};
}

struct PdfFileTest : testing::Test {
  int argumentCount = 1;
  char name[5] = "test";
  char* arguments[2] = {name, nullptr};
  QGuiApplication application{argumentCount, arguments};
  fakes::FakeDesktop desktop;
  QTemporaryDir folder;
  QString path = folder.filePath(u"x.pdf"_s);

  QByteArray FirstBytes() const {
    QFile file(path);
    return file.open(QFile::ReadOnly) ? file.read(4) : QByteArray();
  }
};

TEST_F(PdfFileTest, WhatFailsLeavesTheOldFile) {
  EXPECT_TRUE(WritePdf(Lines(1, "a line"), path).outcome.isDone);
  EXPECT_EQ(FirstBytes(), "%PDF");
  const auto outcome = WritePdf(Lines(1, "a line", true), path).outcome;
  EXPECT_NE(outcome.why.find("\"Chess Utrecht\" isn't installed"), std::string::npos);
  EXPECT_EQ(FirstBytes(), "%PDF");
  EXPECT_NE(WritePdf(Lines(1, "a line"), folder.filePath(u"none/x.pdf"_s)).outcome.why, "");
}

TEST_F(PdfFileTest, WhatHasNoRoomGoesOnBelowAndOnTheNextPage) {
  EXPECT_EQ(WritePdf(Lines(25, "a line"), path).pages, 1);
  EXPECT_GT(WritePdf(Lines(100, "a line"), path).pages, 1);
  EXPECT_GT(WritePdf(Lines(1, std::string(5000, 'W')), path).pages, 1);
}

TEST_F(PdfFileTest, LinesOfADiagramAreAsHighAsItsLetters) {
  QPdfWriter writer(path);
  writer.setPageLayout(LayoutFor(platform::Paper::Postcard));  // room for 257 points
  PaintedPages pages(writer, u"Arial"_s);
  const platform::PrintedLine line = Line("3 / / / /2", platform::diagramFont);
  pages.Print(line);
  EXPECT_TRUE(pages.HasRoomFor(std::vector(11, line)));
  EXPECT_FALSE(pages.HasRoomFor(std::vector(12, line)));
  EXPECT_EQ(pages.FittingSize(line), 20);
  EXPECT_LT(pages.FittingSize(Line(std::string(200, '1'), platform::diagramFont)), 10);
}

}  // namespace
}  // namespace desktop
