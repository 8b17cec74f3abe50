// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/exchange_pawn.h"

#include <QCloseEvent>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QToolButton>

namespace ui {

using namespace Qt::StringLiterals;

namespace {

constexpr int pictureSize = 72;
constexpr int buttonCount = 4;

struct Choice {
  const char* caption;
  int key;
};

/// In the order of their codes, from 1.
constexpr Choice choices[buttonCount] = {
    {"&Rook", Qt::Key_R}, {"K&night", Qt::Key_N}, {"&Bishop", Qt::Key_B}, {"&Queen", Qt::Key_Q}};

}  // namespace

ExchangePawn::ExchangePawn(const ChessGraphics& graphics, rules::Side side, QWidget* parent)
    : QDialog(parent, Qt::Dialog | Qt::CustomizeWindowHint | Qt::WindowTitleHint), side_(side) {
  setObjectName(u"ExchangePawn"_s);
  setWindowTitle(u"Pawn exchange..."_s);
  auto* layout = new QHBoxLayout(this);
  layout->setContentsMargins(16, 16, 16, 16);
  layout->setSpacing(8);
  for (int i = 0; i < buttonCount; ++i) {
    auto* button = new QToolButton;
    button->setObjectName(u"PieceButton%1"_s.arg(i));
    button->setText(QLatin1StringView(choices[i].caption));
    button->setToolButtonStyle(Qt::ToolButtonTextUnderIcon);
    button->setIconSize({pictureSize, pictureSize});
    button->setIcon(QPixmap::fromImage(graphics.Icon(rules::OfSide(i + 1, side))));
    button->setFocusPolicy(Qt::StrongFocus);
    button->setMinimumSize(pictureSize + 24, pictureSize + 40);
    connect(button, &QToolButton::clicked, this, [this, i] { Take(i); });
    layout->addWidget(button);
  }
  // No piece is chosen before the user has looked: the Enter that dropped the pawn may still be
  // down.
  setFocusPolicy(Qt::StrongFocus);
  setFocus();
}

rules::PieceCode ExchangePawn::Choose() {
  exec();
  return ChosenPiece_;
}

void ExchangePawn::Take(int button) {
  ChosenPiece_ = rules::OfSide(button + 1, side_);
  accept();
}

void ExchangePawn::closeEvent(QCloseEvent* event) { event->ignore(); }

void ExchangePawn::keyPressEvent(QKeyEvent* event) {
  auto* focused = qobject_cast<QToolButton*>(focusWidget());
  switch (event->key()) {
    case Qt::Key_Left:
    case Qt::Key_Up:
      focusPreviousChild();  // a focused button sees to the arrow keys itself
      return;
    case Qt::Key_Right:
    case Qt::Key_Down:
      focusNextChild();
      return;
    case Qt::Key_Return:
    case Qt::Key_Enter:
      if (focused) focused->click();
      return;
    default:
      break;
  }
  for (int i = 0; i < buttonCount; ++i) {
    if (event->key() == choices[i].key) return Take(i);
  }
  QDialog::keyPressEvent(event);
}

}  // namespace ui
