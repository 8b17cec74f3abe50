// SPDX-License-Identifier: GPL-3.0-or-later
// The dialog that tells what is odd about a position of the user's own making. He may play it all
// the same.
#pragma once

#include <QDialog>

class QAbstractButton;
class QLabel;

namespace ui {

class PlainTextView;

class SetupWarningForm : public QDialog {
  Q_OBJECT

 public:
  /// The warnings are lines below a heading for each side, set in by blanks.
  explicit SetupWarningForm(const QString& warnings, QWidget* parent = nullptr);

  /// How the dialog was left: any way out but "OK" cancels.
  bool FormCanceled = true;

 protected:
  void keyPressEvent(QKeyEvent* event) override;

 private:
  void AddButtons();
  void SetSimpleUI();

  QLabel* picture_;
  QLabel* caption_;
  QLabel* instructions_;
  PlainTextView* WarningMessage_;
  QAbstractButton* cancel_ = nullptr;
  QAbstractButton* ok_ = nullptr;
};

}  // namespace ui
