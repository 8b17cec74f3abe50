// SPDX-License-Identifier: GPL-3.0-or-later
// Questions for files and folders, in the look of the program's other windows. A desktop that has a
// dialog of its own for them shows that one, as everywhere else.
#pragma once

#include <QFileDialog>
#include <QStringList>

namespace ui {

/// Modal. Empty where the user cancelled.
QStringList ChooseFiles(QFileDialog& dialog);

}  // namespace ui
