// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/program/msg_form.h"

#include <QGridLayout>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QPushButton>
#include <QScreen>
#include <QTimer>

#include <algorithm>

#include "skin/layouts/msg_form_layout.h"
#include "skin/look.h"
#include "skin/program_pictures.h"
#include "skin/system_button.h"
#include "widgets/plain_text_view.h"
#include "widgets/shown_text.h"

namespace ui {

using namespace Qt::StringLiterals;

namespace {

constexpr int captionRoom = 32;  // beside the text of a button
constexpr int tickMilliseconds = 30000;
constexpr int messagePicture = 48;
constexpr int highestCaption = 36;  // in a skin
constexpr int narrowestText = 280;
constexpr int widestText = 440;
constexpr int roomBesideText = 128;
constexpr int mostCharacters = 55;  // in a line, where they need more
constexpr int linesBeside = 7;      // those of the title and of the buttons, with what is between
constexpr int buttonWidth = 96;
constexpr int buttonHeight = 28;

QLabel* NewPicture(int icon, QWidget* window) {
  auto* picture = new QLabel(window);
  picture->setObjectName(u"MessageIcon"_s);
  picture->setPixmap(MessagePicture(icon, messagePicture));
  return picture;
}

PlainTextView* NewText(const QString& name, const QString& text, bool bold, QWidget* window) {
  auto* view = new PlainTextView(window);
  view->setObjectName(name);
  view->setAccessibleName(bold ? u"Title of the message"_s : u"Message"_s);
  QFont font = view->font();
  font.setBold(bold);
  view->setFont(font);
  view->SetText(text);
  return view;
}

/// As wide as the longest line, within bounds; as high as the text, but never beyond the screen.
void SizeText(PlainTextView* view, const QScreen& screen) {
  const QFontMetrics font = view->fontMetrics();
  const int natural = font.size(0, view->toPlainText()).width() + 8;
  const QSize room = screen.availableSize();
  const int widest = std::min(std::max(widestText, mostCharacters * font.averageCharWidth()),
                              room.width() - roomBesideText);
  const int width = std::clamp(natural, narrowestText, std::max(narrowestText, widest));
  const int highest = room.height() - linesBeside * font.lineSpacing();
  const int height = view->heightForWidth(width);
  view->setMinimumSize(width, std::min(height, highest));
  if (height > highest) view->setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOn);
}

}  // namespace

MsgForm::MsgForm(const platform::Message& message, QWidget* parent)
    : QDialog(parent),
      escapeCancels_(!message.cancelCaption.empty() && !message.escapeIsOk),
      ticksLeft_(message.timeoutTicks),
      picture_(NewPicture(message.icon, this)),
      caption_(NewText(u"FormCaption"_s, Shown(message.title), true, this)),
      text_(NewText(u"Message"_s, Shown(message.text), false, this)) {
  setObjectName(u"MsgForm"_s);
  setWindowTitle(u"Tarvolenix"_s);
  if (!message.cancelCaption.empty()) {
    cancel_ = NewButton(*this, {"CancelButton", "CancelButtonS"}, Shown(message.cancelCaption));
    connect(cancel_, &QAbstractButton::clicked, this, [this] { done(Rejected); });
  }
  ok_ = NewButton(*this, {"OkButton", "OKButtonS"}, Shown(message.okCaption));
  connect(ok_, &QAbstractButton::clicked, this, &QDialog::accept);
  TakeLook(*this, layouts::msgForm, [this] { SetSimpleUI(); });
  if (!IsSimpleUI()) ArrangeSkinned();
  ok_->setFocus();

  if (ticksLeft_ > 0) {
    auto* ticker = new QTimer(this);
    ticker->setObjectName(u"TimeoutTicker"_s);
    connect(ticker, &QTimer::timeout, this, &MsgForm::Tick);
    ticker->start(tickMilliseconds);
  }
}

void MsgForm::SetSimpleUI() {
  for (PlainTextView* view : {caption_, text_}) SizeText(view, *screen());
  auto* buttons = new QHBoxLayout;
  buttons->setSpacing(8);
  buttons->addStretch();
  for (QAbstractButton* button : {cancel_, ok_}) {
    if (!button) continue;
    button->setMinimumSize(buttonWidth, buttonHeight);
    buttons->addWidget(button);
  }
  if (!cancel_) buttons->addStretch();
  static_cast<QPushButton*>(ok_)->setDefault(true);

  auto* layout = new QGridLayout(this);
  layout->setContentsMargins(16, 16, 16, 16);
  layout->setHorizontalSpacing(16);
  layout->setVerticalSpacing(8);
  layout->addWidget(picture_, 0, 0, 2, 1, Qt::AlignTop);
  layout->addWidget(caption_, 0, 1);
  layout->addWidget(text_, 1, 1);
  layout->setRowMinimumHeight(2, 8);
  layout->addLayout(buttons, 3, 0, 1, 2);
  layout->setRowStretch(1, 1);
}

/// A text that is too long for its place scrolls; a single button stands in the middle of the two.
void MsgForm::ArrangeSkinned() {
  for (PlainTextView* view : {caption_, text_}) {
    view->setVerticalScrollBarPolicy(Qt::ScrollBarAsNeeded);
  }
  // A caption of two lines grows upwards, where there is room for it.
  const layouts::Rect& caption = layouts::RectOf(layouts::msgForm, "FormCaption");
  const int height =
      std::clamp(caption_->heightForWidth(caption.width), caption.height, highestCaption);
  caption_->setGeometry(caption.x, caption.Bottom() - height, caption.width, height);
  ArrangeButtons();
}

/// One or two, each as wide as its caption wants, in the middle of the two usual places.
void MsgForm::ArrangeButtons() {
  const layouts::Rect& cancel = layouts::RectOf(layouts::msgForm, "CancelButton");
  const layouts::Rect& ok = layouts::RectOf(layouts::msgForm, "OkButton");
  const int gap = ok.x - cancel.Right();
  const auto widthOf = [](const QAbstractButton* button) {
    const int text = button->fontMetrics().horizontalAdvance(button->text());
    return std::max(buttonWidth, text + captionRoom);
  };
  const int both = widthOf(ok_) + (cancel_ ? gap + widthOf(cancel_) : 0);
  int x = (cancel.x + ok.Right() - both) / 2;
  for (QAbstractButton* button : {cancel_, ok_}) {
    if (!button) continue;
    static_cast<SystemButton*>(button)->PlaceAt({x, ok.y, widthOf(button), ok.height});
    x += widthOf(button) + gap;
  }
}

void MsgForm::keyPressEvent(QKeyEvent* event) {
  const bool isReturn = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
  if (isReturn && !IsSimpleUI()) {
    ok_->click();
  } else {
    QDialog::keyPressEvent(event);
  }
}

void MsgForm::reject() { done(escapeCancels_ ? Rejected : Accepted); }

void MsgForm::Tick() {
  if (--ticksLeft_ == 0) done(Rejected);
}

}  // namespace ui
