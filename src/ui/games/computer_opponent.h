// SPDX-License-Identifier: GPL-3.0-or-later
// What there is to say about a computer opponent before the game: how deep it looks, in which style
// it plays, and whether the user sets the pieces up first.
#pragma once

#include <QObject>

class QCheckBox;
class QComboBox;
class QGridLayout;

namespace ui {

class ComputerOpponent : public QObject {
  Q_OBJECT

 public:
  /// Begins with what counts now, and sets no pieces up first where the user didn't want that the
  /// last time. The controls are the dialog's.
  explicit ComputerOpponent(QWidget* dialog);

  /// Lays the controls out, from `row` on; answers the row behind them.
  int AddRows(QGridLayout& layout, int row) const;

  /// From now on the computer plays so. False where the style can't be read; the user was told, and
  /// all is as it was.
  bool Apply() const;

 private:
  QComboBox* depth_;
  QComboBox* style_;
  QCheckBox* setUp_;
};

}  // namespace ui
