// SPDX-License-Identifier: GPL-3.0-or-later
#include "widgets/reading_dialog.h"

#include <QScreen>

#include "widgets/dialog_button.h"

namespace ui {

void ResizeToText(QDialog& dialog, QSize charactersAndLines) {
  const QFontMetrics font = dialog.fontMetrics();
  const QSize size(charactersAndLines.width() * font.averageCharWidth(),
                   charactersAndLines.height() * font.lineSpacing());
  dialog.resize(size.boundedTo(dialog.screen()->availableSize() * 0.85));
}

QPushButton* NewCloseButton(QDialog& dialog) {
  auto* close = NewDialogButton(QStringLiteral("CloseButton"), QStringLiteral("Close"));
  QObject::connect(close, &QPushButton::clicked, &dialog, &QDialog::accept);
  return close;
}

}  // namespace ui
