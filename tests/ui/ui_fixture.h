// SPDX-License-Identifier: GPL-3.0-or-later
// Words for tests of windows: a chess set whose cells are told apart by their colour, stored games,
// a hand on the controls of a window, and dialogs that get their answer.
#pragma once

#include <QAbstractButton>
#include <QApplication>
#include <QColor>
#include <QDir>
#include <QImage>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QTest>
#include <QTimer>
#include <gtest/gtest.h>

#include <functional>
#include <stdexcept>
#include <string>
#include <vector>

#include "boards/chess_graphics.h"
#include "fakes/fake_desktop.h"
#include "platform/process_state.h"
#include "platform/setting_variables.h"
#include "store/saving.h"

namespace ui {

using namespace Qt::StringLiterals;
using platform::Process;

inline QColor ColourOfCell(int cell) { return {cell * 8, 255 - cell * 8, cell % 2 * 255}; }

inline boards::ChessGraphics ColouredGraphics() {
  boards::ChessGraphics graphics;
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
  const boards::ChessGraphics graphics = ColouredGraphics();
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
  const char* comment = "";
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
    moves.push_back({static_cast<std::int32_t>(moves.size()) + 1, entry.coordinates, entry.text,
                     entry.comment});
  }
  EXPECT_TRUE(store::SaveGame(game, moves));
}

inline void BringUp(QWidget& window) {
  window.show();
  window.activateWindow();
  EXPECT_TRUE(QTest::qWaitForWindowActive(&window));
}

/// What the plain look calls a control of the skinned one, where both have their own.
inline QString InPlainLook(QString name) {
  if (name.startsWith(u"Toolbar1_"_s)) return name.insert(8, u'S');
  return name.replace(u"OkButton"_s, u"OKButton"_s) + u'S';
}

/// A control by its name in the skinned look.
template <typename Control = QWidget>
Control& Find(const QWidget& window, const QString& name) {
  auto* control = window.findChild<Control*>(name);
  if (!control) control = window.findChild<Control*>(InPlainLook(name));
  if (!control) throw std::out_of_range("no control " + name.toStdString());
  return *control;
}
template <typename Control = QWidget>
Control& Find(const QWidget& window, const char* name) {
  return Find<Control>(window, QString::fromUtf8(name));
}

inline QLineEdit& Field(const QWidget& window, const char* name) {
  return Find<QLineEdit>(window, name);
}
inline bool Shows(const QWidget& window, const char* name) {
  return Find(window, name).isVisible();
}
inline bool Can(const QWidget& window, const char* name) { return Find(window, name).isEnabled(); }
inline void Press(const QWidget& window, const char* button) {
  Find<QAbstractButton>(window, button).click();
}

/// Writes over what stands in a field, which the keyboard leaves then.
inline void Type(const QWidget& window, const char* name, const char* text) {
  QLineEdit& field = Field(window, name);
  field.setFocus();
  field.selectAll();
  QTest::keyClick(&field, Qt::Key_Backspace);
  QTest::keyClicks(&field, QString::fromUtf8(text));
  // What a popup offers there goes with the real keyboard's Tab.
  if (QWidget* popup = QApplication::activePopupWidget()) popup->hide();
  QTest::keyClick(&field, Qt::Key_Tab);
  QCoreApplication::processEvents();
}

/// What a user does in a window.
using Action = std::function<void(QWidget& window)>;

inline Action Click(const char* button) {
  return [=](QWidget& window) { QTest::mouseClick(&Find(window, button), Qt::LeftButton); };
}
inline Action Key(Qt::Key key) {
  return [=](QWidget& window) {
    QWidget* focused = window.focusWidget();
    QTest::keyClick(focused ? focused : &window, key);
  };
}
inline void CloseWindow(QWidget& window) { window.close(); }

/// Beats of the time-out of a form that has one.
template <typename Form>
Action Ticks(int count) {
  return [=](QWidget& window) {
    for (int i = 0; i < count; ++i) {
      ASSERT_TRUE(window.isVisible()) << "gone before tick " << i + 1;
      static_cast<Form&>(window).Tick();
    }
  };
}

/// Takes an entry of the menu that is up.
inline void TakeEntry(const char* caption) {
  auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
  ASSERT_NE(menu, nullptr) << "no menu came up";
  for (QAction* entry : menu->actions()) {
    if (entry->text() != QLatin1StringView(caption)) continue;
    EXPECT_TRUE(entry->isEnabled()) << caption;
    menu->hide();
    entry->trigger();
    return;
  }
  ADD_FAILURE() << "no entry " << caption;
  menu->hide();
}

/// Takes an entry of the menu that a press on a button brings up.
inline void TakeEntry(const QWidget& window, const char* button, const char* caption) {
  QTest::mousePress(&Find(window, button), Qt::LeftButton);
  TakeEntry(caption);
}

/// The tip that has a place of its own; null where there is none.
inline QLabel* ShownTip() {
  for (QWidget* window : QApplication::topLevelWidgets()) {
    if (window->objectName() == u"PlacedTip"_s && window->isVisible()) {
      return static_cast<QLabel*>(window);
    }
  }
  return nullptr;
}

/// Runs `work` on the next dialog, once it is up.
inline void OnNextDialog(Action work) {
  QTimer::singleShot(0, QApplication::instance(), [work = std::move(work)] {
    QWidget* dialog = QApplication::activeModalWidget();
    ASSERT_NE(dialog, nullptr) << "no dialog came up";
    work(*dialog);
  });
}

}  // namespace ui
