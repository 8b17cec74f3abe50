// SPDX-License-Identifier: GPL-3.0-or-later
// A label of several lines, in which nothing is markup.
#pragma once

#include <QLabel>

namespace ui {

inline QLabel* NewWrappedText(const QString& name, const QString& text = {}) {
  auto* label = new QLabel(text);
  label->setObjectName(name);
  label->setTextFormat(Qt::PlainText);
  label->setWordWrap(true);
  return label;
}

}  // namespace ui
