// SPDX-License-Identifier: GPL-3.0-or-later
// For the train: every game in which the user is to move, with its board, the last moves and room
// to write.
#pragma once

#include <optional>

#include "platform/printing.h"

namespace print {

/// Nothing where there is no such game, or the games can't be read; the user was told.
std::optional<platform::Document> TravelSheet();

}  // namespace print
