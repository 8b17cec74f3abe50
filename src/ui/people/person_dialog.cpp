// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/people/person_dialog.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QSignalBlocker>
#include <QVBoxLayout>

#include <algorithm>
#include <utility>

#include "skin/look.h"
#include "ui/help/help_key.h"
#include "widgets/dialog_button.h"
#include "widgets/form_rows.h"
#include "widgets/outcome_line.h"
#include "widgets/shown_text.h"
#include "widgets/typed_text.h"

namespace ui {

using namespace Qt::StringLiterals;

namespace {

constexpr int longestName = 50;
constexpr int addressLines = 4;

QPlainTextEdit* NewAddressLines(const platform::Person& person) {
  auto* lines = new QPlainTextEdit;
  lines->setObjectName(u"Addresses"_s);
  lines->setPlaceholderText(u"name@example.org"_s);
  lines->setTabChangesFocus(true);
  lines->setLineWrapMode(QPlainTextEdit::NoWrap);
  lines->setMinimumHeight(addressLines * lines->fontMetrics().lineSpacing() + 16);
  QStringList addresses;
  for (const std::string& address : person.addresses) addresses += AsItIs(address);
  lines->setPlainText(addresses.join(u'\n'));
  QObject::connect(lines, &QPlainTextEdit::textChanged, lines, [lines] {
    const QString text = lines->toPlainText();
    if (!text.contains(u'|')) return;
    const QSignalBlocker quiet(lines);
    lines->setPlainText(QString(text).remove(u'|'));
    lines->moveCursor(QTextCursor::End);
  });
  return lines;
}

}  // namespace

PersonDialog::PersonDialog(const QString& title, const platform::Person& person, IsUsable isUsable,
                           QWidget* parent)
    : QDialog(parent),
      isUsable_(std::move(isUsable)),
      name_(new QLineEdit(AsItIs(person.name))),
      addresses_(NewAddressLines(person)),
      outcome_(new OutcomeLine),
      ok_(NewDialogButton(u"OkButton"_s, u"OK"_s)) {
  setObjectName(u"PersonDialog"_s);
  GiveHelpKey(*this, platform::HelpOfAddressBook);
  setWindowTitle(title);
  name_->setObjectName(u"PersonName"_s);
  // A longer one that came from elsewhere stays as it is.
  name_->setMaxLength(std::max(longestName, static_cast<int>(name_->text().size())));
  KeepFitForFields(name_);
  auto* form = new FormRows;
  form->AddRow(u"&Name:"_s, {name_});
  form->AddRow(u"A&ddresses,\none a line:"_s, {addresses_});
  auto* cancel = NewDialogButton(u"CancelButton"_s, u"Cancel"_s);
  ok_->setDefault(true);
  auto* buttons = new QHBoxLayout;
  buttons->setSpacing(8);
  buttons->addStretch();
  buttons->addWidget(cancel);
  buttons->addWidget(ok_);
  auto* layout = new QVBoxLayout(this);
  layout->setContentsMargins(16, 16, 16, 16);
  layout->setSpacing(16);
  layout->addLayout(form, 1);
  layout->addWidget(outcome_);
  layout->addLayout(buttons);
  resize(440, sizeHint().height());
  TakeDialogLook(*this);

  connect(name_, &QLineEdit::textChanged, this, &PersonDialog::Refresh);
  connect(addresses_, &QPlainTextEdit::textChanged, this, &PersonDialog::Refresh);
  connect(ok_, &QPushButton::clicked, this, &QDialog::accept);
  connect(cancel, &QPushButton::clicked, this, &QDialog::reject);
  Refresh();
}

platform::Person PersonDialog::Answer() const {
  platform::Person person{name_->text().trimmed().toStdString(), {}};
  for (const QString& line : addresses_->toPlainText().split(u'\n')) {
    const QString address = FitForFields(line).trimmed();
    if (!address.isEmpty()) person.addresses.push_back(address.toStdString());
  }
  return person;
}

void PersonDialog::Refresh() {
  const platform::Person person = Answer();
  const auto wrong = std::find_if_not(person.addresses.begin(), person.addresses.end(), isUsable_);
  QString remark;
  if (person.addresses.empty()) {
    remark = u"Still missing: an address such as name@example.org."_s;
  } else if (wrong != person.addresses.end()) {
    remark = u"Mail can't be sent to \"%1\"."_s.arg(Shown(*wrong));
  }
  outcome_->ShowRemark(remark);
  ok_->setEnabled(remark.isEmpty());
}

}  // namespace ui
