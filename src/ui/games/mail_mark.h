// SPDX-License-Identifier: GPL-3.0-or-later
// The mark at the lower right of a game's status picture where its last mail waits or failed.
#pragma once

#include <QIcon>

#include "shell/mail_watch.h"

namespace ui {

/// The picture with a clock for what waits and a red sign for what failed; as it is for what is on
/// its way.
QIcon WithMailMark(const QIcon& picture, shell::GameMail::Kind kind);

}  // namespace ui
