// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/games/notify_form.h"

#include <QApplication>
#include <QFontInfo>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QPushButton>
#include <QTimer>

#include <algorithm>
#include <optional>

#include "mail/character_count.h"
#include "platform/setting_variables.h"
#include "skin/layouts/notify_form_layout.h"
#include "skin/look.h"
#include "skin/program_pictures.h"
#include "store/queries.h"
#include "ui/games/small_boards.h"
#include "ui/help/help_key.h"
#include "widgets/cut_text.h"
#include "widgets/front_window.h"
#include "widgets/plain_text_view.h"
#include "widgets/pointers.h"
#include "widgets/shown_text.h"

namespace ui {

using namespace Qt::StringLiterals;
using platform::NotifyChoice;

namespace {

constexpr int tickMilliseconds = 30000;
constexpr int pictureSize = 48;
constexpr int newMoveKind = 2;  // of the three pictures that a set of the tray has
constexpr int boardEdge = 160;
constexpr int plainTextWidth = 400;
constexpr int highestPlainComment = 160;
constexpr std::size_t longestBoldComment = 100;

struct ButtonRow {
  ButtonTwins names;
  const char* caption;
  const char* plainCaption;
  const char* tip;
  NotifyChoice choice;
};

/// From left to right: what goes on is on the right.
constexpr ButtonRow buttonRows[] = {
    {{"LaterButton", "LaterButtonS"},
     "Later",
     "&Later",
     "Ignore the new move for now",
     NotifyChoice::Later},
    {{"GameListButton", "GameListButtonS"},
     "Game list",
     "&Game list",
     "Open the game interface",
     NotifyChoice::GameList},
    {{"NextButton", "NextButtonS"},
     "Next",
     "&Next",
     "Skip this move and look at the next",
     NotifyChoice::Next},
    {{"PlayButton", "PlayButtonS"}, "Play", "&Play", "Play the new move", NotifyChoice::Play},
};

QLabel* NewLine(const QString& name, QWidget* window) {
  auto* line = new QLabel(window);
  line->setObjectName(name);
  line->setTextFormat(Qt::PlainText);
  return line;
}

/// A long comment is written a step smaller, and all of it no smaller than the desktop's text.
/// Pixels on a skin, whose places are pixels.
QFont CommentFont(QFont font, bool isLong) {
  font.setBold(!isLong);
  if (IsSimpleUI()) {
    const qreal desktops = QFontInfo(font).pointSizeF();
    font.setPointSizeF(std::max(isLong ? 9.0 : 10.0, desktops - (isLong ? 1 : 0)));
  } else {
    font.setPixelSize(isLong ? 12 : 13);
  }
  return font;
}

}  // namespace

NotifyForm::NotifyForm(const platform::NewMove& move, QWidget* parent)
    : QDialog(parent),
      picture_(new QLabel(this)),
      heading_(NewLine(u"Label3"_s, this)),
      opponent_(NewLine(u"OpName"_s, this)),
      game_(NewLine(u"GameName"_s, this)),
      lastMove_(NewLine(u"LastMove"_s, this)),
      position_(new QLabel(this)),
      comment_(new PlainTextView(this)) {
  setObjectName(u"NotifyForm"_s);
  setWindowTitle(u"Tarvolenix"_s);
  picture_->setObjectName(u"MessageIcon"_s);
  const int set = platform::Settings().SysTrayIcons - 1;
  picture_->setPixmap(TrayPicture(set * 3 + newMoveKind).pixmap(pictureSize));
  heading_->setText(u"A new move has arrived"_s);
  position_->setObjectName(u"Position"_s);
  comment_->setObjectName(u"MoveComment"_s);
  comment_->setVerticalScrollBarPolicy(Qt::ScrollBarAsNeeded);
  AddButtons(move.isLast);
  TakeLook(*this, layouts::notifyForm, [this] { SetSimpleUI(); });
  ShowMove(move);
  ShowBoard(move);
  play_->setFocus();
  GiveHelpKey(*this, platform::HelpOfTray);
  StartTicker();
}

void NotifyForm::AddButtons(bool isLast) {
  for (const ButtonRow& row : buttonRows) {
    play_ = NewButton(*this, row.names, QLatin1StringView(row.caption),
                      QLatin1StringView(row.plainCaption));
    if (platform::Settings().ShowToolTips) play_->setToolTip(QLatin1StringView(row.tip));
    play_->setEnabled(row.choice != NotifyChoice::Next || !isLast);
    connect(play_, &QAbstractButton::clicked, this,
            [this, choice = row.choice] { Answer(choice); });
  }
}

void NotifyForm::Answer(NotifyChoice choice) {
  UserChoice = choice;
  accept();
}

void NotifyForm::SetSimpleUI() {
  auto* buttons = new QHBoxLayout;
  buttons->setSpacing(8);
  buttons->addStretch();
  for (const ButtonRow& row : buttonRows) {
    auto* button = findChild<QPushButton*>(QLatin1StringView(row.names.plain));
    button->setMinimumSize(96, 28);
    buttons->addWidget(button);
  }
  static_cast<QPushButton*>(play_)->setDefault(true);

  auto* layout = new QGridLayout(this);
  layout->setContentsMargins(16, 16, 16, 16);
  layout->setHorizontalSpacing(16);
  layout->setVerticalSpacing(4);
  int row = 0;
  layout->addWidget(picture_, row, 0, 4, 1, Qt::AlignTop);
  for (QLabel* line : {heading_, opponent_, game_, lastMove_}) layout->addWidget(line, row++, 1);
  layout->setRowMinimumHeight(row++, 8);
  layout->addWidget(comment_, row, 1);
  layout->setRowStretch(row++, 1);
  position_->setFixedSize(boardEdge, boardEdge);
  layout->addWidget(position_, 0, 2, row, 1, Qt::AlignTop);
  layout->setRowMinimumHeight(row++, 16);
  layout->addLayout(buttons, row, 0, 1, 3);
}

void NotifyForm::ShowMove(const platform::NewMove& move) {
  QFont bold = heading_->font();
  bold.setBold(true);
  heading_->setFont(bold);
  const int width = IsSimpleUI() ? plainTextWidth : opponent_->width();
  ShowLine(*opponent_, ShownLine(move.OpName), width);
  ShowLine(*game_, ShownLine(move.GameName), width);
  if (!move.LastMove.empty()) lastMove_->setText(u"Last move: "_s + ShownLine(move.LastMove));

  comment_->setFont(
      CommentFont(comment_->font(), mail::CharacterCount(move.MoveComment) > longestBoldComment));
  comment_->SetText(Shown(move.MoveComment));
  if (IsSimpleUI()) {
    const int height = std::min(comment_->heightForWidth(plainTextWidth), highestPlainComment);
    comment_->setMinimumSize(plainTextWidth, height);
  } else {
    comment_->setVisible(!move.MoveComment.empty());
  }
}

/// It comes a moment later, where the game can be shown.
void NotifyForm::ShowBoard(const platform::NewMove& move) {
  std::optional<store::GameRecord> game;
  if (!store::FindGame(game, move.gameID) || !game) return position_->hide();
  auto* boards = new SmallBoards(this);
  boards->Draw({.game = *game, .edge = boardEdge, .pixelRatio = devicePixelRatioF()},
               [this](const QPixmap& picture) { position_->setPixmap(picture); });
}

void NotifyForm::StartTicker() {
  auto* ticker = new QTimer(this);
  ticker->setObjectName(u"TimeoutTicker"_s);
  connect(ticker, &QTimer::timeout, this, &NotifyForm::Tick);
  if (platform::Settings().NotificationTimeout > 0) ticker->start(tickMilliseconds);
}

void NotifyForm::Tick() {
  if (++ticks_ == platform::Settings().NotificationTimeout) reject();
}

void NotifyForm::keyPressEvent(QKeyEvent* event) {
  const bool isReturn = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
  if (isReturn && !IsSimpleUI()) {
    play_->click();
  } else {
    QDialog::keyPressEvent(event);
  }
}

NotifyChoice AskAboutNewMove(const platform::NewMove& move) {
  const OtherPointer arrow(Qt::ArrowCursor);
  NotifyForm form(move);
  form.setModal(true);  // before it shows: then it is too late
  if (QApplication::activeWindow()) {
    BringToFront(form);
  } else {
    ShowInPassing(form);
  }
  form.exec();
  return form.UserChoice;
}

}  // namespace ui
