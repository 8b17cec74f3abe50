// SPDX-License-Identifier: GPL-3.0-or-later
// Stored games as small pictures of where they stand. The chess set is read and the pictures are
// drawn on a thread of their own, so that nobody waits for them; what was drawn is kept.
#pragma once

#include <QCache>
#include <QObject>
#include <QPixmap>
#include <QThreadPool>

#include <cstdint>
#include <functional>
#include <memory>

#include "store/game_record.h"

namespace boards {
struct ChessGraphics;
}

namespace ui {

class SmallBoards : public QObject {
 public:
  explicit SmallBoards(QObject* parent = nullptr);

  struct Wanted {
    store::GameRecord game;
    std::int32_t moves = 0;  ///< how many it has: a picture is kept for as long as that stands
    int edge = 0;            ///< logical pixels
    qreal pixelRatio = 1;
  };

  /// Hands the picture to `ready`, from the user's side and with the last move marked: at once
  /// where it is kept, else later. Never where the game or the chess set can't be read.
  void Draw(const Wanted& wanted, const std::function<void(const QPixmap&)>& ready);

 private:
  struct ChosenSet;

  QCache<QString, QPixmap> kept_;
  std::shared_ptr<ChosenSet> set_;
  QThreadPool thread_;
};

}  // namespace ui
