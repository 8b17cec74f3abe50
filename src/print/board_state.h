// SPDX-License-Identifier: GPL-3.0-or-later
// The one position that the board shows, large.
#pragma once

#include "board/game.h"
#include "platform/printing.h"
#include "print/diagram.h"

namespace print {

/// What the board shows at this moment.
struct ShownBoard {
  explicit ShownBoard(const board::Game& game);

  std::int32_t gameID = -1;  ///< -1: a new game, which isn't stored yet
  std::string caption;       ///< the selected move and its comment
  Diagram diagram;
};

/// Nothing where its game can't be read; the user was told.
std::optional<platform::Document> BoardState(const ShownBoard& shown);

}  // namespace print
