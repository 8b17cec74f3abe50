// SPDX-License-Identifier: GPL-3.0-or-later
// The key F1 of a dialog.
#pragma once

#include <QDialog>
#include <QShortcut>

#include "platform/seams.h"

namespace ui {

/// From now on F1 opens the help at the dialog's place in it, and the help goes with the dialog.
inline void GiveHelpKey(QDialog& dialog, platform::HelpContext context) {
  auto* key = new QShortcut(QKeySequence(Qt::Key_F1), &dialog);
  QObject::connect(key, &QShortcut::activated, &dialog,
                   [context] { platform::TheSeams().help->ShowHelp(context); });
  QObject::connect(&dialog, &QDialog::finished, &dialog,
                   [] { platform::TheSeams().help->CloseHelp(); });
}

}  // namespace ui
