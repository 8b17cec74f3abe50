// SPDX-License-Identifier: GPL-3.0-or-later
// From the first look at the screen to the idle program. The process's flags are set and the seams
// installed when this begins.
#pragma once

namespace shell {

/// The whole start. True when the program is to go on: it idles then, or its splash window is still
/// up and hands over. False where it must end; the user was told why, and nothing is saved.
bool StartUp();

/// The last part of the start: game list, tray icon, polling, and what waits to be told. The splash
/// window calls it when it has closed; without a splash StartUp does.
void HandOver();

/// Falls back to the plain look, with a word, where the skinned one can't show on this screen.
void CheckDisplaySettings();

/// Warns of a screen of few colours, once until the screen had more of them.
void CheckColourDepth();

/// Tells a new user, once, what older versions don't understand.
void CheckFirstRun();

/// The desktop has no tray: the game list takes over what the tray shows, for this run, so that the
/// program can be seen. The user is told once until a tray was there again.
void LiveWithoutTray();

/// The tray that was missing is there: the program moves in as if it had been from the start.
void TrayHasCome();

}  // namespace shell
