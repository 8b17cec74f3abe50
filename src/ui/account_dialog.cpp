// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/account_dialog.h"

#include <QApplication>
#include <QFileDialog>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

#include <utility>

#include "ui/pointers.h"
#include "ui/shown_text.h"
#include "ui/typed_text.h"

namespace ui {

using namespace Qt::StringLiterals;

namespace {

constexpr int longestName = 50;
constexpr int longestAddress = 255;

QLineEdit* NewField(const QString& name, const std::string& text, int longest) {
  auto* field = new QLineEdit(Shown(text));
  field->setObjectName(name);
  field->setMaxLength(longest);
  KeepFitForFields(field);
  return field;
}

std::string Trimmed(const QLineEdit& field) { return field.text().trimmed().toStdString(); }

}  // namespace

AccountDialog::AccountDialog(const AccountAnswer& suggestion, AddressCheck isAddress,
                             QWidget* parent)
    : QDialog(parent),
      isAddress_(std::move(isAddress)),
      name_(NewField(u"MyName"_s, suggestion.name, longestName)),
      address_(NewField(u"MyAddress"_s, suggestion.address, longestAddress)),
      postFolder_(NewField(u"PostFolder"_s, suggestion.postFolder, 4096)) {
  setObjectName(u"AccountDialog"_s);
  setWindowTitle(u"Tarvolenix - Your mail"_s);
  LayOut();
  Refresh();
  // What is only suggested makes room for the first key.
  name_->setFocus();
  name_->selectAll();
}

void AccountDialog::LayOut() {
  auto* explanation = new QLabel(
      u"Games are played by mail, so your opponents need to know who you are. Moves travel through "
      u"a post office on this computer, which needs no server and no password: everybody who uses "
      u"the same post folder, on this machine or on a shared one, can play with you."_s);
  explanation->setTextFormat(Qt::PlainText);
  explanation->setWordWrap(true);

  auto* browse = new QPushButton(u"&Browse..."_s);
  browse->setObjectName(u"BrowseButton"_s);
  connect(browse, &QPushButton::clicked, this, &AccountDialog::Browse);
  auto* folder = new QHBoxLayout;
  folder->setSpacing(8);
  folder->addWidget(postFolder_, 1);
  folder->addWidget(browse);

  auto* form = new QFormLayout;
  form->setFieldGrowthPolicy(QFormLayout::AllNonFixedFieldsGrow);
  form->setVerticalSpacing(8);
  form->setHorizontalSpacing(16);
  form->addRow(u"Mail service:"_s, new QLabel(u"Local post office"_s));
  form->addRow(u"Your &name:"_s, name_);
  form->addRow(u"Your &address:"_s, address_);
  form->addRow(QString(), new QLabel(u"Such as anna or anna@example.org, without blanks"_s));
  auto* folderLabel = new QLabel(u"&Post folder:"_s);
  folderLabel->setBuddy(postFolder_);
  form->addRow(folderLabel, folder);
  address_->setPlaceholderText(u"name@example.org"_s);

  ok_ = new QPushButton(u"OK"_s);
  ok_->setObjectName(u"OkButton"_s);
  ok_->setDefault(true);
  connect(ok_, &QPushButton::clicked, this, &QDialog::accept);
  auto* cancel = new QPushButton(u"Cancel"_s);
  cancel->setObjectName(u"CancelButton"_s);
  connect(cancel, &QPushButton::clicked, this, &QDialog::reject);
  auto* buttons = new QHBoxLayout;
  buttons->setSpacing(8);
  buttons->addStretch();
  for (QPushButton* button : {cancel, ok_}) {
    button->setMinimumSize(96, 28);
    buttons->addWidget(button);
  }
  for (QLineEdit* field : {name_, address_, postFolder_}) {
    connect(field, &QLineEdit::textChanged, this, &AccountDialog::Refresh);
  }

  auto* layout = new QVBoxLayout(this);
  layout->setContentsMargins(16, 16, 16, 16);
  layout->setSpacing(16);
  layout->addWidget(explanation);
  layout->addLayout(form);
  layout->addStretch();
  layout->addLayout(buttons);
  setMinimumWidth(480);
}

void AccountDialog::Refresh() {
  const AccountAnswer answer = Answer();
  ok_->setEnabled(!answer.name.empty() && !answer.postFolder.empty() && !answer.address.empty() &&
                  isAddress_(answer.address));
}

void AccountDialog::Browse() {
  const QString folder =
      QFileDialog::getExistingDirectory(this, u"Post folder"_s, postFolder_->text());
  if (!folder.isEmpty()) postFolder_->setText(folder);
}

AccountAnswer AccountDialog::Answer() const {
  AccountAnswer answer{Trimmed(*name_), Trimmed(*address_), Trimmed(*postFolder_)};
  if (!answer.postFolder.empty() && !answer.postFolder.ends_with('/')) answer.postFolder += '/';
  return answer;
}

std::optional<AccountAnswer> AskForAccount(const AccountAnswer& suggestion,
                                           const AddressCheck& isAddress) {
  const OtherPointer arrow(Qt::ArrowCursor);
  AccountDialog dialog(suggestion, isAddress, QApplication::activeWindow());
  if (dialog.exec() != QDialog::Accepted) return std::nullopt;
  return dialog.Answer();
}

}  // namespace ui
