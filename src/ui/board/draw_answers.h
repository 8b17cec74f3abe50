// SPDX-License-Identifier: GPL-3.0-or-later
// The answers to an offer of a draw, in place while there is one to answer, and the sign of the
// offer that stands where the skinned window has its logo otherwise.
#pragma once

#include <QObject>

#include <array>
#include <functional>

#include "board/game.h"

class QAbstractButton;
class QWidget;

namespace ui {

class DrawAnswers : public QObject {
  Q_OBJECT

 public:
  using Decide = std::function<void(bool accept)>;

  /// Makes the controls of the chosen look. Belongs to the window, as they do.
  DrawAnswers(QWidget& window, const Decide& decide);

  /// Both buttons side by side; null in the skinned look.
  QWidget* Row() const { return row_; }

  void Show(const board::Game& board);

 private:
  QAbstractButton* NewAnswer(QWidget& window, bool accept);
  QWidget* NewLogo(QWidget& window, const char* name, const char* picture);

  QWidget* row_ = nullptr;
  QWidget* logo_ = nullptr;  // of the skinned look, as the next
  QWidget* drawLogo_ = nullptr;
  std::array<QAbstractButton*, 2> buttons_{};  // Accept and Decline
};

}  // namespace ui
