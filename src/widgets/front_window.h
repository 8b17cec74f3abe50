// SPDX-License-Identifier: GPL-3.0-or-later
// Bringing a window before the user who looks for it.
#pragma once

class QWidget;

namespace ui {

/// The first showing of a window that stands for itself.
void ShowInTheMiddle(QWidget& window);

/// False for menus, tips, and what the toolkit shows in the tray.
bool IsOfProgram(const QWidget& window);

void BringToFront(QWidget& window);

/// Before all windows, but without the keyboard, which another program's window may have: for what
/// comes by itself.
void ShowInPassing(QWidget& window);

/// The dialog that waits for an answer, else the window that was used last.
void BringActiveWindowToFront();

}  // namespace ui
