// SPDX-License-Identifier: GPL-3.0-or-later
// The ways out of the program. All of them lead through CloseSystemTray, the close handler of the
// hidden window that lives as long as the program does; what is called behind it does nothing.
#pragma once

#include <string>

namespace shell {

/// Backs up the games and stops: the user's Exit, and the end of his session.
void ExitProgram();

/// The same with the game list closed first.
void ExitFromGameList();

/// The orderly stop, or behind a failed start only the end of the help. Lets the event loop end.
void CloseSystemTray();

/// The last step of every stop: saves the settings where asked, and closes all windows.
void ShutdownProgram(bool save);

/// Ends the program at once, whose windows can't be shown without the file. Nothing is saved.
void QuitForLackOf(const std::string& skinFile);

/// Gives up a start: nothing is saved, nobody is logged off.
void AbortStart();

}  // namespace shell
