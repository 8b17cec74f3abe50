// SPDX-License-Identifier: GPL-3.0-or-later
// A position as a small picture that travels with a mail.
#pragma once

#include <optional>
#include <string>

#include "boards/small_board.h"

namespace pages {

class BoardPictures {
 public:
  static constexpr int cell = 50;  ///< pixels
  static constexpr int edge = 8 * cell;

  /// PNG, about ten kilobytes. The chess set is read with the first one. Raises std::exception
  /// where it can't be.
  std::string PictureOf(const boards::ShownPosition& shown);

 private:
  std::optional<boards::ChessGraphics> graphics_;
};

}  // namespace pages
