// SPDX-License-Identifier: GPL-3.0-or-later
// What shows the icons of programs, be it over the session bus (the interface
// org.kde.StatusNotifierWatcher) or in a window of its own on the X server.
#pragma once

namespace desktop {

/// Whether there is one just now, as it may come and go. One on the bus that doesn't answer in time
/// is none.
bool TrayHostIsThere();

}  // namespace desktop
