// SPDX-License-Identifier: GPL-3.0-or-later
// In words: whose turn it is, what the game is called, and when its last mail came.
#pragma once

#include <QRect>

#include "board/game.h"
#include "widgets/plain_text_view.h"

namespace ui {

class TurnTag : public PlainTextView {
  Q_OBJECT

 public:
  explicit TurnTag(QWidget* parent);

  void Show(const board::Game& game);

  /// The same where it has a place, from which it grows upwards as far as `highest`. What has no
  /// room there is cut, the title first; the tip has the whole. The mail stays.
  void ShowAt(const board::Game& game, QRect place, int highest);
};

}  // namespace ui
