// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/board/draw_answers.h"

#include <QHBoxLayout>
#include <QIcon>
#include <QLabel>

#include "board/controls.h"
#include "skin/layouts/board_layout.h"
#include "skin/look.h"
#include "skin/program_pictures.h"

namespace ui {

using namespace Qt::StringLiterals;

namespace {

struct Answer {
  ButtonTwins names;
  const char* caption;
  const char* plainCaption;
};
constexpr Answer acceptAnswer{{"AcceptDraw", "AcceptDrawS"}, "Accept", "&Accept"};
constexpr Answer declineAnswer{{"DeclineDraw", "DeclineDrawS"}, "Decline", "&Decline"};

}  // namespace

DrawAnswers::DrawAnswers(QWidget& window, const Decide& decide) : QObject(&window) {
  for (const bool accept : {true, false}) {
    QAbstractButton* button = NewAnswer(window, accept);
    connect(button, &QAbstractButton::clicked, this, [decide, accept] { decide(accept); });
    buttons_[accept ? 0 : 1] = button;
  }
  if (!IsSimpleUI()) {
    logo_ = NewLogo(window, "TVLogo", "tarvolenix.png");
    drawLogo_ = NewLogo(window, "DrawLogo", "draw.png");
    return;
  }
  row_ = new QWidget(&window);
  auto* row = new QHBoxLayout(row_);
  row->setContentsMargins(0, 0, 0, 0);
  for (QAbstractButton* button : buttons_) row->addWidget(button);
}

QAbstractButton* DrawAnswers::NewAnswer(QWidget& window, bool accept) {
  const Answer& answer = accept ? acceptAnswer : declineAnswer;
  return NewButton(window, answer.names, QLatin1StringView(answer.caption),
                   QLatin1StringView(answer.plainCaption));
}

QWidget* DrawAnswers::NewLogo(QWidget& window, const char* name, const char* picture) {
  auto* logo = new QLabel(&window);
  logo->setObjectName(QLatin1StringView(name));
  const int size = layouts::RectOf(layouts::board, "TVLogo").width;
  logo->setPixmap(ProgramPicture(QLatin1StringView(picture)).pixmap(size));
  return logo;
}

void DrawAnswers::Show(const board::Game& board) {
  const bool answers = board::Controls(board).answerDraw;
  for (QAbstractButton* button : buttons_) button->setVisible(answers);
  if (row_) row_->setVisible(answers);
  if (logo_) logo_->setVisible(!board.DrawButtonsUp);
  if (drawLogo_) drawLogo_->setVisible(board.DrawButtonsUp);
}

}  // namespace ui
