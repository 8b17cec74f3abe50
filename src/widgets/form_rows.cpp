// SPDX-License-Identifier: GPL-3.0-or-later
#include "widgets/form_rows.h"

#include <QHBoxLayout>
#include <QLabel>

#include <algorithm>

namespace ui {

FormRows::FormRows() {
  setVerticalSpacing(8);
  setHorizontalSpacing(16);
  setColumnStretch(1, 1);
}

int FormRows::AddRow(const QString& label, std::initializer_list<QWidget*> fields) {
  const int row = static_cast<int>(rows_.size());
  auto* caption = new QLabel(label);
  caption->setBuddy(*fields.begin());
  addWidget(caption, row, 0);
  setColumnMinimumWidth(0, std::max(columnMinimumWidth(0), caption->sizeHint().width()));
  auto* line = new QHBoxLayout;
  line->setSpacing(8);
  for (QWidget* field : fields) {
    if (!qobject_cast<QLabel*>(field)) field->setMinimumHeight(28);
    const bool fixed = field->sizePolicy().horizontalPolicy() == QSizePolicy::Fixed;
    line->addWidget(field, field == *fields.begin() ? 1 : 0,
                    fixed ? Qt::AlignLeft : Qt::Alignment());
  }
  addLayout(line, row, 1);
  rows_.emplace_back(fields).push_back(caption);
  return row;
}

void FormRows::ShowRow(int row, bool shown) {
  for (QWidget* widget : rows_.at(static_cast<std::size_t>(row))) widget->setVisible(shown);
}

}  // namespace ui
