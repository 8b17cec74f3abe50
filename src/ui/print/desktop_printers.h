// SPDX-License-Identifier: GPL-3.0-or-later
// The desktop's printers, and the PDF file that stands in for one. What the user chose stays chosen
// until the program ends.
#pragma once

#include <QPrinter>

#include <memory>

#include "platform/printing.h"

class QWidget;

namespace ui {

class DesktopPrinters : public platform::Printers {
 public:
  std::optional<platform::PrintChoice> SelectPrinter(
      const platform::PrintQuestion& question) override;
  platform::PrintOutcome Send(const platform::Document& document) override;

  /// The printer that the user chose, else the desktop's usual one.
  QString CurrentName();

  /// Lets the user choose in the desktop's own dialog. False where he cancelled.
  bool Choose(QWidget& owner);

  /// The printer of that name is in force from now on; where none has it, the last one stays. False
  /// where the print would go into a file and the user named none.
  bool Take(const QString& name, QWidget& owner);

  /// Shows what would be printed. True where the user printed it from there.
  bool Preview(const platform::Document& document, QWidget& owner);

 private:
  QPrinter& InForce();
  bool AskForFile(QWidget& owner);

  std::unique_ptr<QPrinter> printer_;  // looked for when it is needed
  bool isChosen_ = false;
  QString pdfPath_;  // for the next print
};

}  // namespace ui
