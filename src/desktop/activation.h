// SPDX-License-Identifier: GPL-3.0-or-later
// Wayland lets a window come to front only for a token that the desktop gives for what the user has
// just done: a click on a notice, or another start of the program.
#pragma once

#include <QByteArray>

namespace desktop {

/// That of this start; blank where there is none.
QByteArray OwnActivation();

/// For the next window that asks for it. Without a token nothing changes.
void LetNextWindowComeToFront(const QByteArray& token);

}  // namespace desktop
