// SPDX-License-Identifier: GPL-3.0-or-later
// Putting the chosen skin on the program's windows. A skin that lacks a file of a window, or has
// one that can't be read or is too small for its purpose, is the end of the program: it is told in
// the desktop's plain box, and the settings stay as they were at the start.
#pragma once

#include <QWidget>

#include <string>

namespace ui {

/// Loads what the window's row of the skin table names and gives it to the window, the hidden
/// window's strip to the buttons of all. True for the splash window, which has no skin. False where
/// the skin failed.
bool ApplySkin(QWidget& window);

/// The same for the hidden window, whose strip the buttons of all others show, and for all menus;
/// the program needs it in both looks, before its first window.
bool ApplySkinToSystemTray();

/// Chooses another skin and puts it on all open windows, in their order. The first failure stops
/// that; the window that failed closes.
bool ChangeSkin(const std::string& name);

}  // namespace ui
