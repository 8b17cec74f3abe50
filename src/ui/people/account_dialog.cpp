// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/people/account_dialog.h"

#include <QApplication>
#include <QCheckBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPointer>
#include <QPushButton>
#include <QScreen>
#include <QToolButton>
#include <QVBoxLayout>

#include <algorithm>
#include <utility>

#include "skin/file_dialog.h"
#include "skin/look.h"
#include "ui/help/help_key.h"
#include "ui/people/mail_kinds.h"
#include "ui/people/provider_search.h"
#include "ui/people/server_fields.h"
#include "ui/people/sign_in_rows.h"
#include "widgets/dialog_button.h"
#include "widgets/form_rows.h"
#include "widgets/outcome_line.h"
#include "widgets/pointers.h"
#include "widgets/scrolling_page.h"
#include "widgets/shown_text.h"
#include "widgets/typed_text.h"
#include "widgets/wrapped_text.h"

namespace ui {

using namespace Qt::StringLiterals;

namespace {

constexpr int longestName = 50;
constexpr int longestAddress = 255;
constexpr int usualWidth = 640;

QLineEdit* NewField(const QString& name, const std::string& text, int longest) {
  auto* field = new QLineEdit(AsItIs(text));
  field->setObjectName(name);
  field->setMaxLength(longest);
  KeepFitForFields(field);
  return field;
}

std::string Trimmed(const QLineEdit& field) { return field.text().trimmed().toStdString(); }

bool HasDomain(const QString& address) { return address.trimmed().section(u'@', 1).contains(u'.'); }

}  // namespace

AccountDialog::AccountDialog(const MailAccount& suggestion, AccountHelp help, QWidget* parent)
    : QDialog(parent),
      suggestion_(suggestion),
      help_(std::move(help)),
      serversAreGuessed_((suggestion.ImapHost.empty() && suggestion.SmtpHost.empty()) ||
                         help_.guess(suggestion).account == suggestion),
      search_(new ProviderSearch(
          help_, suggestion.ImapHost.empty() ? std::string() : suggestion.MyAddress, this)),
      kinds_(new MailKinds(suggestion.MailKind)),
      form_(new FormRows),
      name_(NewField(u"MyName"_s, suggestion.MyName, longestName)),
      address_(NewField(u"MyAddress"_s, suggestion.MyAddress, longestAddress)),
      postFolder_(NewField(u"PostFolder"_s, suggestion.PostFolder, 4096)),
      password_(new QLineEdit),
      providerNote_(NewWrappedText(u"ProviderNote"_s)),
      fold_(new QToolButton),
      sendPage_(new QCheckBox),
      outcome_(new OutcomeLine),
      test_(NewDialogButton(u"TestButton"_s, u"&Test"_s)),
      ok_(NewDialogButton(u"OkButton"_s, u"OK"_s)) {
  setObjectName(u"AccountDialog"_s);
  GiveHelpKey(*this, platform::HelpOfAccount);
  setWindowTitle(u"Tarvolenix - Your mail"_s);
  outcome_->setObjectName(u"Outcome"_s);
  auto* layout = new QVBoxLayout(this);
  layout->setContentsMargins(0, 0, 0, 16);
  layout->setSpacing(0);
  auto* page = new ScrollingPage(NewPage());
  layout->addWidget(page, 1);
  layout->addLayout(NewButtons());
  Connect();
  servers_->ShowAccount(suggestion_);
  if (suggestion_.ImapHost.empty()) DropLocalAddress();
  ShowProvider();
  TakeDialogLook(*this);
  page->Settle();  // a window that changes its size while it comes up loses its place
  FitHeight();
  // What is only suggested makes room for the first key.
  name_->setFocus();
  name_->selectAll();
}

QWidget* AccountDialog::NewPage() {
  auto* page = new QWidget;
  auto* column = new QVBoxLayout(page);
  column->setContentsMargins(16, 16, 16, 8);
  column->setSpacing(16);
  column->addWidget(kinds_);
  column->addLayout(form_);
  column->addStretch();
  AddRows();
  AddServerRows();
  AddPageRow();
  return page;
}

/// A field that loses the keyboard while the window goes would still tell what was typed.
AccountDialog::~AccountDialog() {
  for (QObject* child : findChildren<QObject*>()) child->disconnect(this);
}

void AccountDialog::AddRows() {
  address_->setPlaceholderText(u"name@example.org"_s);
  form_->AddRow(u"Your &name:"_s, {name_});
  form_->AddRow(u"Your &address:"_s, {address_});

  auto* browse = NewDialogButton(u"BrowseButton"_s, u"&Browse..."_s);
  connect(browse, &QPushButton::clicked, this, &AccountDialog::Browse);
  postFolderRow_ = form_->AddRow(u"Post &folder:"_s, {postFolder_, browse});

  password_->setObjectName(u"Password"_s);
  password_->setEchoMode(QLineEdit::Password);
  auto* show = new QCheckBox(u"&Show"_s);
  show->setObjectName(u"ShowPassword"_s);
  show->setToolTip(u"Shows the password while you type it"_s);
  connect(show, &QCheckBox::toggled, password_, [this](bool shown) {
    password_->setEchoMode(shown ? QLineEdit::Normal : QLineEdit::Password);
  });
  passwordRow_ = form_->AddRow(u"Pass&word:"_s, {password_, show});
  signIn_ = new SignInRows(form_, help_, suggestion_.SignIn, this);
  connect(signIn_, &SignInRows::Pressed, this, &AccountDialog::SignIn);
  connect(signIn_, &SignInRows::Ended, this, &AccountDialog::TellSignedIn);
}

void AccountDialog::AddPageRow() {
  sendPage_->setObjectName(u"SendPage"_s);
  sendPage_->setText(u"Send a page with the boar&d beside each move"_s);
  sendPage_->setToolTip(
      u"Who opens your move in a mail program sees the board and your words, too"_s);
  sendPage_->setChecked(suggestion_.SendPage);
  form_->AddRow({}, {sendPage_});
}

void AccountDialog::AddServerRows() {
  noteRow_ = form_->AddRow({}, {providerNote_});
  fold_->setObjectName(u"ServerFold"_s);
  fold_->setText(u"Server settin&gs"_s);
  fold_->setToolTip(u"For most providers they are found by themselves"_s);
  fold_->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
  fold_->setAutoRaise(true);
  fold_->setFocusPolicy(Qt::StrongFocus);
  foldRow_ = form_->AddRow({}, {fold_});
  servers_ = new ServerFields(form_, this);
}

QLayout* AccountDialog::NewButtons() {
  test_->setToolTip(u"Signs on at your mail service, without changing anything there"_s);
  connect(test_, &QPushButton::clicked, this, &AccountDialog::Test);
  ok_->setDefault(true);
  connect(ok_, &QPushButton::clicked, this, &QDialog::accept);
  auto* cancel = NewDialogButton(u"CancelButton"_s, u"Cancel"_s);
  connect(cancel, &QPushButton::clicked, this, &QDialog::reject);
  auto* buttons = new QHBoxLayout;
  buttons->setSpacing(8);
  buttons->addWidget(test_);
  buttons->addStretch();
  buttons->addWidget(cancel);
  buttons->addWidget(ok_);
  auto* column = new QVBoxLayout;
  column->setContentsMargins(16, 8, 16, 0);
  column->setSpacing(16);
  column->addWidget(outcome_);
  column->addLayout(buttons);
  return column;
}

void AccountDialog::Connect() {
  connect(kinds_, &MailKinds::Changed, this, &AccountDialog::ChangeKind);
  connect(address_, &QLineEdit::textChanged, this, &AccountDialog::ChangeAddress);
  connect(address_, &QLineEdit::editingFinished, this, &AccountDialog::ShowProvider);
  for (const QLineEdit* field : {name_, postFolder_}) {
    connect(field, &QLineEdit::textChanged, this, &AccountDialog::Refresh);
  }
  connect(password_, &QLineEdit::textChanged, this, &AccountDialog::ChangeSecret);
  connect(servers_, &ServerFields::ServersEdited, this, [this] {
    serversAreGuessed_ = false;
    ShowProvider();
  });
  connect(servers_, &ServerFields::TokenCommandEdited, this, &AccountDialog::ChangeSecret);
  connect(search_, &ProviderSearch::Ended, this, &AccountDialog::TellFound);
  connect(fold_, &QToolButton::clicked, this, [this] {
    foldIsUsers_ = true;
    isOpen_ = !isOpen_;
    ShowRows();
  });
}

bool AccountDialog::event(QEvent* event) {
  const bool handled = QDialog::event(event);
  if (event->type() == QEvent::LayoutRequest) FitHeight();
  return handled;
}

bool AccountDialog::IsKind(const char* kind) const { return kinds_->Kind() == kind; }

AccountAnswer AccountDialog::Answer() const {
  AccountAnswer answer{suggestion_, {}};
  MailAccount& account = answer.account;
  account.MailKind = kinds_->Kind();
  account.MyName = Trimmed(*name_);
  account.MyAddress = Trimmed(*address_);
  account.SendPage = sendPage_->isChecked();
  if (IsKind("Post")) {
    account.PostFolder = Trimmed(*postFolder_);
    if (!account.PostFolder.empty() && !account.PostFolder.ends_with('/')) {
      account.PostFolder += '/';
    }
  }
  if (!IsKind("Imap")) return answer;
  servers_->FillIn(account);
  account.SignIn =
      account.TokenCommand.empty() && password_->text().isEmpty() ? signIn_->Name() : "";
  if (account.TokenCommand.empty() && !password_->text().isEmpty()) {
    answer.password = password_->text().toStdString();
  } else if (const std::string secret = signIn_->SecretFor(account);
             !account.SignIn.empty() && !secret.empty()) {
    answer.password = secret;
  }
  return answer;
}

/// The first thing that an account can't be without.
QString AccountDialog::WhatIsMissing() const {
  const auto [account, password] = Answer();
  if (account.MyName.empty()) return u"your name"_s;
  if (account.MyAddress.empty()) return u"your address"_s;
  if (!help_.hasUsableAddress(account)) return u"an address such as name@example.org"_s;
  if (IsKind("Post") && account.PostFolder.empty()) return u"a post folder"_s;
  if (!IsKind("Imap")) return {};
  if (account.ImapHost.empty() || account.SmtpHost.empty()) return u"the names of the servers"_s;
  if (account.UserName.empty()) return u"your user name at the servers"_s;
  const bool needsPassword = account.TokenCommand.empty() && !password;
  if (needsPassword && !help_.hasKeptPassword(account)) {
    return signIn_->IsOffered() ? u"your password, or a sign-in"_s : u"your password"_s;
  }
  return {};
}

/// A folder that depends on where the program starts is nobody's wish, but may be an old account's.
bool AccountDialog::HasWholePath() const {
  const QString folder = postFolder_->text().trimmed();
  return folder.startsWith(u'/') || folder == AsItIs(suggestion_.PostFolder);
}

/// A sentence on what keeps the account from being used; a blank one where nothing does.
QString AccountDialog::WhatIsWrong() const {
  const QString missing = WhatIsMissing();
  if (missing.isEmpty() && IsKind("Post") && !HasWholePath()) {
    return u"The post folder needs its whole path, such as /home/shared/post."_s;
  }
  return missing.isEmpty() ? missing : u"Still missing: %1."_s.arg(missing);
}

void AccountDialog::ChangeKind() {
  DropLocalAddress();
  ShowProvider();
  ShowRows();
}

/// The address that this machine gives its user is of no use elsewhere.
void AccountDialog::DropLocalAddress() {
  const QString local = AsItIs(suggestion_.MyAddress);
  if (local.endsWith(u"@localhost"_s)) {
    if (IsKind("Imap") && address_->text() == local) address_->clear();
    if (!IsKind("Imap") && address_->text().isEmpty()) address_->setText(local);
  }
}

void AccountDialog::ChangeAddress() {
  if (serversAreGuessed_) GuessServers();
  Refresh();
}

/// Who types one doesn't wait for a sign-in.
void AccountDialog::ChangeSecret() {
  signIn_->GiveUp();
  ShowNote();
  Refresh();
}

void AccountDialog::GuessServers() {
  MailAccount account = suggestion_;
  servers_->FillIn(account);
  account.MyAddress = Trimmed(*address_);
  servers_->ShowAccount(search_->Guess(account).account);
}

/// Never for servers that somebody has chosen, nor beside a sign-in: one would end the other.
void AccountDialog::LookUpServers() {
  if (signIn_->IsUnderWay() || !IsKind("Imap") || !serversAreGuessed_) return;
  if (HasDomain(address_->text())) search_->Begin(Answer().account);
}

bool AccountDialog::IsLookingUp() const {
  return IsKind("Imap") && serversAreGuessed_ && search_->IsUnderWayFor(Trimmed(*address_));
}

/// Who has pressed Test meanwhile waits for what is tested.
void AccountDialog::TellFound(const std::string& address, bool isFound) {
  const bool wantsTest = testing_;
  // The sign-in that has ended the search is done first.
  if (signIn_->IsUnderWay() && !isFound) search_->Forget();
  if (!IsKind("Imap") || !serversAreGuessed_ || Trimmed(*address_) != address) return;
  GuessServers();
  signIn_->TakeUserName(Answer().account);
  ShowProvider();
  if (wantsTest && test_->isEnabled()) Test();
}

/// What is known about the address's provider. Advice on passwords is for those who use one.
QString AccountDialog::ProviderNote() const {
  if (!serversAreGuessed_ || !HasDomain(address_->text())) return {};
  if (IsLookingUp()) return u"Looking for your provider's servers..."_s;
  const MailAccount account = Answer().account;
  const ProviderGuess guess = search_->Guess(account);
  const bool hasPassword =
      account.TokenCommand.empty() && (account.SignIn.empty() || !signIn_->IsSignedIn());
  if (guess.isKnown) return hasPassword ? Shown(guess.advice) : QString();
  return u"Guessed: please press Test. If it fails, look for \"IMAP\" in your provider's help, and "
         u"type the names that you find."_s;
}

void AccountDialog::ShowNote() {
  providerNote_->setText(ProviderNote());
  form_->ShowRow(noteRow_, IsKind("Imap") && !providerNote_->text().isEmpty());
}

/// The servers of an unknown provider, and those that the user has chosen, are better seen.
void AccountDialog::ShowProvider() {
  LookUpServers();
  if (serversAreGuessed_) GuessServers();
  const bool isUnknown =
      !serversAreGuessed_ || !(search_->Guess(Answer().account).isKnown || IsLookingUp());
  if (!foldIsUsers_) isOpen_ = isUnknown && HasDomain(address_->text());
  ShowRows();
}

void AccountDialog::ShowRows() {
  const bool imap = IsKind("Imap");
  form_->ShowRow(postFolderRow_, IsKind("Post"));
  form_->ShowRow(passwordRow_, imap);
  signIn_->ShowFor(Answer().account, imap);
  ShowNote();
  form_->ShowRow(foldRow_, imap);
  fold_->setArrowType(isOpen_ ? Qt::DownArrow : Qt::RightArrow);
  servers_->SetVisible(imap && isOpen_);
  test_->setVisible(!IsKind("Post"));
  Refresh();
}

/// What was found out about the account before it was changed counts no more.
void AccountDialog::Refresh() {
  testing_ = false;
  const AccountAnswer answer = Answer();
  signIn_->Follow(answer.account);
  if (signIn_->IsUnderWay()) return;
  test_->setText(u"&Test"_s);
  const bool token = !answer.account.TokenCommand.empty();
  password_->setEnabled(!token);
  signIn_->ShowCaption(!answer.account.SignIn.empty());
  const bool stands = !answer.account.SignIn.empty() && signIn_->IsSignedIn();
  password_->setPlaceholderText(token    ? u"the token command stands for it"_s
                                : stands ? u"the sign-in stands for it"_s
                                : help_.hasKeptPassword(answer.account)
                                    ? u"the stored password stays"_s
                                    : QString());
  const QString wrong = WhatIsWrong();
  for (QPushButton* button : {test_, ok_}) button->setEnabled(wrong.isEmpty());
  outcome_->ShowRemark(wrong);
}

/// As high as what is shown, and if possible never beyond the screen.
void AccountDialog::FitHeight() {
  constexpr int frame = 48;  // what the desktop draws around it
  const QRect available = screen()->availableGeometry();
  const int wanted = isVisible() ? this->width() : std::min(usualWidth, available.width() - frame);
  const int width = std::max(wanted, minimumSizeHint().width());
  const QSize fitting(width,
                      std::min(layout()->totalHeightForWidth(width), available.height() - frame));
  // The toolkit would take even an idle resize for a wish to be where the window happens to be.
  if (fitting == size()) return;
  resize(fitting);
  const int beyond = geometry().bottom() - available.bottom();
  if (isVisible() && beyond > 0) move(x(), y() - beyond);
}

void AccountDialog::Browse() {
  QFileDialog dialog(this, u"Post folder"_s, postFolder_->text());
  dialog.setFileMode(QFileDialog::Directory);
  dialog.setOption(QFileDialog::ShowDirsOnly);
  const QString folder = ChooseFiles(dialog).value(0);
  if (!folder.isEmpty()) postFolder_->setText(folder);
}

void AccountDialog::Test() {
  if (testing_) {
    Refresh();
    return;
  }
  testing_ = true;
  test_->setText(u"S&top"_s);
  if (IsLookingUp()) {
    outcome_->ShowBusy(u"Looking for your provider's servers..."_s);
    return;
  }
  outcome_->ShowBusy(u"Signing on at your mail service..."_s);
  help_.test(Answer(), [dialog = QPointer(this), test = ++tests_](const std::string& problem,
                                                                  bool wantsSignIn) {
    if (dialog) dialog->TellOutcome(test, problem, wantsSignIn);
  });
}

void AccountDialog::TellOutcome(int test, const std::string& problem, bool wantsSignIn) {
  if (!testing_ || test != tests_) return;
  if (problem.empty() || wantsSignIn) signIn_->TellLapsed(wantsSignIn);
  Refresh();
  if (problem.empty()) {
    outcome_->ShowSuccess(u"It works: mail can be fetched and sent."_s);
  } else {
    outcome_->ShowFailure(Shown(problem));
  }
}

void AccountDialog::SignIn() {
  const bool wasSigningIn = signIn_->IsUnderWay();
  signIn_->GiveUp();
  Refresh();
  if (wasSigningIn) return;
  for (QPushButton* button : {test_, ok_}) button->setEnabled(false);
  outcome_->ShowBusy(u"Waiting for you to sign in with your browser..."_s);
  signIn_->Begin(Answer().account);
}

void AccountDialog::BeginSignIn() {
  if (signIn_->IsOffered() && !signIn_->IsUnderWay()) SignIn();
}

void AccountDialog::TellSignedIn(const std::string& problem) {
  if (problem.empty()) {  // it stands for both
    password_->clear();
    servers_->ClearTokenCommand();
  }
  ShowProvider();
  if (problem.empty()) {
    outcome_->ShowSuccess(u"You are signed in."_s);
  } else {
    outcome_->ShowFailure(Shown(problem));
  }
}

std::optional<AccountAnswer> AskForAccount(const MailAccount& suggestion, const AccountHelp& help,
                                           AccountErrand errand) {
  const OtherPointer arrow(Qt::ArrowCursor);
  AccountDialog dialog(suggestion, help, QApplication::activeWindow());
  if (errand == AccountErrand::SignIn) dialog.BeginSignIn();
  if (dialog.exec() != QDialog::Accepted) return std::nullopt;
  return dialog.Answer();
}

}  // namespace ui
