// SPDX-License-Identifier: GPL-3.0-or-later
// Words for tests of windows: a chess set whose cells are told apart by their colour, stored games,
// and dialogs that get their answer.
#pragma once

#include <QApplication>
#include <QColor>
#include <QImage>
#include <QLabel>
#include <QTest>
#include <QTimer>
#include <gtest/gtest.h>

#include <functional>
#include <string>

#include "fakes/fake_desktop.h"
#include "platform/process_state.h"
#include "platform/setting_variables.h"
#include "store/saving.h"
#include "ui/chess_graphics.h"

namespace ui {

inline QColor ColourOfCell(int cell) { return {cell * 8, 255 - cell * 8, cell % 2 * 255}; }

inline QImage ColouredSheet(int cellWidth, int cellHeight) {
  QImage sheet(cellWidth * 8, cellHeight * 4, QImage::Format_RGB32);
  for (int y = 0; y < sheet.height(); ++y) {
    for (int x = 0; x < sheet.width(); ++x) {
      sheet.setPixelColor(x, y, ColourOfCell(y / cellHeight * 8 + x / cellWidth));
    }
  }
  return sheet;
}

inline ChessGraphics ColouredGraphics() {
  ChessGraphics graphics;
  graphics.ChessSet = ColouredSheet(10, 10);
  for (QImage& icon : graphics.IconSet) {
    icon = QImage(16, 16, QImage::Format_ARGB32);
    icon.fill(Qt::red);
  }
  return graphics;
}

struct PlayedEntry {
  const char* coordinates;
  const char* text;
  const char* comment = "";
};

inline std::int32_t StoreGame(const std::vector<PlayedEntry>& entries, bool playsWhite = true,
                              std::int16_t status = store::MoveWaiting,
                              const std::string& startBoard = {}) {
  store::GameRecord game;
  game.GAME_ID = static_cast<std::int32_t>(1);
  game.GAME_DATESTAMP = "090320260805";
  game.GAME_NAME = "Café <b>match</b> & more";
  game.GAME_DATE = "09/03/2026";
  game.GAME_OPPONENTS_EMAIL = "eva@example.org";
  game.GAME_WHITE_NAME = playsWhite ? "Me" : "Eva <i>Ü</i>";
  game.GAME_BLACK_NAME = playsWhite ? "Eva <i>Ü</i>" : "Me";
  game.GAME_OPPONENTS_NAME = "Eva <i>Ü</i>";
  game.GAME_HOST = playsWhite;
  game.GAME_STATUS = status;
  game.GAME_START_BOARD = startBoard;
  store::MoveRecords moves;
  for (const PlayedEntry& entry : entries) {
    moves.push_back({static_cast<std::int32_t>(moves.size()) + 1, entry.coordinates, entry.text,
                     entry.comment});
  }
  EXPECT_TRUE(store::SaveGame(game, moves));
  return game.GAME_ID;
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
