// SPDX-License-Identifier: GPL-3.0-or-later
// The dialog before something is printed: on which printer, and how much on a page.
#pragma once

#include <QDialog>

#include "platform/printing.h"

class QAbstractButton;
class QLabel;
class QScrollBar;

namespace ui {

class DesktopPrinters;

class SelectPrinter : public QDialog {
  Q_OBJECT

 public:
  SelectPrinter(DesktopPrinters& printers, const platform::PrintQuestion& question,
                QWidget* parent = nullptr);

  /// False where the window's skin failed.
  bool IsOpen() const { return hasSkin_; }

  platform::PrintChoice Choice() const;

  bool FormCanceled = true;  ///< nothing is left to print

 protected:
  void keyPressEvent(QKeyEvent* event) override;

 private:
  /// A number that is shown in a label and changed by the scroll bar beside it.
  struct Number {
    QLabel* caption;
    QLabel* label;
    QScrollBar* spin;
  };

  Number NewNumber(const QString& prefix, const QString& caption, int value, int most);
  QLabel* NewLabel(const QString& name, const QString& text);
  void AddButtons();
  void SetSimpleUI();
  void SetToolTips();
  void FixNumbers();
  void ShowCurrentPrinter();
  void Print();
  void Preview();
  void ChoosePrinter();

  DesktopPrinters& printers_;
  const platform::PrintQuestion& question_;
  bool hasSkin_ = false;
  QString printerName_;
  QLabel* Label3_;
  QLabel* CurrentPrinter_;
  Number columns_;
  Number rows_;
  QLabel* RowColInstructions_;
  QAbstractButton* select_;
  QAbstractButton* preview_;
  QAbstractButton* cancel_;
  QAbstractButton* print_;
};

}  // namespace ui
