// SPDX-License-Identifier: GPL-3.0-or-later
// What dialogs have in common that are read and then closed.
#pragma once

#include <QDialog>
#include <QPushButton>

namespace ui {

/// So many characters and lines, where the screen has room for them.
void ResizeToText(QDialog& dialog, QSize charactersAndLines);

QPushButton* NewCloseButton(QDialog& dialog);

}  // namespace ui
