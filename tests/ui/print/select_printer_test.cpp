// SPDX-License-Identifier: GPL-3.0-or-later
// The printer dialog on a desktop without a printer.
#include "ui/print/select_printer.h"

#include <QFile>
#include <QFileDialog>
#include <QPrinterInfo>
#include <QScrollBar>

#include "ui/print/desktop_printers.h"
#include "ui/skin_fixture.h"

namespace ui {
namespace {

class SelectPrinterTest : public SkinTest {
 protected:
  void SetUp() override {
    if (!QPrinterInfo::availablePrinterNames().isEmpty()) GTEST_SKIP() << "there is a printer";
  }

  static platform::PrintQuestion Question(bool numbersAreFixed) {
    platform::PrintQuestion question;
    question.numbersAreFixed = numbersAreFixed;
    question.document = [](int columns, int rows) {
      const std::string text = std::to_string(columns) + " by " + std::to_string(rows);
      return platform::Document{
          .title = text, .hasDiagrams = false, .write = [text](platform::Printer& printer) {
            const platform::PrinterFont font{"Arial"};
            printer.Print({{font, text}});
            printer.EndDoc();
          }};
    };
    return question;
  }

  DesktopPrinters printers_;
};

TEST_F(SelectPrinterTest, TheNumbersFollowTheirBarsInBothLooks) {
  for (const bool simple : {false, true}) {
    platform::Settings().SimpleUI = simple;
    for (const bool isFixed : {false, true}) {
      const auto question = Question(isFixed);
      SelectPrinter form(printers_, question);
      BringUp(form);
      EXPECT_EQ(Find<QLabel>(form, "CurrentPrinter").text(), u"No printer selected"_s);
      EXPECT_EQ(Find<QScrollBar>(form, "ColSpin").isVisible(), !isFixed);
      QTest::keyClick(&Find(form, "ColSpin"), Qt::Key_Up);
      Find<QScrollBar>(form, "RowSpin").setValue(99);
      EXPECT_EQ(Find<QLabel>(form, "fTVCols").text(), u"5"_s) << "up is more";
      EXPECT_EQ(form.Choice().rows, 20);
      QTest::keyClick(&form, Qt::Key_F1);
      EXPECT_EQ(desktop_.log.back(), isFixed ? "help 13" : "help 12");
      QTest::keyClick(&form, Qt::Key_Escape);
      EXPECT_TRUE(form.FormCanceled && !form.isVisible());
    }
  }
}

TEST_F(SelectPrinterTest, WithoutAPrinterItAsksForAFile) {
  QTemporaryDir folder;
  const QString path = folder.filePath(u"game.pdf"_s);
  const auto question = Question(false);
  SelectPrinter form(printers_, question);
  BringUp(form);
  OnNextDialog([](QWidget& dialog) { dialog.close(); });
  Press(form, "PrintButton");
  EXPECT_TRUE(form.isVisible()) << "no file was named";
  OnNextDialog([&](QWidget& dialog) {
    static_cast<QFileDialog&>(dialog).selectFile(path);
    static_cast<QFileDialog&>(dialog).QDialog::accept();
  });
  Press(form, "PrintButton");
  EXPECT_FALSE(form.FormCanceled);
  EXPECT_TRUE(printers_.Send(*question.document(1, 1)).isDone);
  EXPECT_TRUE(QFile::exists(path));
}

}  // namespace
}  // namespace ui
