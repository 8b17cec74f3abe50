// SPDX-License-Identifier: GPL-3.0-or-later
// Words for tests of windows: a chess set whose cells are told apart by their colour, stored games,
// and dialogs that get their answer.
#pragma once

#include <QApplication>
#include <QColor>
#include <QDir>
#include <QImage>
#include <QLabel>
#include <QTest>
#include <QTimer>
#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <vector>

#include "fakes/fake_desktop.h"
#include "platform/process_state.h"
#include "platform/setting_variables.h"
#include "store/saving.h"
#include "ui/board/chess_graphics.h"

namespace ui {

inline QColor ColourOfCell(int cell) { return {cell * 8, 255 - cell * 8, cell % 2 * 255}; }

inline ChessGraphics ColouredGraphics() {
  ChessGraphics graphics;
  graphics.ChessSet = QImage(80, 40, QImage::Format_RGB32);
  for (int y = 0; y < 40; ++y) {
    for (int x = 0; x < 80; ++x) {
      graphics.ChessSet.setPixelColor(x, y, ColourOfCell(y / 10 * 8 + x / 10));
    }
  }
  for (QImage& icon : graphics.IconSet) {
    icon = QImage(16, 16, QImage::Format_ARGB32);
    icon.fill(Qt::red);
  }
  return graphics;
}

/// Writes a chess set into a folder, in which it is called "Plain".
inline void SaveChessSet(const QString& folder) {
  const ChessGraphics graphics = ColouredGraphics();
  EXPECT_TRUE(QDir().mkpath(folder));
  for (const char* side : {"White", "Black"}) {
    for (const char* kind : {"Rook", "Knight", "Bishop", "Queen", "King", "Pawn"}) {
      EXPECT_TRUE(graphics.IconSet[0].save(
          QStringLiteral("%1/%2%3.ico")
              .arg(folder, QLatin1StringView(side), QLatin1StringView(kind))));
    }
  }
  EXPECT_TRUE(graphics.ChessSet.save(folder + QStringLiteral("/Plain.jpg"), "PNG"));
}

struct PlayedEntry {
  const char* coordinates;
  const char* text;
};

inline void StoreGame(std::int32_t id, std::int16_t status, const std::string& opponent,
                      const std::vector<PlayedEntry>& entries) {
  store::GameRecord game;
  game.GAME_ID = id;
  game.GAME_DATESTAMP = "090320260805";
  game.GAME_NAME = "Game <b>" + std::to_string(id) + "</b>";
  game.GAME_DATE = "09/03/2026";
  game.GAME_OPPONENTS_EMAIL = "eva@example.org";
  game.GAME_OPPONENTS_NAME = opponent;
  game.GAME_BLACK_NAME = opponent;
  game.GAME_HOST = true;
  game.GAME_STATUS = status;
  store::MoveRecords moves;
  for (const PlayedEntry& entry : entries) {
    moves.push_back(
        {static_cast<std::int32_t>(moves.size()) + 1, entry.coordinates, entry.text, ""});
  }
  EXPECT_TRUE(store::SaveGame(game, moves));
}

/// Runs `work` on the next dialog, once it is up.
inline void OnNextDialog(std::function<void(QWidget& dialog)> work) {
  QTimer::singleShot(0, QApplication::instance(), [work = std::move(work)] {
    QWidget* dialog = QApplication::activeModalWidget();
    ASSERT_NE(dialog, nullptr) << "no dialog came up";
    work(*dialog);
  });
}

}  // namespace ui
