// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/games/game_preview.h"

#include <QApplication>
#include <QFocusEvent>
#include <QMouseEvent>
#include <QScreen>
#include <QScrollBar>
#include <QTableView>

#include <algorithm>
#include <utility>

#include "platform/setting_variables.h"
#include "ui/games/game_list_model.h"

namespace ui {

namespace {

constexpr int patienceMilliseconds = 1000;
constexpr int edge = 200;
constexpr int gap = 6;
constexpr int roomForTip = 48;  ///< below the pointer, where a tip may be

/// What ends a preview, whichever window of the program it happens in.
bool EndsPreview(QEvent::Type type) {
  return type == QEvent::KeyPress || type == QEvent::MouseButtonPress || type == QEvent::Wheel ||
         type == QEvent::WindowDeactivate;
}

bool IsByTab(const QEvent& event) {
  const Qt::FocusReason reason = static_cast<const QFocusEvent&>(event).reason();
  return reason == Qt::TabFocusReason || reason == Qt::BacktabFocusReason;
}

}  // namespace

GamePreview::GamePreview(QTableView& grid, const GameListModel& games)
    : QObject(&grid), grid_(grid), games_(games) {
  picture_.setObjectName(QStringLiteral("GamePreview"));
  picture_.setWindowFlags(Qt::ToolTip | Qt::WindowTransparentForInput);
  picture_.setAttribute(Qt::WA_ShowWithoutActivating);
  picture_.setFrameStyle(QFrame::Box | QFrame::Plain);
  patience_.setSingleShot(true);
  patience_.setInterval(patienceMilliseconds);
  connect(&patience_, &QTimer::timeout, this, &GamePreview::Draw);
  // The list was filled anew: another game may stand below the pointer by now.
  connect(grid.model(), &QAbstractItemModel::modelAboutToBeReset, this, [this] {
    goesOn_ = !isKeyed_ && (patience_.isActive() || picture_.isVisible());
    Hide();
  });
  connect(grid.model(), &QAbstractItemModel::modelReset, this, [this] {
    if (std::exchange(goesOn_, false)) Await(row_);
  });
  connect(grid.verticalScrollBar(), &QScrollBar::valueChanged, this, [this] {
    // The keys scroll to the game that they reach.
    if (!isKeyed_) Hide();
  });
  connect(grid.selectionModel(), &QItemSelectionModel::currentChanged, this,
          [this](const QModelIndex& current) {
            if (isKeyed_) Await(current.row());
          });
  grid.viewport()->setMouseTracking(true);
  grid.viewport()->installEventFilter(this);
  grid.installEventFilter(this);
}

bool GamePreview::eventFilter(QObject* watched, QEvent* event) {
  // From the whole program, as long as there is something to end.
  if (EndsPreview(event->type())) Hide();
  if (watched == &grid_ || watched == grid_.viewport()) {
    switch (event->type()) {
      case QEvent::KeyPress:
        isKeyed_ = true;
        break;
      case QEvent::FocusIn:
        if (watched == &grid_ && IsByTab(*event)) Await(grid_.currentIndex().row());
        break;
      case QEvent::MouseButtonPress:
      case QEvent::Wheel:
        isKeyed_ = false;
        break;
      case QEvent::MouseMove:
        FollowPointer(static_cast<QMouseEvent*>(event)->position().toPoint());
        break;
      case QEvent::Leave:
      case QEvent::Hide:
        row_ = -1;
        Hide();
        break;
      default:
        break;
    }
  }
  return QObject::eventFilter(watched, event);
}

void GamePreview::FollowPointer(QPoint place) {
  const int row = grid_.indexAt(place).row();
  if (row == row_) return;
  isKeyed_ = false;
  Await(row);
}

/// Anew for each row.
void GamePreview::Await(int row) {
  Hide();
  row_ = row;
  if (row < 0 || !platform::Settings().ShowGamePreview) return;
  patience_.start();
  qApp->installEventFilter(this);
}

void GamePreview::Hide() {
  ++waits_;
  patience_.stop();
  picture_.hide();
  qApp->removeEventFilter(this);
}

void GamePreview::Draw() {
  const store::GameRecord* game = games_.GameAt(row_);
  if (!game || !grid_.isActiveWindow() || QApplication::activePopupWidget()) return Hide();
  boards_.Draw({*game, games_.MovesOf(*game), edge, grid_.devicePixelRatioF()},
               [this, wait = waits_](const QPixmap& picture) {
                 if (wait == waits_) ShowPicture(picture);
               });
}

void GamePreview::ShowPicture(const QPixmap& picture) {
  picture_.setPixmap(picture);
  picture_.setFixedSize(picture_.sizeHint());
  picture_.move(PlaceOf(picture_.size()));
  picture_.show();
}

/// Below the row and its tip; above where there is no room, as the windows' own buttons lie there.
QPoint GamePreview::PlaceOf(const QSize& size) const {
  const QRect cell = grid_.visualRect(games_.index(row_, shell::TitleColumn));
  const QPoint top = grid_.viewport()->mapToGlobal(QPoint(cell.left(), cell.top()));
  const QRect screen = grid_.screen()->availableGeometry();
  const int pointer = isKeyed_ ? top.x() : QCursor::pos().x() + gap;
  const int x = std::clamp(pointer, screen.left(),
                           std::max(screen.left(), screen.right() + 1 - size.width()));
  const int above = top.y() - gap - size.height();
  const int below = top.y() + cell.height() + (isKeyed_ ? gap : roomForTip);
  return {x, below + size.height() <= screen.bottom() + 1 ? below : above};
}

}  // namespace ui
