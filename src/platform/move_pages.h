// SPDX-License-Identifier: GPL-3.0-or-later
// The seam to the page that shows a move to a person who opens its mail with a mail client. The
// programs read the text beside it and need no page; the class itself is that of a program that
// makes none.
#pragma once

#include <cstdint>
#include <string>

namespace platform {

struct MovePage {
  std::string html;     ///< needs nothing that isn't in the mail; blank where there is no page
  std::string picture;  ///< the board on it, as PNG; blank where there is none

  bool operator==(const MovePage&) const = default;
};

class MovePages {
 public:
  virtual ~MovePages() = default;

  /// The page of a stored game's last move. What can't be shown is left out, be it the whole page.
  virtual MovePage PageOf(std::int32_t /*gameID*/) { return {}; }

  /// The last move in plain words; blank where it moves no piece, or can't be told.
  virtual std::string WordsOf(std::int32_t /*gameID*/) { return {}; }
};

inline MovePages noMovePages;

}  // namespace platform
