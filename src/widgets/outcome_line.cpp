// SPDX-License-Identifier: GPL-3.0-or-later
#include "widgets/outcome_line.h"

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

QColor Green(const QPalette& palette) { return IsDark(palette) ? 0x6fcf7f : 0x1a6b2f; }
QColor Red(const QPalette& palette) { return IsDark(palette) ? 0xff8a80 : 0xb3201a; }

}  // namespace

OutcomeLine::OutcomeLine(QWidget* parent)
    : QWidget(parent), sign_(new QLabel), busy_(new QProgressBar), text_(new PlainTextView) {
  text_->setObjectName(u"OutcomeText"_s);
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

void OutcomeLine::Show(const QString& text, const QColor& colour) {
  QPalette palette = text_->palette();
  palette.setColor(QPalette::Text, colour);
  text_->setPalette(palette);
  text_->SetText(text);
  setVisible(!text.isEmpty());
}

void OutcomeLine::ShowRemark(const QString& text) {
  sign_->hide();
  busy_->hide();
  Show(text, palette().color(QPalette::WindowText));
}

void OutcomeLine::ShowBusy(const QString& text) {
  ShowRemark(text);
  busy_->show();
}

void OutcomeLine::ShowSigned(QStyle::StandardPixmap sign, const QString& text,
                             const QColor& colour) {
  busy_->hide();
  sign_->setPixmap(style()->standardIcon(sign).pixmap(signSize));
  sign_->show();
  Show(text, colour);
}

void OutcomeLine::ShowSuccess(const QString& text) {
  ShowSigned(QStyle::SP_DialogApplyButton, text, Green(palette()));
}

void OutcomeLine::ShowFailure(const QString& text) {
  ShowSigned(QStyle::SP_DialogCancelButton, text, Red(palette()));
}

}  // namespace ui
