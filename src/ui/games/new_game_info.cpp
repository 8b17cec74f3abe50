// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/games/new_game_info.h"

#include <QCheckBox>
#include <QFocusEvent>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QLocale>
#include <QPushButton>
#include <QTimer>

#include <algorithm>
#include <exception>

#include "mail/move_mail.h"
#include "platform/messages.h"
#include "platform/process_state.h"
#include "platform/seams.h"
#include "skin/layouts/new_game_info_layout.h"
#include "skin/look.h"
#include "skin/system_button.h"
#include "ui/games/choose_opponent.h"
#include "ui/games/computer_opponent.h"
#include "widgets/dialog_button.h"
#include "widgets/outcome_line.h"
#include "widgets/people_completer.h"
#include "widgets/shown_text.h"
#include "widgets/typed_text.h"

namespace ui {

using namespace Qt::StringLiterals;
using platform::Process;

namespace {

constexpr int longestName = 50;
constexpr int longestAddress = 255;
constexpr int lookupDelay = 1500;  // milliseconds
constexpr int lineGap = 2;
constexpr int lineHeight = 19;

platform::MAPIMessages& MMess() { return *platform::TheSeams().MMess; }

void ClearRecipients() {
  while (MMess().RecipCount() > 0) {
    MMess().RecipIndex(0);
    MMess().DeleteRecipient();
  }
}

/// A button of the dialog's look; the one about the computer lays itself out.
QAbstractButton* NewAnswer(QWidget& dialog, const ButtonTwins& twins, const QString& caption) {
  if (!Process().ComputerGame || IsSimpleUI()) return NewButton(dialog, twins, caption);
  return NewDialogButton(QLatin1StringView(twins.skinned), caption);
}

/// What a game is called whose player doesn't care.
QString TitleOfToday() {
  const platform::LocalTime now = platform::TheSeams().clock->Now();
  return u"Game of %1 %2"_s.arg(now.day).arg(QLocale::c().monthName(now.month));
}

bool IsReturn(const QEvent& event) {
  if (event.type() != QEvent::KeyPress) return false;
  const int key = static_cast<const QKeyEvent&>(event).key();
  return key == Qt::Key_Return || key == Qt::Key_Enter;
}

/// Asking for help, another window in front or a menu isn't leaving a field.
bool LeavesField(const QEvent& event) {
  if (event.type() != QEvent::FocusOut) return false;
  const Qt::FocusReason reason = static_cast<const QFocusEvent&>(event).reason();
  return reason != Qt::PopupFocusReason && reason != Qt::ActiveWindowFocusReason &&
         reason != Qt::MenuBarFocusReason;
}

}  // namespace

NewGameInfo::NewGameInfo(QWidget* owner)
    : QDialog(owner),
      Game_name_(NewField(u"Game_name"_s, u"Game name"_s, longestName)),
      Game_opponents_name_(NewField(u"Game_opponents_name"_s, u"Opponents name"_s, longestName)),
      Resolve_(NewButton(*this, {"Resolve", "Resolve"}, u"..."_s)),
      Game_opponents_email_(
          NewField(u"Game_opponents_email"_s, u"Opponents email"_s, longestAddress)),
      remember_(new QCheckBox(u"&Remember this address"_s, this)),
      outcome_(new OutcomeLine(this)),
      ok_(NewAnswer(*this, {"OkButton", "OKButtonS"}, u"OK"_s)),
      cancel_(NewAnswer(*this, {"CancelButton", "CancelButtonS"}, u"Cancel"_s)),
      Timer1_(new QTimer(this)) {
  setObjectName(u"NewGameInfo"_s);
  setWindowTitle(u"New game..."_s);
  auto* heading = new QLabel(u"Please enter your opponents details."_s, this);
  heading->setObjectName(u"Label3"_s);
  Resolve_->setAccessibleName(u"Address book"_s);
  remember_->setObjectName(u"RememberAddress"_s);
  remember_->hide();
  Timer1_->setObjectName(u"Timer1"_s);
  Timer1_->setInterval(lookupDelay);
  Timer1_->setSingleShot(true);
  if (Process().ComputerGame) computer_ = new ComputerOpponent(this);
  SetToolTips();
  SetUpOpponent();
  Resolve_->installEventFilter(this);
  ok_->installEventFilter(this);
  Connect();
  hasLook_ = TakeItsLook();
  ShowMissing();
  Game_name_->setFocus();
  Game_name_->selectAll();
}

bool NewGameInfo::TakeItsLook() {
  if (computer_) {
    SetComputerUI();
    return TakeDialogLook(*this);
  }
  const bool taken = TakeLook(*this, layouts::newGameInfo, [this] { SetSimpleUI(); });
  if (!IsSimpleUI()) PlaceLines();
  return taken;
}

/// Below the fields of the skinned look there is room for one of the two.
void NewGameInfo::PlaceLines() {
  const layouts::Rect& email = layouts::RectOf(layouts::newGameInfo, "Game_opponents_email");
  const layouts::Rect& label = layouts::RectOf(layouts::newGameInfo, "Game_opponents_email_L");
  const int top = email.Bottom() + lineGap;
  remember_->setGeometry(email.x, top, email.width, remember_->sizeHint().height());
  outcome_->setGeometry(label.x, top, email.x + email.width - label.x, lineHeight);
}

QLineEdit* NewGameInfo::NewField(const QString& name, const QString& label, int longest) {
  auto* field = new QLineEdit(this);
  field->setObjectName(name);
  field->setAccessibleName(label);
  field->setMaxLength(longest);
  KeepFitForFields(field);
  field->installEventFilter(this);
  auto* caption = new QLabel(label, this);
  caption->setObjectName(name + u"_L"_s);
  caption->setBuddy(field);
  return field;
}

void NewGameInfo::SetToolTips() {
  if (!platform::Settings().ShowToolTips) return;
  Game_name_->setToolTip(u"A title to identify the game"_s);
  Game_opponents_name_->setToolTip(u"Enter your opponents name"_s);
  Resolve_->setToolTip(u"Click to select an opponent from your address book"_s);
  Game_opponents_email_->setToolTip(u"Your chosen opponents email address"_s);
}

void NewGameInfo::SetUpOpponent() {
  if (Process().ComputerGame) {
    Game_opponents_name_->setEnabled(false);
    Game_opponents_name_->setReadOnly(true);
    Game_opponents_name_->setText(u"The Computer"_s);
    Game_opponents_email_->setReadOnly(true);
    Game_opponents_email_->setText(u"n/a"_s);
    Resolve_->setEnabled(false);
    FillTitle();
    SetOkEnabled(true);
    return;
  }
  Game_opponents_email_->setReadOnly(!Process().Offline);
  Resolve_->setEnabled(!Process().Offline);
  if (!Process().Offline) {
    Game_opponents_name_->setPlaceholderText(u"name or address"_s);
    Game_opponents_email_->setPlaceholderText(u"found or typed"_s);
  }
  SetUpPeople();
  ButtonSet();
}

void NewGameInfo::SetUpPeople() {
  const auto people = PeopleOfBook();
  for (auto* completer :
       {new PeopleCompleter(people, PeopleCompleter::Part::Name, Game_opponents_name_),
        new PeopleCompleter(people, PeopleCompleter::Part::Address, Game_opponents_email_)}) {
    connect(completer, &PeopleCompleter::Taken, this, &NewGameInfo::TakePerson);
  }
}

void NewGameInfo::Connect() {
  connect(Game_name_, &QLineEdit::textChanged, this, &NewGameInfo::ButtonSet);
  connect(Timer1_, &QTimer::timeout, this, &NewGameInfo::Tick);
  connect(Resolve_, &QAbstractButton::clicked, this, &NewGameInfo::ChooseName);
  connect(ok_, &QAbstractButton::clicked, this, &QDialog::accept);
  connect(cancel_, &QAbstractButton::clicked, this, &QDialog::reject);
  if (Process().ComputerGame) return;
  connect(Game_opponents_name_, &QLineEdit::textChanged, this, &NewGameInfo::ChangeName);
  connect(Game_opponents_email_, &QLineEdit::textChanged, this, [this] {
    offersToRemember_ = false;
    ButtonSet();
  });
  connect(Game_opponents_email_, &QLineEdit::textEdited, this, &NewGameInfo::EditAddress);
}

void NewGameInfo::SetSimpleUI() {
  auto* layout = new QGridLayout(this);
  layout->setContentsMargins(16, 16, 16, 16);
  layout->setHorizontalSpacing(16);
  layout->setVerticalSpacing(8);
  layout->addWidget(findChild<QLabel*>(u"Label3"_s), 0, 0, 1, 3);
  layout->setRowMinimumHeight(1, 8);
  int row = 2;
  for (QLineEdit* field : {Game_name_, Game_opponents_name_, Game_opponents_email_}) {
    field->setMinimumSize(220, 28);
    layout->addWidget(findChild<QLabel*>(field->objectName() + u"_L"_s), row, 0);
    layout->addWidget(field, row++, 1, 1, field == Game_opponents_name_ ? 1 : 2);
  }
  Resolve_->setFixedSize(36, 28);
  layout->addWidget(Resolve_, 3, 2);
  QSizePolicy keepsPlace = remember_->sizePolicy();
  keepsPlace.setRetainSizeWhenHidden(true);
  remember_->setSizePolicy(keepsPlace);
  layout->addWidget(remember_, row++, 1, 1, 2);
  layout->addWidget(outcome_, row++, 0, 1, 3);
  QHBoxLayout* buttons = NewButtonRow({cancel_, ok_});
  layout->addLayout(buttons, row, 0, 1, 3);
  layout->setColumnStretch(1, 1);
  static_cast<QPushButton*>(ok_)->setDefault(true);
}

/// What is known of the computer needn't be seen.
void NewGameInfo::SetComputerUI() {
  for (const char* name : {"Game_opponents_name", "Game_opponents_name_L", "Game_opponents_email",
                           "Game_opponents_email_L", "Resolve", "RememberAddress"}) {
    findChild<QWidget*>(QLatin1StringView(name))->hide();
  }
  auto* heading = findChild<QLabel*>(u"Label3"_s);
  heading->setText(u"You play White against the computer."_s);
  auto* layout = new QGridLayout(this);
  layout->setContentsMargins(16, 16, 16, 16);
  layout->setHorizontalSpacing(16);
  layout->setVerticalSpacing(8);
  layout->addWidget(heading, 0, 0, 1, 2);
  layout->setRowMinimumHeight(1, 8);
  layout->addWidget(findChild<QLabel*>(u"Game_name_L"_s), 2, 0);
  Game_name_->setMinimumSize(220, 28);
  layout->addWidget(Game_name_, 2, 1);
  int row = computer_->AddRows(*layout, 3);
  layout->setRowStretch(row, 1);  // where a remark comes and goes
  layout->addWidget(outcome_, row++, 0, 1, 2);
  layout->addLayout(NewButtonRow({cancel_, ok_}), row, 0, 1, 2);
  layout->setColumnStretch(1, 1);
  static_cast<QPushButton*>(ok_)->setDefault(true);
}

std::optional<platform::NewGameFields> NewGameInfo::Ask() {
  if (!hasLook_ || exec() != Accepted) return std::nullopt;
  show();
  repaint();
  return platform::NewGameFields{Game_name_->text().toStdString(),
                                 Game_opponents_name_->text().toStdString(),
                                 Game_opponents_email_->text().toStdString()};
}

void NewGameInfo::accept() {
  // Enter leaves no field.
  if (!ok_->isEnabled() || !ValidateTitle()) return;
  FillTitle();
  if (computer_ && !computer_->Apply()) return;
  Remember();
  QDialog::accept();
}

void NewGameInfo::done(int result) {
  pendingResolve_ = false;
  Timer1_->stop();
  platform::TheSeams().help->CloseHelp();
  QDialog::done(result);
}

bool NewGameInfo::eventFilter(QObject* watched, QEvent* event) {
  // Enter is OK wherever the focus is, but on Cancel.
  if (watched == Resolve_ && IsReturn(*event) && LookUpForOk()) {
    ok_->click();
    return true;
  }
  if (watched == ok_ && event->type() == QEvent::MouseButtonPress) LookUpForOk();
  if (watched == Game_opponents_email_ && event->type() == QEvent::FocusIn && !computer_) {
    Game_opponents_email_->setReadOnly(false);
  }
  if (isVisible() && LeavesField(*event)) {
    if (watched == Game_opponents_name_) LeaveName();
    if (watched == Game_opponents_email_) LeaveAddress();
    if (watched == Game_name_) {
      if (!cancel_->hasFocus()) FillTitle();
      ButtonSet();
      // The control that takes the focus gets it first; a message would cut that off.
      QMetaObject::invokeMethod(
          this,
          [this] {
            if (isVisible() && !cancel_->hasFocus()) ValidateTitle();
          },
          Qt::QueuedConnection);
    }
  }
  return QDialog::eventFilter(watched, event);
}

void NewGameInfo::keyPressEvent(QKeyEvent* event) {
  const bool isReturn = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
  if (event->key() == Qt::Key_F1) {
    platform::TheSeams().help->ShowHelp(platform::HelpOfNewGame);
    return;
  }
  if (isReturn) LookUpForOk();
  if (isReturn && !IsSimpleUI()) {
    ok_->click();
  } else {
    QDialog::keyPressEvent(event);
  }
}

void NewGameInfo::ButtonSet() {
  SetOkEnabled(!Game_name_->text().isEmpty() && !Game_opponents_email_->text().isEmpty());
  ShowMissing();
}

void NewGameInfo::SetOkEnabled(bool enabled) {
  if (IsSimpleUI() || computer_) {
    ok_->setEnabled(enabled);
  } else {
    SetButtonEnabled(*this, ok_->objectName(), enabled);
  }
}

/// Why OK can't be pressed, or what it would do by itself.
QString NewGameInfo::WhatIsMissing() const {
  if (Game_name_->text().isEmpty()) {
    return computer_ ? u"Without a title it is the \"%1\"."_s.arg(TitleOfToday())
                     : u"Still missing: a title for the game."_s;
  }
  return Game_opponents_email_->text().isEmpty() ? WhereAddressStands() : QString();
}

QString NewGameInfo::WhereAddressStands() const {
  if (pendingResolve_) return u"Looking in your address book..."_s;
  if (nobodyFound_) return u"Nobody found: please type the address."_s;
  return u"Still missing: your opponent's address."_s;
}

void NewGameInfo::ShowMissing() {
  const QString missing = WhatIsMissing();
  outcome_->ShowRemark(missing);
  remember_->setVisible(offersToRemember_ && missing.isEmpty());
}

void NewGameInfo::FillTitle() {
  if (computer_ && Game_name_->text().trimmed().isEmpty()) Game_name_->setText(TitleOfToday());
}

/// Whoever types an address needs nobody who looks for it.
void NewGameInfo::EditAddress() {
  addressIsTyped_ = !Process().Offline && !Game_opponents_email_->text().isEmpty();
  if (addressIsTyped_) pendingResolve_ = false;
  ShowMissing();
}

/// A blank one is found by the name again.
void NewGameInfo::LeaveAddress() {
  if (Process().ComputerGame || Process().Offline) return;
  Game_opponents_email_->setReadOnly(Game_opponents_email_->text().isEmpty());
  if (addressIsTyped_) OfferToRemember();
}

/// Whoever is taken from a list is meant, at that address.
void NewGameInfo::TakePerson(const QString& name, const QString& address) {
  pendingResolve_ = false;
  addressIsTyped_ = false;
  // In this order: the first clears the second.
  Game_opponents_name_->setText(name);
  Game_opponents_email_->setText(address);
  ButtonSet();
}

/// False where the title had to be changed: the user was told, and is back in the field.
bool NewGameInfo::ValidateTitle() {
  const std::string typed = Game_name_->text().toStdString();
  const std::string clean = mail::StripReservedText(typed);
  if (clean == typed) return true;
  Game_name_->setText(AsItIs(clean));
  mail::ReportReservedText(mail::ReservedTextIn::GameName);
  Game_name_->setFocus();
  return false;
}

/// An address never outlives the name that it came with.
void NewGameInfo::ChangeName() {
  nobodyFound_ = false;
  if (!addressIsTyped_) Game_opponents_email_->clear();
  ButtonSet();
}

void NewGameInfo::LeaveName() {
  if (Game_opponents_name_->text().isEmpty() || Process().Offline || Process().ComputerGame) return;
  if (addressIsTyped_) return;
  pendingResolve_ = true;
  Timer1_->start();
  ShowMissing();
}

void NewGameInfo::Tick() {
  if (!pendingResolve_) return;
  ResolveName();
  ButtonSet();
}

/// Who presses OK doesn't wait for the lookup first. True where OK can be pressed.
bool NewGameInfo::LookUpForOk() {
  FillTitle();
  if (Game_opponents_name_->hasFocus() && Game_opponents_email_->text().isEmpty()) LeaveName();
  Tick();
  return ok_->isEnabled();
}

void NewGameInfo::ResolveName() {
  pendingResolve_ = false;
  try {
    MMess().MsgIndex(-1);
    // An address found before says who is meant only as long as the name stands.
    if (Game_opponents_email_->text().isEmpty()) ClearRecipients();
    MMess().RecipDisplayName(Game_opponents_name_->text().toStdString());
    MMess().AddressResolveUI(true);
    MMess().ResolveName();
    TakePerson(AsItIs(MMess().RecipDisplayName()), AsItIs(MMess().RecipAddress()));
    OfferToRemember();
  } catch (const std::exception&) {
    // The name stays, and there is no address.
    nobodyFound_ = true;
  }
}

void NewGameInfo::ChooseName() {
  pendingResolve_ = false;
  try {
    MMess().MsgIndex(-1);
    MMess().AddressCaption("Choose an opponent");
    ClearRecipients();
    MMess().Show(false);
    if (MMess().RecipCount() > 1) {
      QStringList opponents;
      for (int i = 0; i < MMess().RecipCount(); ++i) {
        MMess().RecipIndex(i);
        opponents += ShownLine(MMess().RecipDisplayName());
      }
      MMess().RecipIndex(ChooseOpponent(opponents, this).Choose());
    }
    TakePerson(AsItIs(MMess().RecipDisplayName()), AsItIs(MMess().RecipAddress()));
  } catch (const std::exception&) {
    // The user has cancelled.
  }
  ButtonSet();
}

/// What was typed as an address needn't be typed again.
void NewGameInfo::OfferToRemember() {
  auto* book = platform::TheSeams().addressBook;
  if (!book) return;
  const auto people = book->People();
  const std::string address = Game_opponents_email_->text().toStdString();
  const bool isKnown = std::any_of(people.begin(), people.end(), [&](const auto& entry) {
    const auto& own = entry.person.addresses;
    return std::find(own.begin(), own.end(), address) != own.end();
  });
  remember_->setChecked(false);
  offersToRemember_ = !isKnown;
  ShowMissing();
}

void NewGameInfo::Remember() {
  if (!offersToRemember_ || !remember_->isChecked()) return;
  try {
    platform::TheSeams().addressBook->Add({Game_opponents_name_->text().toStdString(),
                                           {Game_opponents_email_->text().toStdString()}});
  } catch (const std::exception& error) {
    platform::ShowMessage(platform::ErrorIcon, "Address book",
                          std::string("The address can't be stored.||") + error.what(), "OK");
  }
}

}  // namespace ui
