// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/board/search_display.h"

#include <QAbstractButton>
#include <QGridLayout>
#include <QLabel>
#include <QPainter>
#include <QProgressBar>

#include <algorithm>

#include "board/controls.h"
#include "board/ends.h"
#include "skin/look.h"
#include "widgets/shown_text.h"
#include "widgets/tool_tips.h"

namespace ui {

using namespace Qt::StringLiterals;

namespace {

constexpr int pictureInterval = 40;  // milliseconds
constexpr int barHeight = 20;

/// In the colours of a skin.
class SkinnedProgressBar : public QProgressBar {
 public:
  using QProgressBar::QProgressBar;

 protected:
  void paintEvent(QPaintEvent*) override {
    constexpr qreal edge = 0.5, gap = 3, roundness = 5;
    const QRectF frame = QRectF(rect()).adjusted(edge, edge, -edge, -edge);
    QRectF done = frame.adjusted(gap, gap, -gap, -gap);
    done.setWidth(done.width() * value() / maximum());
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(palette().color(QPalette::Highlight));
    painter.drawRoundedRect(frame, roundness, roundness);
    painter.setPen(Qt::NoPen);
    painter.setBrush(palette().highlight());
    painter.drawRoundedRect(done, roundness - gap, roundness - gap);
  }
};

QLabel* NewHint(QWidget& window) {
  auto* hint = new QLabel(&window);
  hint->setObjectName(u"TurnHint"_s);
  hint->setWordWrap(true);
  return hint;
}

QString HintFor(const board::Game& board) {
  const board::BoardControls controls = board::Controls(board);
  if (controls.send) {
    return board::GameIsOver(board) ? u"Press Send to end the game."_s
                                    : u"Press Send, and the computer answers."_s;
  }
  if (board::GameIsOver(board)) return Shown(board.Caption).remove(u"Tarvolenix - "_s);
  if (controls.resend) return u"It is the computer's turn: press Resend to let it move."_s;
  return rules::ThePosition().MoveAllowed ? u"It is your turn."_s : QString();
}

QProgressBar* NewProgressBar(QWidget& window) {
  auto* bar = IsSimpleUI() ? new QProgressBar(&window) : new SkinnedProgressBar(&window);
  bar->setObjectName(u"SearchProgress"_s);
  bar->setAccessibleName(u"Search progress"_s);
  bar->setRange(0, ai::fullSpan);
  bar->setTextVisible(false);
  return bar;
}

}  // namespace

SearchDisplay::SearchDisplay(QWidget& window, QLabel& label, board::Game& board)
    : QObject(&window),
      window_(window),
      label_(label),
      board_(board),
      hint_(NewHint(window)),
      progress_(NewProgressBar(window)),
      cancel_(NewButton(window, {"CancelSearch", "CancelSearchS"}, u"Cancel"_s, u"Ca&ncel"_s)) {
  clock_.setInterval(pictureInterval);
  connect(&clock_, &QTimer::timeout, this, &SearchDisplay::Advance);
  connect(cancel_, &QAbstractButton::clicked, this, &SearchDisplay::Cancel);
}

void SearchDisplay::SetToolTips() {
  SetTip(*progress_, u"Search progress"_s);
  SetTip(*cancel_, u"Stop the computer from taking its next move"_s);
}

QWidget* SearchDisplay::NewPlace() {
  auto* place = new QWidget(&window_);
  place->setObjectName(u"SearchPlace"_s);
  auto* grid = new QGridLayout(place);
  grid->setContentsMargins(0, 0, 0, 0);
  grid->setSpacing(8);
  grid->addWidget(&label_, 0, 0, 1, 2);
  grid->addWidget(progress_, 1, 0, Qt::AlignVCenter);
  grid->addWidget(cancel_, 1, 1);
  grid->addWidget(hint_, 0, 0, 2, 2, Qt::AlignTop);
  progress_->setFixedHeight(barHeight);
  // Nothing else moves when the computer begins to think.
  for (QWidget* part : {static_cast<QWidget*>(&label_), static_cast<QWidget*>(progress_),
                        static_cast<QWidget*>(cancel_)}) {
    QSizePolicy policy = part->sizePolicy();
    policy.setRetainSizeWhenHidden(true);
    part->setSizePolicy(policy);
  }
  return place;
}

void SearchDisplay::Refresh() {
  const bool thinking = board_.ComputerThinking;
  label_.setText(thinking ? u"Thinking..."_s : u"Your comment"_s);
  hint_->setText(HintFor(board_));
  progress_->setVisible(thinking);
  cancel_->setVisible(thinking);
  if (!thinking) return clock_.stop();
  Advance();
  if (!clock_.isActive()) clock_.start();
}

void SearchDisplay::Advance() {
  // The shares of the moves are rounded and may make up more than the whole.
  progress_->setValue(std::min(static_cast<int>(board_.Search.progress), ai::fullSpan));
}

}  // namespace ui
