// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/board/plain_board.h"

#include <QGridLayout>
#include <QHBoxLayout>
#include <QVBoxLayout>
#include <QWidget>

#include <initializer_list>

#include "platform/setting_variables.h"
#include "ui/board/board_picture.h"
#include "widgets/window_places.h"

namespace ui {

namespace {

constexpr int spacing = 8;

/// As large as any of the widgets wants it, so that nothing else moves when they change.
QGridLayout* NewSharedPlace(std::initializer_list<QWidget*> widgets) {
  auto* place = new QGridLayout;
  for (QWidget* widget : widgets) {
    QSizePolicy policy = widget->sizePolicy();
    policy.setRetainSizeWhenHidden(true);
    widget->setSizePolicy(policy);
    place->addWidget(widget, 0, 0);
  }
  return place;
}

QVBoxLayout* NewGameColumn(const PlainBoard& board) {
  auto* column = new QVBoxLayout;
  column->setSpacing(spacing);
  for (QWidget* widget : {board.playersTag, board.turnTag, board.drawAnswers}) {
    column->addWidget(widget);
  }
  column->addLayout(NewSharedPlace({board.moveList, board.palette}), 1);
  return column;
}

QVBoxLayout* NewTalkColumn(const PlainBoard& board) {
  auto* column = new QVBoxLayout;
  column->setSpacing(spacing);
  column->addWidget(board.opponentWords);
  column->addWidget(board.noteMark);
  column->addWidget(board.earlierComments, 0, Qt::AlignRight);
  column->addStretch();
  column->addLayout(NewSharedPlace({board.playerComment, board.search, board.trash}));
  column->addSpacing(spacing);
  column->addLayout(board.buttons);
  return column;
}

/// Empty until the user has resized the window.
QSize RememberedSize() {
  const platform::SettingVariables& settings = platform::Settings();
  return {settings.BoardWidth, settings.BoardHeight};
}

}  // namespace

void LayOut(QWidget& window, const PlainBoard& board) {
  const QSize room = RoomOnScreen(window);
  // The board brings its own margin along.
  constexpr int margin = BoardPicture::plainEdge;
  auto* columns = new QBoxLayout(QBoxLayout::TopToBottom);
  columns->setSpacing(spacing);
  columns->addLayout(NewGameColumn(board), 1);
  columns->addLayout(NewTalkColumn(board));
  // Above both: in the first alone, large letters would make it too wide for a small screen.
  auto* side = new QVBoxLayout;
  side->setSpacing(spacing);
  side->setContentsMargins(0, margin, margin, margin);
  side->addLayout(board.menus);
  side->addLayout(columns, 1);
  if (side->sizeHint().height() > room.height()) {
    columns->setDirection(QBoxLayout::LeftToRight);
    columns->setSpacing(2 * spacing);
    side->invalidate();  // it remembers the height just asked for
  }
  auto* layout = new QHBoxLayout(&window);
  layout->setContentsMargins(0, 0, 0, 0);
  layout->setSpacing(0);
  layout->addWidget(board.picture, 1);
  layout->addLayout(side);
  const QSize size = RememberedSize().isEmpty() ? window.sizeHint() : RememberedSize();
  window.resize(size.boundedTo(room));
}

}  // namespace ui
