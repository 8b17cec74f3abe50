// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/msg_form.h"

#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QScreen>
#include <QTimer>

#include <algorithm>

#include "ui/plain_text_view.h"
#include "ui/program_pictures.h"
#include "ui/shown_text.h"

namespace ui {

using namespace Qt::StringLiterals;

namespace {

constexpr int tickMilliseconds = 30000;
constexpr int pictureSize = 48;
constexpr int narrowestText = 280;
constexpr int widestText = 440;
constexpr int buttonWidth = 96;
constexpr int buttonHeight = 28;

QLabel* NewPicture(int icon) {
  auto* picture = new QLabel;
  picture->setObjectName(u"MessageIcon"_s);
  picture->setPixmap(MessagePicture(icon, pictureSize));
  return picture;
}

PlainTextView* NewText(const QString& name, const QString& text, bool bold) {
  auto* view = new PlainTextView;
  view->setObjectName(name);
  QFont font = view->font();
  font.setBold(bold);
  view->setFont(font);
  view->SetText(text);
  return view;
}

QPushButton* NewButton(const QString& name, const std::string& caption) {
  auto* button = new QPushButton(Shown(caption));
  button->setObjectName(name);
  button->setMinimumSize(buttonWidth, buttonHeight);
  return button;
}

/// As wide as the longest line, within bounds; as high as the text, but never beyond the screen.
void SizeText(PlainTextView* view, const QScreen* screen) {
  const int natural = view->fontMetrics().size(0, view->toPlainText()).width() + 8;
  const int width = std::clamp(natural, narrowestText, widestText);
  const int highest = screen ? screen->availableGeometry().height() / 2 : 400;
  const int height = view->heightForWidth(width);
  view->setMinimumSize(width, std::min(height, highest));
  if (height > highest) view->setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOn);
}

}  // namespace

MsgForm::MsgForm(const platform::Message& message, QWidget* parent)
    : QDialog(parent),
      offersCancel_(!message.cancelCaption.empty()),
      ticksLeft_(message.timeoutTicks) {
  setObjectName(u"MsgForm"_s);
  setWindowTitle(u"Tarvolenix"_s);
  auto* caption = NewText(u"FormCaption"_s, Shown(message.title), true);
  auto* text = NewText(u"Message"_s, Shown(message.text), false);
  for (PlainTextView* view : {caption, text}) SizeText(view, screen());

  auto* buttons = new QHBoxLayout;
  buttons->setSpacing(8);
  buttons->addStretch();
  if (offersCancel_) {
    QPushButton* cancel = NewButton(u"CancelButtonS"_s, message.cancelCaption);
    connect(cancel, &QPushButton::clicked, this, &QDialog::reject);
    buttons->addWidget(cancel);
  }
  QPushButton* ok = NewButton(u"OKButtonS"_s, message.okCaption);
  connect(ok, &QPushButton::clicked, this, &QDialog::accept);
  ok->setDefault(true);
  buttons->addWidget(ok);
  if (!offersCancel_) buttons->addStretch();

  auto* layout = new QGridLayout(this);
  layout->setContentsMargins(16, 16, 16, 16);
  layout->setHorizontalSpacing(16);
  layout->setVerticalSpacing(8);
  layout->addWidget(NewPicture(message.icon), 0, 0, 2, 1, Qt::AlignTop);
  layout->addWidget(caption, 0, 1);
  layout->addWidget(text, 1, 1);
  layout->setRowMinimumHeight(2, 8);
  layout->addLayout(buttons, 3, 0, 1, 2);
  layout->setRowStretch(1, 1);
  ok->setFocus();

  if (ticksLeft_ > 0) {
    auto* ticker = new QTimer(this);
    ticker->setObjectName(u"TimeoutTicker"_s);
    connect(ticker, &QTimer::timeout, this, &MsgForm::Tick);
    ticker->start(tickMilliseconds);
  }
}

void MsgForm::reject() { done(offersCancel_ ? Rejected : Accepted); }

void MsgForm::Tick() {
  if (--ticksLeft_ == 0) done(Rejected);
}

}  // namespace ui
