// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/board/setup_warning.h"

#include <QGridLayout>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QPushButton>
#include <QTextBlock>

#include <algorithm>

#include "platform/messages.h"
#include "skin/layouts/setup_warning_layout.h"
#include "skin/look.h"
#include "skin/program_pictures.h"
#include "ui/help/help_key.h"
#include "widgets/plain_text_view.h"

namespace ui {

using namespace Qt::StringLiterals;

namespace {

constexpr int pictureSize = 48;
constexpr int plainTextWidth = 440;
constexpr int highestPlainText = 320;

QLabel* NewLine(const QString& name, const QString& text, QWidget* window) {
  auto* line = new QLabel(text, window);
  line->setObjectName(name);
  return line;
}

QFont Bold(QFont font) {
  font.setBold(true);
  return font;
}

/// Headings stand out, and a warning of two lines goes on below its own beginning.
void FormatWarnings(const PlainTextView& view) {
  for (QTextBlock block = view.document()->begin(); block.isValid(); block = block.next()) {
    const QString text = block.text();
    const auto isBlank = [](QChar c) { return c == u' '; };
    const auto blanks = std::find_if_not(text.begin(), text.end(), isBlank) - text.begin();
    QTextCursor cursor(block);
    if (blanks == 0) {
      QTextCharFormat heading;
      heading.setFontWeight(QFont::Bold);
      cursor.select(QTextCursor::BlockUnderCursor);
      cursor.mergeCharFormat(heading);
      continue;
    }
    const qreal indent = view.fontMetrics().horizontalAdvance(text.first(blanks));
    QTextBlockFormat hanging;
    hanging.setLeftMargin(indent);
    hanging.setTextIndent(-indent);
    cursor.mergeBlockFormat(hanging);
  }
}

}  // namespace

SetupWarningForm::SetupWarningForm(const QString& warnings, QWidget* parent)
    : QDialog(parent),
      picture_(NewLine(u"MessageIcon"_s, {}, this)),
      caption_(NewLine(u"FormCaption"_s, u"No game is likely to lead to this position."_s, this)),
      instructions_(
          NewLine(u"Instructions_L"_s, u"OK plays it all the same, Cancel goes back."_s, this)),
      WarningMessage_(new PlainTextView(this)) {
  setObjectName(u"SetupWarningForm"_s);
  setWindowTitle(u"Setup warnings"_s);
  GiveHelpKey(*this, platform::HelpOfBoard);
  picture_->setPixmap(MessagePicture(platform::SetupIcon, pictureSize));
  WarningMessage_->setObjectName(u"WarningMessage"_s);
  WarningMessage_->setAccessibleName(windowTitle());
  WarningMessage_->setVerticalScrollBarPolicy(Qt::ScrollBarAsNeeded);
  WarningMessage_->SetText(warnings);
  AddButtons();
  TakeLook(*this, layouts::setupWarning, [this] { SetSimpleUI(); });
  // Behind the look, which chooses the font.
  caption_->setFont(Bold(caption_->font()));
  FormatWarnings(*WarningMessage_);
  if (IsSimpleUI()) {
    WarningMessage_->setMinimumSize(
        plainTextWidth,
        std::min(WarningMessage_->heightForWidth(plainTextWidth), highestPlainText));
  }
  ok_->setFocus();
}

void SetupWarningForm::AddButtons() {
  cancel_ = NewButton(*this, {"CancelButton", "CancelButtonS"}, u"Cancel"_s);
  connect(cancel_, &QAbstractButton::clicked, this, &QDialog::reject);
  ok_ = NewButton(*this, {"OkButton", "OKButtonS"}, u"OK"_s);
  connect(ok_, &QAbstractButton::clicked, this, [this] {
    FormCanceled = false;
    accept();
  });
}

void SetupWarningForm::SetSimpleUI() {
  QHBoxLayout* buttons = NewButtonRow({cancel_, ok_});
  static_cast<QPushButton*>(ok_)->setDefault(true);

  auto* layout = new QGridLayout(this);
  layout->setContentsMargins(16, 16, 16, 16);
  layout->setHorizontalSpacing(16);
  layout->setVerticalSpacing(4);
  layout->addWidget(picture_, 0, 0, 4, 1, Qt::AlignTop);
  layout->addWidget(caption_, 0, 1);
  layout->addWidget(instructions_, 1, 1);
  layout->setRowMinimumHeight(2, 8);
  layout->addWidget(WarningMessage_, 3, 1);
  layout->setRowStretch(3, 1);
  layout->setRowMinimumHeight(4, 8);
  layout->addLayout(buttons, 5, 0, 1, 2);
}

void SetupWarningForm::keyPressEvent(QKeyEvent* event) {
  const bool isReturn = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
  if (isReturn && !IsSimpleUI()) {
    ok_->click();
  } else {
    QDialog::keyPressEvent(event);
  }
}

}  // namespace ui
