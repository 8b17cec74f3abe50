// SPDX-License-Identifier: GPL-3.0-or-later
#include "widgets/outcome_line.h"

#include <QEvent>
#include <QHBoxLayout>
#include <QLabel>
#include <QProgressBar>

#include "widgets/plain_text_view.h"

namespace ui {

using namespace Qt::StringLiterals;

namespace {

constexpr int signSize = 20;
constexpr int mostLines = 8;

bool IsDark(const QPalette& palette) { return palette.color(QPalette::Window).lightness() < 128; }

QColor Plain(const QPalette& palette) { return palette.color(QPalette::WindowText); }
QColor Green(const QPalette& palette) { return IsDark(palette) ? 0x6fcf7f : 0x1a6b2f; }
QColor Red(const QPalette& palette) { return IsDark(palette) ? 0xff8a80 : 0xb3201a; }

}  // namespace

OutcomeLine::OutcomeLine(QWidget* parent)
    : QWidget(parent), sign_(new QLabel), busy_(new QProgressBar), text_(new PlainTextView) {
  text_->setObjectName(u"OutcomeText"_s);
  text_->setAccessibleName(u"What has come of it"_s);
  text_->SetMostLines(mostLines);
  busy_->setRange(0, 0);
  busy_->setTextVisible(false);
  busy_->setFixedSize(64, 12);
  auto* layout = new QHBoxLayout(this);
  layout->setContentsMargins({});
  layout->setSpacing(8);
  layout->addWidget(sign_, 0, Qt::AlignTop);
  layout->addWidget(busy_, 0, Qt::AlignVCenter);
  layout->addWidget(text_, 1);
  ShowRemark({});
}

void OutcomeLine::Show(const QString& text, Colour colour) {
  colour_ = colour;
  ColourText();
  text_->SetText(text);
  setVisible(!text.isEmpty());
}

void OutcomeLine::ColourText() {
  QPalette palette = text_->palette();
  palette.setColor(QPalette::Text, colour_(this->palette()));
  text_->setPalette(palette);
}

void OutcomeLine::changeEvent(QEvent* event) {
  QWidget::changeEvent(event);
  if (event->type() == QEvent::PaletteChange && colour_) ColourText();
}

void OutcomeLine::ShowRemark(const QString& text) {
  sign_->hide();
  busy_->hide();
  Show(text, Plain);
}

void OutcomeLine::ShowBusy(const QString& text) {
  ShowRemark(text);
  busy_->show();
}

void OutcomeLine::ShowSigned(QStyle::StandardPixmap sign, const QString& text, Colour colour) {
  busy_->hide();
  sign_->setPixmap(style()->standardIcon(sign).pixmap(signSize));
  sign_->show();
  Show(text, colour);
}

void OutcomeLine::ShowSuccess(const QString& text) {
  ShowSigned(QStyle::SP_DialogApplyButton, text, Green);
}

void OutcomeLine::ShowFailure(const QString& text) {
  ShowSigned(QStyle::SP_DialogCancelButton, text, Red);
}

}  // namespace ui
