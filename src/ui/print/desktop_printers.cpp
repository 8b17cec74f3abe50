// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/print/desktop_printers.h"

#include <QApplication>
#include <QDialogButtonBox>
#include <QPrintDialog>
#include <QPrintPreviewDialog>
#include <QPrinterInfo>
#include <QPushButton>
#include <QScreen>
#include <QToolBar>

#include "desktop/diagram_font.h"
#include "desktop/painted_pages.h"
#include "desktop/pdf_file.h"
#include "platform/messages.h"
#include "skin/file_dialog.h"
#include "skin/look.h"
#include "ui/print/select_printer.h"
#include "widgets/pointers.h"

namespace ui {

using namespace Qt::StringLiterals;

namespace {

const QString pdfFile = u"PDF file"_s;
const QString noPrinter = u"No printer selected"_s;

bool PrintsIntoFile(const QPrinter& printer) {
  return printer.outputFormat() == QPrinter::PdfFormat || printer.printerName().isEmpty();
}

bool HasVanished(const QPrinter& printer) {
  return !PrintsIntoFile(printer) && QPrinterInfo::printerInfo(printer.printerName()).isNull();
}

/// Paints a document on a printer, whose own paper it is unless the document wants another.
bool Paint(const platform::Document& document, QPrinter& printer) {
  const QPageLayout usual = printer.pageLayout();
  printer.setPageLayout(desktop::LayoutFor(document.paper, usual));
  bool isWell = false;
  {
    desktop::PaintedPages pages(printer, desktop::DiagramFamily());
    if (pages.IsWell()) document.write(pages);
    isWell = pages.IsWell() && printer.printerState() != QPrinter::Error;
  }
  printer.setPageLayout(usual);
  return isWell;
}

bool LacksFont(const platform::Document& document) {
  return document.hasDiagrams && desktop::DiagramFamily().isEmpty();
}

}  // namespace

std::optional<platform::PrintChoice> DesktopPrinters::SelectPrinter(
    const platform::PrintQuestion& question) {
  const OtherPointer arrow(Qt::ArrowCursor);
  ui::SelectPrinter form(*this, question, QApplication::activeWindow());
  if (!form.IsOpen()) return std::nullopt;
  form.exec();
  if (form.FormCanceled) return std::nullopt;
  return form.Choice();
}

platform::PrintOutcome DesktopPrinters::Send(const platform::Document& document) {
  if (LacksFont(document)) return {false, desktop::DiagramFontMissing()};
  if (PrintsIntoFile(InForce())) {
    return desktop::WritePdf(document, std::exchange(pdfPath_, {})).outcome;
  }
  if (HasVanished(*printer_)) return {false, {}};
  printer_->setDocName(QString::fromStdString(document.title));
  return {Paint(document, *printer_), {}};
}

QString DesktopPrinters::CurrentName() {
  if (printer_ && HasVanished(*printer_)) {
    printer_.reset();
    isChosen_ = false;
  }
  if (isChosen_) return PrintsIntoFile(InForce()) ? pdfFile : InForce().printerName();
  const QString usual = QPrinterInfo::defaultPrinterName();
  return usual.isEmpty() ? noPrinter : usual;
}

QPrinter& DesktopPrinters::InForce() {
  if (!printer_) {
    printer_ = std::make_unique<QPrinter>(QPrinter::HighResolution);
    printer_->setCreator(u"Tarvolenix"_s);
  }
  return *printer_;
}

bool DesktopPrinters::Choose(QWidget& owner) {
  QPrintDialog dialog(&InForce(), &owner);
  dialog.setOptions(QAbstractPrintDialog::PrintToFile | QAbstractPrintDialog::PrintShowPageSize |
                    QAbstractPrintDialog::PrintCollateCopies);
  dialog.setObjectName(u"CommonDialogCtrl"_s);
  dialog.setWindowTitle(u"Printer settings"_s);
  // It prints nothing yet.
  if (auto* buttons = dialog.findChild<QDialogButtonBox*>()) {
    if (QPushButton* ok = buttons->button(QDialogButtonBox::Ok)) ok->setText(u"OK"_s);
  }
  if (!TakeDialogLook(dialog) || dialog.exec() != QDialog::Accepted) return false;
  isChosen_ = true;
  pdfPath_ = PrintsIntoFile(*printer_) ? printer_->outputFileName() : QString();
  return true;
}

bool DesktopPrinters::Take(const QString& name, QWidget& owner) {
  if (name != InForce().printerName() && !QPrinterInfo::printerInfo(name).isNull()) {
    printer_->setPrinterName(name);
  }
  return !PrintsIntoFile(*printer_) || !pdfPath_.isEmpty() || AskForFile(owner);
}

bool DesktopPrinters::AskForFile(QWidget& owner) {
  QFileDialog dialog(&owner, u"Print into a PDF file"_s, QDir::homePath(), u"PDF files (*.pdf)"_s);
  dialog.setAcceptMode(QFileDialog::AcceptSave);
  dialog.setDefaultSuffix(u"pdf"_s);
  dialog.selectFile(u"Tarvolenix.pdf"_s);
  const QStringList chosen = ChooseFiles(dialog);
  if (!chosen.isEmpty()) pdfPath_ = chosen.first();
  return !chosen.isEmpty();
}

bool DesktopPrinters::Preview(const platform::Document& document, QWidget& owner) {
  if (LacksFont(document)) {
    platform::ShowMessage(platform::ErrorIcon, "Printing error", desktop::DiagramFontMissing(),
                          "OK");
    return false;
  }
  QPrinter shown(QPrinter::HighResolution);
  if (!PrintsIntoFile(InForce())) shown.setPrinterName(printer_->printerName());
  shown.setPageLayout(desktop::LayoutFor(document.paper, InForce().pageLayout()));
  shown.setDocName(QString::fromStdString(document.title));
  QPrintPreviewDialog dialog(&shown, &owner);
  dialog.setWindowTitle(u"Print preview"_s);
  dialog.resize(owner.screen()->availableSize() * 3 / 4);
  // A skin has no frame with a button for it.
  if (auto* bar = dialog.findChild<QToolBar*>()) {
    bar->addAction(u"Close"_s, &dialog, &QDialog::reject);
  }
  bool isDone = true;  // what was painted last
  QObject::connect(&dialog, &QPrintPreviewDialog::paintRequested, &dialog,
                   [&document, &isDone](QPrinter* printer) { isDone = Paint(document, *printer); });
  if (!TakeDialogLook(dialog) || dialog.exec() != QDialog::Accepted) return false;
  if (!isDone) {
    platform::ShowMessage(platform::ErrorIcon, "Printing error",
                          "The board could not be printed from the preview.  Please check the "
                          "printer before trying again.",
                          "OK");
  }
  return isDone;
}

}  // namespace ui
