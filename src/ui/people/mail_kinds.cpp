// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/people/mail_kinds.h"

#include <QButtonGroup>
#include <QLabel>
#include <QRadioButton>
#include <QVBoxLayout>

#include "widgets/wrapped_text.h"

namespace ui {

using namespace Qt::StringLiterals;

namespace {

struct KindRow {
  const char* kind;  ///< as it is stored
  const char* caption;
  const char* explanation;
};

constexpr KindRow kindRows[] = {
    {"Post", "A &post office on this computer",
     "No server and no password: everybody who uses the same post folder, on this computer or on a "
     "shared one, can play with you. The one that is proposed is for players who share your "
     "log-in; with others choose a folder that all of you may write to."},
    {"Imap", "My &mailbox at a mail provider",
     "Your moves travel as ordinary mails, by IMAP and SMTP. Tarvolenix touches no mails but those "
     "of its own games."},
    {"System", "This computer's own mail s&ystem",
     "For computers that deliver mail themselves, into the folder Maildir, and send it with the "
     "command sendmail. If you don't know of one, it is not for you."},
};

}  // namespace

MailKinds::MailKinds(const std::string& kind, QWidget* parent)
    : QWidget(parent),
      buttons_(new QButtonGroup(this)),
      explanation_(NewWrappedText(u"Explanation"_s)) {
  auto* column = new QVBoxLayout(this);
  column->setContentsMargins(0, 0, 0, 0);
  column->setSpacing(4);
  QLabel* question = NewWrappedText(
      u"Question"_s, u"Games are played by mail. Which way shall your moves travel?"_s);
  QFont font = question->font();
  font.setBold(true);
  question->setFont(font);
  column->addWidget(question);
  column->addSpacing(4);
  for (const KindRow& row : kindRows) {
    auto* button = new QRadioButton(QLatin1StringView(row.caption));
    button->setObjectName(QLatin1StringView(row.kind));
    button->setMinimumHeight(24);
    buttons_->addButton(button);
    column->addWidget(button);
    if (buttons_->buttons().size() == 1 || row.kind == kind) button->setChecked(true);
  }
  column->addSpacing(4);
  column->addWidget(explanation_);
  Explain();
  connect(buttons_, &QButtonGroup::buttonClicked, this, [this] {
    Explain();
    Q_EMIT Changed();
  });
}

std::string MailKinds::Kind() const {
  return buttons_->checkedButton()->objectName().toStdString();
}

void MailKinds::Explain() {
  for (const KindRow& row : kindRows) {
    if (Kind() == row.kind) explanation_->setText(QLatin1StringView(row.explanation));
  }
}

}  // namespace ui
