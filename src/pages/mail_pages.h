// SPDX-License-Identifier: GPL-3.0-or-later
// The pages of moves, made from what is stored.
#pragma once

#include "pages/board_picture.h"
#include "platform/move_pages.h"

namespace pages {

class MailPages : public platform::MovePages {
 public:
  /// Without a picture where the chess set can't be read. Raises std::exception where the game
  /// can't be.
  platform::MovePage PageOf(std::int32_t gameID) override;
  std::string WordsOf(std::int32_t gameID) override;

 private:
  BoardPictures pictures_;
};

}  // namespace pages
