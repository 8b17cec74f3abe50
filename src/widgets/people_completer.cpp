// SPDX-License-Identifier: GPL-3.0-or-later
#include "widgets/people_completer.h"

#include <QAbstractItemView>
#include <QLineEdit>
#include <QStandardItemModel>

#include <algorithm>
#include <exception>

#include "platform/seams.h"
#include "widgets/shown_text.h"

namespace ui {

using namespace Qt::StringLiterals;

namespace {

constexpr int widestLine = 480;
constexpr int lineMargin = 24;
constexpr int nameRole = Qt::UserRole;
constexpr int addressRole = Qt::UserRole + 1;

QStandardItem* NewItem(const platform::Recipient& person) {
  const QString address = ShownLine(person.address);
  auto* item = new QStandardItem(
      person.name == person.address ? address : ShownLine(person.name) + u", "_s + address);
  item->setData(AsItIs(person.name), nameRole);
  item->setData(AsItIs(person.address), addressRole);
  return item;
}

}  // namespace

PeopleCompleter::PeopleCompleter(const std::vector<platform::Recipient>& people, Part part,
                                 QLineEdit* field)
    : QCompleter(field) {
  auto* model = new QStandardItemModel(this);
  for (const platform::Recipient& person : people) model->appendRow(NewItem(person));
  setModel(model);
  setCompletionRole(part == Part::Name ? nameRole : addressRole);
  setCaseSensitivity(Qt::CaseInsensitive);
  setFilterMode(Qt::MatchContains);
  field->setCompleter(this);
  // Whole lines, where the field is narrower.
  popup()->setMinimumWidth(std::min(widestLine, popup()->sizeHintForColumn(0) + lineMargin));
  connect(this, qOverload<const QModelIndex&>(&QCompleter::activated), this,
          [this](const QModelIndex& person) {
            Q_EMIT Taken(person.data(nameRole).toString(), person.data(addressRole).toString());
          });
}

std::vector<platform::Recipient> PeopleOfBook() {
  std::vector<platform::Recipient> people;
  auto* book = platform::TheSeams().addressBook;
  if (!book) return people;
  try {
    for (const platform::BookEntry& entry : book->People()) {
      for (const std::string& address : entry.person.addresses) {
        people.push_back({entry.person.name, address});
      }
    }
  } catch (const std::exception&) {
    // The address book itself tells what is wrong with it.
  }
  return people;
}

}  // namespace ui
