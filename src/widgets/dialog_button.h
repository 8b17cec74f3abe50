// SPDX-License-Identifier: GPL-3.0-or-later
// The buttons of the dialogs that lay themselves out, in either look.
#pragma once

#include <QPushButton>

namespace ui {

/// The dialog itself says which one is the default; Tab makes none of them so.
inline QPushButton* NewDialogButton(const QString& name, const QString& caption,
                                    int narrowest = 96) {
  auto* button = new QPushButton(caption);
  button->setObjectName(name);
  button->setMinimumSize(narrowest, 28);
  button->setAutoDefault(false);
  return button;
}

}  // namespace ui
