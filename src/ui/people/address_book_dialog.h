// SPDX-License-Identifier: GPL-3.0-or-later
// The address book as its user sees it: people to look for and pick, one line to each address, and
// what keeps it: add, edit, delete, import.
#pragma once

#include <QDialog>

#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "platform/address_book.h"

class QLabel;
class QLineEdit;
class QPushButton;

namespace ui {

class OutcomeLine;
class RowTable;

class AddressBookDialog : public QDialog {
  Q_OBJECT

 public:
  /// Who may be picked: any number of people, or one.
  enum class Pick { Many, One };

  AddressBookDialog(platform::AddressBook& book, const QString& caption, Pick pick,
                    QWidget* parent = nullptr);

  /// As if the user had typed it.
  void LookFor(const QString& part);

  /// The selected lines, from the top on.
  std::vector<platform::Recipient> Picked() const;

  void ImportFrom(const QString& path);

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  struct Line {
    platform::BookEntry entry;
    std::string address;
  };

  QLayout* NewSearchLine();
  QLayout* NewButtons();
  void Connect();

  std::vector<std::size_t> SelectedLines() const;
  const platform::BookEntry* SelectedPerson() const;
  void Reload();
  void SelectPerson(const platform::Person& person);
  void ShowMatching();
  void ShowNotice(bool anyShown);
  void Refresh();

  void Add();
  void Edit();
  void Delete();
  void Import();
  bool Change(const std::function<void()>& change);

  platform::AddressBook& book_;
  std::vector<Line> lines_;  // one for each row of the list
  bool isReadable_ = true;
  QLineEdit* search_;
  RowTable* list_;
  QLabel* notice_;
  OutcomeLine* outcome_;
  QPushButton* edit_ = nullptr;
  QPushButton* delete_ = nullptr;
  QPushButton* ok_ = nullptr;
};

/// Lets the user pick people; nothing where he cancels.
std::optional<std::vector<platform::Recipient>> PickRecipients(platform::AddressBook& book,
                                                               const std::string& caption);

/// The one person who is meant by a typed name. Where several can be, the one at the address given
/// beside it, else, with `mayAsk`, the one whom the user picks.
std::optional<platform::Recipient> ResolveRecipient(platform::AddressBook& book,
                                                    const platform::Recipient& typed, bool mayAsk);

}  // namespace ui
