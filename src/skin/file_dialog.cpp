// SPDX-License-Identifier: GPL-3.0-or-later
#include "skin/file_dialog.h"

#include "skin/look.h"

namespace ui {

QStringList ChooseFiles(QFileDialog& dialog) {
  if (!TakeDialogLook(dialog) || dialog.exec() != QDialog::Accepted) return {};
  return dialog.selectedFiles();
}

}  // namespace ui
