// SPDX-License-Identifier: GPL-3.0-or-later
// A form whose rows come and go without moving the fields sideways. (The toolkit's own form layout
// writes beyond its memory when a row with wrapped text is hidden.)
#pragma once

#include <QGridLayout>

#include <initializer_list>
#include <vector>

namespace ui {

class FormRows : public QGridLayout {
  Q_OBJECT

 public:
  FormRows();

  /// A row's number, for ShowRow. The first of the fields takes what room there is, and the label's
  /// shortcut leads to it.
  int AddRow(const QString& label, std::initializer_list<QWidget*> fields);

  void ShowRow(int row, bool shown);

 private:
  std::vector<std::vector<QWidget*>> rows_;
};

}  // namespace ui
