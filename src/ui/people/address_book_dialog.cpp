// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/people/address_book_dialog.h"

#include <QApplication>
#include <QFileDialog>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

#include <algorithm>
#include <exception>

#include "platform/messages.h"
#include "skin/look.h"
#include "ui/help/help_key.h"
#include "ui/people/person_dialog.h"
#include "widgets/dialog_button.h"
#include "widgets/outcome_line.h"
#include "widgets/pointers.h"
#include "widgets/row_table.h"
#include "widgets/shown_text.h"
#include "widgets/typed_text.h"

namespace ui {

using namespace Qt::StringLiterals;
using platform::Person;
using platform::Recipient;

namespace {

constexpr int rowPadding = 8;

QPushButton* NewButton(const QString& name, const QString& caption, QLayout* row) {
  auto* button = NewDialogButton(name, caption, 80);
  row->addWidget(button);
  return button;
}

QString Counted(int count, const QString& one, const QString& many) {
  return count == 1 ? one : many.arg(count);
}

QString Told(const platform::ImportOutcome& outcome) {
  if (outcome.added + outcome.known + outcome.leftOut == 0) {
    return u"There are no people in this file."_s;
  }
  QString told = Counted(outcome.added, u"One person is new."_s, u"%1 people are new."_s);
  if (outcome.known > 0) {
    told += Counted(outcome.known, u" One was in your address book already."_s,
                    u" %1 were in your address book already."_s);
  }
  if (outcome.leftOut > 0) {
    told +=
        Counted(outcome.leftOut, u" One entry is left out: it is damaged or has no mail address."_s,
                u" %1 entries are left out: they are damaged or have no mail address."_s);
  }
  return told;
}

bool IsEnter(const QKeyEvent& key) {
  return key.key() == Qt::Key_Return || key.key() == Qt::Key_Enter;
}

}  // namespace

AddressBookDialog::AddressBookDialog(platform::AddressBook& book, const QString& caption, Pick pick,
                                     QWidget* parent)
    : QDialog(parent),
      book_(book),
      search_(new QLineEdit),
      list_(new RowTable({u"Name"_s, u"Address"_s}, rowPadding)),
      notice_(new QLabel),
      outcome_(new OutcomeLine) {
  setObjectName(u"AddressBookDialog"_s);
  GiveHelpKey(*this, platform::HelpOfAddressBook);
  setWindowTitle(caption);
  list_->setObjectName(u"PeopleList"_s);
  list_->setAccessibleName(u"People"_s);
  list_->horizontalHeader()->setSectionResizeMode(QHeaderView::Stretch);
  if (pick == Pick::Many) list_->setSelectionMode(QAbstractItemView::ExtendedSelection);
  notice_->setObjectName(u"Notice"_s);
  notice_->setAlignment(Qt::AlignCenter);
  notice_->setWordWrap(true);
  (new QVBoxLayout(list_->viewport()))->addWidget(notice_);
  outcome_->setObjectName(u"Outcome"_s);
  auto* layout = new QVBoxLayout(this);
  layout->setContentsMargins(16, 16, 16, 16);
  layout->setSpacing(8);
  layout->addLayout(NewSearchLine());
  layout->addWidget(list_, 1);
  layout->addWidget(outcome_);
  layout->addSpacing(8);
  layout->addLayout(NewButtons());
  resize(600, 420);
  TakeDialogLook(*this);
  Connect();
  Reload();
  search_->setFocus();
}

QLayout* AddressBookDialog::NewSearchLine() {
  search_->setObjectName(u"SearchField"_s);
  search_->setPlaceholderText(u"a part of a name or an address"_s);
  search_->setClearButtonEnabled(true);
  search_->setMinimumHeight(28);
  auto* label = new QLabel(u"&Look for:"_s);
  label->setBuddy(search_);
  auto* line = new QHBoxLayout;
  line->setSpacing(8);
  line->addWidget(label);
  line->addWidget(search_, 1);
  return line;
}

QLayout* AddressBookDialog::NewButtons() {
  auto* row = new QHBoxLayout;
  row->setSpacing(8);
  const auto action = [&](const QString& name, const QString& caption,
                          void (AddressBookDialog::*act)()) {
    QPushButton* button = NewButton(name, caption, row);
    connect(button, &QPushButton::clicked, this, act);
    return button;
  };
  action(u"AddButton"_s, u"&Add..."_s, &AddressBookDialog::Add);
  edit_ = action(u"EditButton"_s, u"&Edit..."_s, &AddressBookDialog::Edit);
  delete_ = action(u"DeleteButton"_s, u"&Delete"_s, &AddressBookDialog::Delete);
  action(u"ImportButton"_s, u"&Import..."_s, &AddressBookDialog::Import)
      ->setToolTip(u"Adds the people of a file (.vcf) that another program has exported"_s);
  row->addStretch();
  row->addSpacing(16);
  connect(NewButton(u"CancelButton"_s, u"Cancel"_s, row), &QPushButton::clicked, this,
          &QDialog::reject);
  ok_ = NewButton(u"OkButton"_s, u"OK"_s, row);
  ok_->setDefault(true);
  connect(ok_, &QPushButton::clicked, this, &QDialog::accept);
  return row;
}

void AddressBookDialog::Connect() {
  connect(search_, &QLineEdit::textChanged, this, &AddressBookDialog::ShowMatching);
  connect(list_, &QTableWidget::itemSelectionChanged, this, &AddressBookDialog::Refresh);
  connect(list_, &QTableWidget::itemDoubleClicked, ok_, &QPushButton::click);
  search_->installEventFilter(this);
  list_->installEventFilter(this);
}

bool AddressBookDialog::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() != QEvent::KeyPress) return QDialog::eventFilter(watched, event);
  const auto& key = static_cast<const QKeyEvent&>(*event);
  if (watched == search_ && key.key() == Qt::Key_Down) {
    list_->setFocus();
    return true;
  }
  if (watched == list_) {
    QPushButton* pressed = IsEnter(key)                  ? ok_
                           : key.key() == Qt::Key_F2     ? edit_
                           : key.key() == Qt::Key_Delete ? delete_
                                                         : nullptr;
    if (pressed) pressed->click();
    if (pressed) return true;
  }
  return QDialog::eventFilter(watched, event);
}

void AddressBookDialog::LookFor(const QString& part) { search_->setText(part); }

std::vector<std::size_t> AddressBookDialog::SelectedLines() const {
  std::vector<std::size_t> lines;
  for (int row = 0; row < list_->rowCount(); ++row) {
    if (list_->isRowHidden(row) || !list_->selectionModel()->isRowSelected(row)) continue;
    lines.push_back(static_cast<std::size_t>(row));
  }
  return lines;
}

std::vector<Recipient> AddressBookDialog::Picked() const {
  std::vector<Recipient> picked;
  for (const std::size_t line : SelectedLines()) {
    picked.push_back({lines_[line].entry.person.name, lines_[line].address});
  }
  return picked;
}

/// Null where none or more than one is selected.
const platform::BookEntry* AddressBookDialog::SelectedPerson() const {
  const platform::BookEntry* selected = nullptr;
  for (const std::size_t line : SelectedLines()) {
    if (selected && selected->person != lines_[line].entry.person) return nullptr;
    selected = &lines_[line].entry;
  }
  return selected;
}

void AddressBookDialog::Reload() {
  lines_.clear();
  isReadable_ = true;
  try {
    for (const platform::BookEntry& entry : book_.People()) {
      for (const std::string& address : entry.person.addresses) lines_.push_back({entry, address});
    }
  } catch (const std::exception& error) {
    isReadable_ = false;
    outcome_->ShowFailure(u"Your address book can't be read: "_s + Shown(error.what()));
  }
  list_->clearSelection();
  list_->setRowCount(static_cast<int>(lines_.size()));
  for (int row = 0; row < list_->rowCount(); ++row) {
    const Line& line = lines_[static_cast<std::size_t>(row)];
    list_->setItem(row, 0, new QTableWidgetItem(ShownLine(line.entry.person.name)));
    list_->setItem(row, 1, new QTableWidgetItem(ShownLine(line.address)));
  }
  ShowMatching();
}

/// In the place of the people, for as long as there are none.
void AddressBookDialog::ShowNotice(bool anyShown) {
  notice_->setText(lines_.empty() ? u"Nobody is in your address book yet: Add... or Import..."_s
                                  : u"Nobody in your address book matches this."_s);
  notice_->setVisible(!anyShown && isReadable_);
}

/// Out of sight, a line isn't picked.
void AddressBookDialog::ShowMatching() {
  const QString part = search_->text().trimmed();
  int first = -1, shown = 0;
  for (int row = 0; row < list_->rowCount(); ++row) {
    const bool matches = list_->item(row, 0)->text().contains(part, Qt::CaseInsensitive) ||
                         list_->item(row, 1)->text().contains(part, Qt::CaseInsensitive);
    list_->setRowHidden(row, !matches);
    if (matches && shown++ == 0) first = row;
  }
  // What is looked for is mostly what is wanted.
  list_->clearSelection();
  if (first >= 0) list_->setCurrentCell(first, 0, QItemSelectionModel::NoUpdate);
  if (first >= 0 && !part.isEmpty()) list_->selectRow(first);
  ShowNotice(shown > 0);
  Refresh();
}

void AddressBookDialog::Refresh() {
  const platform::BookEntry* person = SelectedPerson();
  ok_->setEnabled(!SelectedLines().empty());
  edit_->setEnabled(person);
  delete_->setEnabled(person && person->isWritten);
  delete_->setToolTip(person && !person->isWritten
                          ? u"An opponent is known for as long as his game is stored"_s
                          : QString());
}

void AddressBookDialog::SelectPerson(const Person& person) {
  for (std::size_t line = 0; line < lines_.size(); ++line) {
    const Person& other = lines_[line].entry.person;
    const bool isMeant = std::find(other.addresses.begin(), other.addresses.end(),
                                   person.addresses.front()) != other.addresses.end();
    if (!isMeant) continue;
    const int row = static_cast<int>(line);
    if (list_->isRowHidden(row)) search_->clear();
    list_->selectRow(row);
    return;
  }
}

/// Shows what became of the book, or that nothing could be changed.
bool AddressBookDialog::Change(const std::function<void()>& change) {
  try {
    change();
  } catch (const std::exception& error) {
    outcome_->ShowFailure(u"Nothing was changed: "_s + Shown(error.what()));
    return false;
  }
  outcome_->ShowRemark({});
  Reload();
  return true;
}

void AddressBookDialog::Add() {
  const auto isUsable = [this](const std::string& address) {
    return book_.IsUsableAddress(address);
  };
  Person person;
  const std::string typed = search_->text().trimmed().toStdString();
  if (isUsable(typed)) person.addresses = {typed};
  PersonDialog dialog(u"Add a person"_s, person, isUsable, this);
  if (dialog.exec() != Accepted) return;
  person = dialog.Answer();
  if (Change([&] { book_.Add(person); })) SelectPerson(person);
}

void AddressBookDialog::Edit() {
  const platform::BookEntry* selected = SelectedPerson();
  if (!selected) return;
  const Person before = selected->person;
  PersonDialog dialog(
      u"Edit a person"_s, before,
      [this](const std::string& address) { return book_.IsUsableAddress(address); }, this);
  if (dialog.exec() != Accepted) return;
  const Person after = dialog.Answer();
  if (Change([&] { book_.Change(before, after); })) SelectPerson(after);
}

void AddressBookDialog::Delete() {
  const platform::BookEntry* selected = SelectedPerson();
  if (!selected || !selected->isWritten) return;
  const Person person = selected->person;
  if (platform::ShowMessage(platform::InformationIcon, "Address book",
                            "Delete " + person.name + " from your address book?", "Delete",
                            "Cancel")) {
    Change([&] { book_.Remove(person); });
  }
}

void AddressBookDialog::Import() {
  const QString path = QFileDialog::getOpenFileName(
      this, u"Import people"_s, {}, u"Address books (*.vcf *.vcard);;All files (*)"_s);
  if (!path.isEmpty()) ImportFrom(path);
}

void AddressBookDialog::ImportFrom(const QString& path) {
  platform::ImportOutcome outcome;
  if (!Change([&] { outcome = book_.Import(path.toStdString()); })) return;
  if (outcome.added + outcome.known > 0) {
    outcome_->ShowSuccess(Told(outcome));
  } else {
    outcome_->ShowFailure(Told(outcome));
  }
}

std::optional<std::vector<Recipient>> PickRecipients(platform::AddressBook& book,
                                                     const std::string& caption) {
  const OtherPointer arrow(Qt::ArrowCursor);
  AddressBookDialog dialog(book, Shown(caption), AddressBookDialog::Pick::Many,
                           QApplication::activeWindow());
  if (dialog.exec() != QDialog::Accepted) return std::nullopt;
  return dialog.Picked();
}

std::optional<Recipient> ResolveRecipient(platform::AddressBook& book, const Recipient& typed,
                                          bool mayAsk) {
  const std::vector<Recipient> matches = book.Matches(typed.name);
  const auto known = std::find_if(matches.begin(), matches.end(), [&typed](const Recipient& match) {
    return match.address == typed.address;
  });
  if (known != matches.end()) return *known;
  if (matches.size() == 1) return matches.front();
  if (matches.empty() || !mayAsk) return std::nullopt;
  const OtherPointer arrow(Qt::ArrowCursor);
  AddressBookDialog dialog(book, u"Which one do you mean?"_s, AddressBookDialog::Pick::One,
                           QApplication::activeWindow());
  dialog.LookFor(ShownLine(typed.name).trimmed());
  if (dialog.exec() != QDialog::Accepted) return std::nullopt;
  return dialog.Picked().front();
}

}  // namespace ui
