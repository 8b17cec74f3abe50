// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/games/held_mail_form.h"

#include <QFontInfo>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QPushButton>
#include <QScreen>
#include <QTextDocument>

#include <algorithm>

#include "skin/layouts/held_mail_form_layout.h"
#include "skin/program_pictures.h"
#include "ui/games/move_comparison.h"
#include "ui/help/help_key.h"
#include "widgets/front_window.h"
#include "widgets/plain_text_view.h"
#include "widgets/pointers.h"
#include "widgets/shown_text.h"

namespace ui {

using namespace Qt::StringLiterals;
using platform::HeldMailChoice;
using platform::HeldMailQuestion;

namespace {

constexpr int mailIcon = 4;
constexpr int pictureSize = 48;
constexpr int plainTextWidth = 420;
constexpr int highestPlainText = 160;
constexpr qreal largerText = 1.15;  // what there is to compare, against the desktop's text

QLabel* NewLabel(const QString& name, const QString& text, QWidget* window) {
  auto* label = new QLabel(text, window);
  label->setObjectName(name);
  label->setTextFormat(Qt::PlainText);
  label->setAlignment(Qt::AlignTop | Qt::AlignLeft);
  return label;
}

PlainTextView* NewText(const HeldMailQuestion& question, QWidget* window) {
  auto* text = new PlainTextView(window);
  text->setObjectName(u"Why"_s);
  text->setAccessibleName(u"Why the mail was set aside"_s);
  text->setVerticalScrollBarPolicy(Qt::ScrollBarAsNeeded);
  text->SetText(Shown(question.why + "\n\n" + question.whatFor));
  return text;
}

QStringList GameLines(const HeldMailQuestion& question) {
  const QString title = Shown(question.gameName);
  if (question.opponent.empty()) return {title, u"a new game"_s};
  return {title, u"with "_s + Shown(question.opponent),
          question.opponentAddress.empty() ? u"(no address is stored)"_s
                                           : Shown(question.opponentAddress)};
}

/// What doesn't fit shows when it is pointed at. Of an address both ends tell whose it is; a name
/// with a line of its own in it might pass for one.
void ShowLines(QLabel& label, const QStringList& lines, int width) {
  QStringList fitting;
  for (const QString& line : lines) {
    fitting << label.fontMetrics().elidedText(line.simplified(), Qt::ElideMiddle, width);
  }
  label.setText(fitting.join(u'\n'));
  if (fitting != lines) label.setToolTip(Qt::convertFromPlainText(lines.join(u'\n')));
}

void Emphasise(QLabel& label, qreal size, bool bold) {
  QFont font = label.font();
  font.setPointSizeF(QFontInfo(font).pointSizeF() * size);
  font.setBold(bold);
  label.setFont(font);
}

}  // namespace

HeldMailForm::HeldMailForm(const HeldMailQuestion& question, QWidget* parent)
    : QDialog(parent),
      picture_(NewLabel(u"MessageIcon"_s, {}, this)),
      heading_(NewLabel(u"Heading"_s, u"A mail was set aside"_s, this)),
      senderCaption_(NewLabel(u"Sender_L"_s, u"Written by"_s, this)),
      sender_(NewLabel(u"Sender"_s, {}, this)),
      gameCaption_(NewLabel(u"Game_L"_s, u"Game"_s, this)),
      game_(NewLabel(u"Game"_s, {}, this)),
      why_(NewText(question, this)),
      moves_(question.moves.empty() ? nullptr : new MoveComparison(question.moves, this)) {
  setObjectName(u"HeldMailForm"_s);
  setWindowTitle(u"Tarvolenix"_s);
  picture_->setPixmap(MessagePicture(mailIcon, pictureSize));
  if (moves_) moves_->setObjectName(u"Moves"_s);
  later_ =
      NewChoice({"LaterButton", "LaterButtonS"}, u"Later"_s, u"L&ater"_s, HeldMailChoice::Later);
  const QString refuse = Shown(question.refuseCaption), accept = Shown(question.acceptCaption);
  refuse_ =
      NewChoice({"RefuseButton", "RefuseButtonS"}, refuse, u'&' + refuse, HeldMailChoice::Refuse);
  accept_ =
      NewChoice({"AcceptButton", "AcceptButtonS"}, accept, u'&' + accept, HeldMailChoice::Accept);
  TakeLook(*this, moves_ ? layouts::heldMailForm : layouts::heldMailNote,
           [this] { SetSimpleUI(); });
  ShowQuestion(question);
  later_->setFocus();
  GiveHelpKey(*this, platform::HelpOfHeldMail);
}

QAbstractButton* HeldMailForm::NewChoice(const ButtonTwins& names, const QString& caption,
                                         const QString& plainCaption, HeldMailChoice choice) {
  QAbstractButton* button = NewButton(*this, names, caption, plainCaption);
  connect(button, &QAbstractButton::clicked, this, [this, choice] {
    UserChoice = choice;
    accept();
  });
  return button;
}

void HeldMailForm::SetSimpleUI() {
  static_cast<QPushButton*>(later_)->setDefault(true);
  QHBoxLayout* buttons = NewButtonRow({later_, refuse_, accept_});
  auto* layout = new QGridLayout(this);
  layout->setContentsMargins(16, 16, 16, 16);
  layout->setHorizontalSpacing(16);
  layout->setVerticalSpacing(8);
  layout->addWidget(picture_, 0, 0, 3, 1, Qt::AlignTop);
  layout->addWidget(heading_, 0, 1, 1, 2);
  layout->addWidget(senderCaption_, 1, 1);
  layout->addWidget(sender_, 1, 2);
  layout->addWidget(gameCaption_, 2, 1);
  layout->addWidget(game_, 2, 2);
  layout->setRowMinimumHeight(3, 8);
  layout->addWidget(why_, 4, 1, 1, 2);
  layout->setRowMinimumHeight(5, 8);
  if (moves_) layout->addWidget(moves_, 6, 0, 1, 3);
  layout->setRowStretch(6, 1);
  layout->setRowMinimumHeight(7, 8);
  layout->addLayout(buttons, 8, 0, 1, 3);
  layout->setColumnStretch(2, 1);
}

void HeldMailForm::ShowQuestion(const HeldMailQuestion& question) {
  Emphasise(*heading_, largerText, true);
  Emphasise(*sender_, largerText, true);
  for (QLabel* label : {senderCaption_, gameCaption_, game_}) Emphasise(*label, largerText, false);
  const int width = IsSimpleUI() ? plainTextWidth : sender_->width();
  ShowLines(*sender_, {Shown(question.senderName), Shown(question.senderAddress)}, width);
  ShowLines(*game_, GameLines(question), width);
  if (IsSimpleUI()) {
    const int height = std::min(why_->heightForWidth(plainTextWidth), highestPlainText);
    why_->setMinimumSize(plainTextWidth, height);
    // By itself a window takes two thirds of the screen at most, whatever it has to show.
    resize(sizeHint().boundedTo(screen()->availableSize() * 0.9));
  }
}

void HeldMailForm::keyPressEvent(QKeyEvent* event) {
  const bool isReturn = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
  if (isReturn && !IsSimpleUI()) {
    later_->click();
  } else {
    QDialog::keyPressEvent(event);
  }
}

HeldMailChoice AskAboutHeldMail(const HeldMailQuestion& question) {
  const OtherPointer arrow(Qt::ArrowCursor);
  HeldMailForm form(question);
  form.setModal(true);  // before it shows: then it is too late
  BringToFront(form);
  form.exec();
  return form.UserChoice;
}

}  // namespace ui
