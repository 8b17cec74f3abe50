// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/people/person_dialog.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

#include <algorithm>
#include <utility>

#include "skin/look.h"
#include "ui/help/help_key.h"
#include "widgets/dialog_button.h"
#include "widgets/form_rows.h"
#include "widgets/outcome_line.h"
#include "widgets/shown_text.h"
#include "widgets/tool_tips.h"
#include "widgets/typed_text.h"

namespace ui {

using namespace Qt::StringLiterals;

namespace {

constexpr int longestPersonsName = 50;

/// In one line, so that Enter is OK.
QLineEdit* NewAddressField(const platform::Person& person) {
  QStringList addresses;
  for (const std::string& address : person.addresses) addresses += AsItIs(address);
  auto* field = new QLineEdit(addresses.join(u", "_s));
  field->setObjectName(u"Addresses"_s);
  field->setPlaceholderText(u"name@example.org"_s);
  SetTip(*field, "Where somebody has several addresses: with a comma between each two");
  KeepFitForFields(field);
  return field;
}

}  // namespace

PersonDialog::PersonDialog(const QString& title, const platform::Person& person, IsUsable isUsable,
                           QWidget* parent)
    : QDialog(parent),
      isUsable_(std::move(isUsable)),
      name_(new QLineEdit(AsItIs(person.name))),
      addresses_(NewAddressField(person)),
      outcome_(new OutcomeLine),
      ok_(NewDialogButton(u"OkButton"_s, u"OK"_s)) {
  setObjectName(u"PersonDialog"_s);
  GiveHelpKey(*this, platform::HelpOfAddressBook);
  setWindowTitle(title);
  name_->setObjectName(u"PersonName"_s);
  // A longer one that came from elsewhere stays as it is.
  name_->setMaxLength(std::max(longestPersonsName, static_cast<int>(name_->text().size())));
  KeepFitForFields(name_);
  auto* form = new FormRows;
  form->AddRow(u"&Name:"_s, {name_});
  form->AddRow(u"A&ddress:"_s, {addresses_});
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
  layout->addLayout(form);
  layout->addWidget(outcome_);
  layout->addLayout(buttons);
  resize(440, sizeHint().height());
  TakeDialogLook(*this);

  connect(name_, &QLineEdit::textChanged, this, &PersonDialog::Refresh);
  connect(addresses_, &QLineEdit::textChanged, this, &PersonDialog::Refresh);
  connect(ok_, &QPushButton::clicked, this, &QDialog::accept);
  connect(cancel, &QPushButton::clicked, this, &QDialog::reject);
  Refresh();
}

platform::Person PersonDialog::Answer() const {
  platform::Person person{name_->text().trimmed().toStdString(), {}};
  for (const QString& part : addresses_->text().split(u',')) {
    const QString address = part.trimmed();
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
