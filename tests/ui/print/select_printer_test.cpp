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
    ASSERT_TRUE(QPrinterInfo::availablePrinterNames().isEmpty()) << "of this machine's own";
  }

  DesktopPrinters printers_;
  platform::PrintQuestion question_;
};

TEST_F(SelectPrinterTest, TheNumbersFollowTheirBarsInBothLooks) {
  for (const bool simple : {false, true}) {
    platform::Settings().SimpleUI = simple;
    for (const bool isFixed : {false, true}) {
      question_.numbersAreFixed = isFixed;
      SelectPrinter form(printers_, question_);
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
  SelectPrinter form(printers_, question_);
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
  const auto write = [](platform::Printer& printer) { printer.EndDoc(); };
  EXPECT_TRUE(printers_.Send({.title = {}, .hasDiagrams = false, .write = write}).isDone);
  EXPECT_TRUE(QFile::exists(path));
}

}  // namespace
}  // namespace ui
