// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/people/sign_in_rows.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QLabel>
#include <QLineEdit>
#include <QPointer>
#include <QPushButton>

#include <utility>

#include "widgets/dialog_button.h"
#include "widgets/form_rows.h"
#include "widgets/shown_text.h"
#include "widgets/wrapped_text.h"

namespace ui {

using namespace Qt::StringLiterals;

namespace {

/// As wide as its caption, at the left of its row, which looks at that when it is made.
QPushButton* NewSignInButton() {
  QPushButton* button = NewDialogButton(u"SignInButton"_s, u"Sign in with the b&rowser..."_s);
  button->setToolTip(u"Opens your provider's own page in your browser"_s);
  button->setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
  return button;
}

/// Who signs in is one of the provider's users: what that leaves is of no use to another.
bool IsSameUser(const MailAccount& one, const MailAccount& other) {
  return one.MyAddress == other.MyAddress && one.UserName == other.UserName;
}

}  // namespace

SignInRows::SignInRows(FormRows* form, const AccountHelp& help, std::string name, QObject* parent)
    : QObject(parent),
      form_(form),
      help_(help),
      name_(std::move(name)),
      hasLapsed_(help.signInHasLapsed),
      button_(NewSignInButton()),
      note_(NewWrappedText(u"SignInNote"_s)),
      page_(new QLineEdit),
      copy_(NewDialogButton(u"CopySignInPage"_s, u"&Copy"_s)),
      buttonRow_(form->AddRow(u"Or sign in:"_s, {button_})),
      noteRow_(form->AddRow({}, {note_})),
      pageRow_(form->AddRow(u"Its pag&e:"_s, {page_, copy_})) {
  connect(button_, &QPushButton::clicked, this, &SignInRows::Pressed);
  page_->setObjectName(u"SignInPage"_s);
  page_->setReadOnly(true);
  copy_->setToolTip(u"Takes the address of the page into the clipboard"_s);
  connect(copy_, &QPushButton::clicked, page_,
          [this] { QGuiApplication::clipboard()->setText(page_->text()); });
  form->ShowRow(pageRow_, false);
}

std::string SignInRows::SecretFor(const MailAccount& account) const {
  return IsSameUser(account, owner_) ? secret_ : std::string();
}

void SignInRows::ShowFor(const MailAccount& account, bool wanted) {
  const std::string before = offer_.name;
  if (wanted) offer_ = help_.signInOffer(account);
  // A sign-in is good at one provider only.
  if (wanted && name_ != offer_.name) name_ = secret_ = "";
  if (!wanted || before != offer_.name) GiveUp();
  button_->setEnabled(offer_.isReady);
  Follow(account);
  for (const int row : {buttonRow_, noteRow_}) form_->ShowRow(row, wanted && !offer_.name.empty());
}

void SignInRows::Follow(const MailAccount& account) {
  account_ = account;
  if (isUnderWay_ && !IsSameUser(account, asked_)) GiveUp();
  if (!isUnderWay_) ShowNote();
}

void SignInRows::TakeUserName(const MailAccount& found) {
  for (MailAccount* const user : {&asked_, &owner_}) {
    if (user->MyAddress == found.MyAddress) user->UserName = found.UserName;
  }
}

bool SignInRows::IsSignedIn() const {
  MailAccount account = account_;
  account.SignIn = name_;  // also while something is typed in its place
  return !SecretFor(account).empty() || help_.hasKeptPassword(account);
}

void SignInRows::ShowNote() {
  const std::string standing = name_.empty()   ? "At " + offer_.name + ", instead of a password."
                               : !IsSignedIn() ? "There is no sign-in for this mailbox yet."
                               : hasLapsed_    ? offer_.name + " wants you to sign in again."
                                               : "You are signed in at " + offer_.name + ".";
  note_->setText(Shown(offer_.isReady ? standing + ' ' + offer_.remark : offer_.remark));
  form_->ShowRow(pageRow_, false);
}

void SignInRows::ShowPage(int number, const std::string& url) {
  if (!isUnderWay_ || number != number_) return;
  note_->setText(
      u"Did no browser come up? Then copy the page's address into one on this computer."_s);
  page_->setText(AsItIs(url));
  page_->setCursorPosition(0);
  form_->ShowRow(pageRow_, true);
}

void SignInRows::TellLapsed(bool hasLapsed) {
  hasLapsed_ = hasLapsed;
  ShowNote();
}

void SignInRows::ShowCaption(bool isAgain) {
  button_->setText(isAgain ? u"Sign in again with the b&rowser..."_s
                           : u"Sign in with the b&rowser..."_s);
}

void SignInRows::Begin(const MailAccount& account) {
  isUnderWay_ = true;
  asked_ = account;
  button_->setText(u"Stop waiting fo&r it"_s);
  const auto show = [rows = QPointer(this), number = ++number_](const std::string& url) {
    if (rows) rows->ShowPage(number, url);
  };
  help_.signIn(account, offer_.name, show,
               [rows = QPointer(this), number = number_, name = offer_.name](
                   const std::string& secret, const std::string& problem) {
                 if (rows) rows->TakeEnd(number, name, secret, problem);
               });
}

void SignInRows::GiveUp() {
  if (!std::exchange(isUnderWay_, false)) return;
  help_.giveUp();
  ShowNote();
}

void SignInRows::TakeEnd(int number, const std::string& name, const std::string& secret,
                         const std::string& problem) {
  if (!isUnderWay_ || number != number_) return;
  isUnderWay_ = false;
  if (problem.empty()) {
    name_ = name;
    secret_ = secret;
    owner_ = asked_;
    hasLapsed_ = false;
  }
  Q_EMIT Ended(problem);
}

}  // namespace ui
