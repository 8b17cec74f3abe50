// SPDX-License-Identifier: GPL-3.0-or-later
// The action bar of the Board window: plain buttons, or those of the skin's strip.
#pragma once

#include <QAbstractButton>
#include <QDeadlineTimer>
#include <QObject>

#include <array>
#include <functional>

#include "board/controls.h"

class QGridLayout;

namespace ui {

class StripButton;

class BoardToolbar : public QObject {
  Q_OBJECT

 public:
  using Click = std::function<void(int button, bool byMouse)>;

  /// Makes the buttons of the chosen look; they call `click` with their numbers. Belongs to the
  /// window, as they do.
  BoardToolbar(QWidget& window, const Click& click);

  /// In the plain look: where the buttons stand from now on. The layout must live as long.
  void LayOut(QGridLayout& layout);

  /// Captions, what is enabled, and tips.
  void Show(const board::Game& board);

  /// Shows the pictures that the window's skin has now.
  void RefreshBoardButtons();

  void SetToolTips(const board::Game& board);

 private:
  QAbstractButton* NewToolbarButton(QWidget& window, int button);
  void TakeMode(bool setup);

  QWidget& window_;
  QGridLayout* layout_ = nullptr;
  bool pressedByMouse_ = false;  // the button that is clicked now
  bool pressedTooSoon_ = false;  // after the button had become another one
  QDeadlineTimer settled_;
  bool setup_ = false;  // what the buttons stand for now
  std::array<QAbstractButton*, board::CloseButton + 1> buttons_{};  // by number; some are null
};

}  // namespace ui
