// SPDX-License-Identifier: GPL-3.0-or-later
// The address book as its user meets it, over a real book with imaginary files.
#include <QTableWidget>
#include <QTextEdit>

#include "contacts/contacts_book.h"
#include "ui/people/address_book_dialog.h"
#include "ui/ui_fixture.h"

namespace ui {
namespace {

using platform::Recipient;

class AddressBookTest : public testing::Test {
 protected:
  AddressBookTest() {
    platform::Settings().SimpleUI = true;
    book_.Add({"Eva", {"e@x.org", "eva@y.org"}});
    book_.Add({"Max", {"m@x.org"}});
  }

  void Open() {
    dialog_ =
        std::make_unique<AddressBookDialog>(book_, u"Caption"_s, AddressBookDialog::Pick::Many);
    dialog_->show();
  }

  QTableWidget& List() { return Find<QTableWidget>(*dialog_, "PeopleList"); }
  bool Can(const char* button) { return ui::Can(*dialog_, button); }
  bool ShowsNotice() { return Shows(*dialog_, "Notice"); }
  void LookFor(const char* part) { Type(*dialog_, "SearchField", part); }
  std::string Outcome() {
    return Find<QTextEdit>(*dialog_, "OutcomeText").toPlainText().toStdString();
  }

  std::string Picked() {
    std::string text;
    for (const Recipient& person : dialog_->Picked()) text += person.address + ";";
    return text;
  }

  std::string Shown() {
    std::string text;
    for (int row = 0; row < List().rowCount(); ++row) {
      if (List().isRowHidden(row)) continue;
      text +=
          (List().item(row, 0)->text() + u' ' + List().item(row, 1)->text() + u';').toStdString();
    }
    return text;
  }

  /// Fills in the person dialog that the button brings up; a blank name cancels it.
  void Write(const char* button, const char* name, const char* addresses) {
    OnNextDialog([=](QWidget& person) {
      Field(person, "PersonName").setText(QString::fromUtf8(name));
      Field(person, "Addresses").setText(QString::fromUtf8(addresses));
      if (*name) {
        Press(person, "OkButton");
      } else {
        person.close();
      }
    });
    Press(*dialog_, button);
  }

  fakes::FakeDesktop desktop_;
  contacts::ContactsBook book_{{}};
  std::unique_ptr<AddressBookDialog> dialog_;
};

TEST_F(AddressBookTest, LooksForAPartOfANameOrAnAddressAndPicksLines) {
  Open();
  EXPECT_FALSE(Can("OkButton"));
  const std::tuple<const char*, const char*, const char*> rows[] = {
      {"ev", "Eva e@x.org;Eva eva@y.org;", "e@x.org;"},
      {"Y.ORG", "Eva eva@y.org;", "eva@y.org;"},
      {" max ", "Max m@x.org;", "m@x.org;"},
      {"nobody", "", ""},
      {"", "Eva e@x.org;Eva eva@y.org;Max m@x.org;", ""},
  };
  for (const auto& [part, shown, picked] : rows) {
    LookFor(part);
    EXPECT_EQ(Shown(), shown) << part;
    EXPECT_EQ(Picked(), picked) << part;
    EXPECT_EQ(Can("OkButton"), *picked != 0) << part;
    EXPECT_EQ(ShowsNotice(), *shown == 0) << part;
  }
  List().selectAll();
  EXPECT_EQ(Picked(), "e@x.org;eva@y.org;m@x.org;");
  EXPECT_FALSE(Can("EditButton")) << "more than one person";
  LookFor("max");
  EXPECT_EQ(Picked(), "m@x.org;") << "what is out of sight isn't picked";
  QTest::keyClick(&Field(*dialog_, "SearchField"), Qt::Key_Return);
  EXPECT_EQ(dialog_->result(), QDialog::Accepted);
}

TEST_F(AddressBookTest, AddsEditsAndDeletes) {
  Open();
  LookFor("zoe@x.org");
  Write("AddButton", "", "");
  EXPECT_EQ(Shown(), "");
  Write("AddButton", "Zoe", " zoe@x.org,, z@x.org,");
  EXPECT_EQ(Shown(), "Zoe zoe@x.org;");
  LookFor("eva@y");
  Write("EditButton", "Evi", "eva@y.org");
  EXPECT_EQ(Picked(), "eva@y.org;");
  for (const bool sure : {false, true}) {
    desktop_.boxes.answers = {sure};
    Press(*dialog_, "DeleteButton");
    EXPECT_EQ(desktop_.LastMessage().second, "Delete Evi from your address book?");
    EXPECT_EQ(Shown(), sure ? "" : "Evi eva@y.org;");
  }
  LookFor("");
  EXPECT_EQ(Shown(), "Max m@x.org;Zoe zoe@x.org;Zoe z@x.org;");
}

TEST_F(AddressBookTest, APersonNeedsAnAddressThatCanBeUsed) {
  Open();
  OnNextDialog([](QWidget& person) {
    for (const auto& [text, good] :
         {std::pair(u""_s, false), std::pair(u"z@x.org, at home"_s, false),
          std::pair(u"z@x.org,"_s, true)}) {
      Field(person, "Addresses").setText(text);
      EXPECT_EQ(ui::Can(person, "OkButton"), good) << text.toStdString();
    }
    person.close();
  });
  Press(*dialog_, "AddButton");
}

TEST_F(AddressBookTest, TellsWhatAnImportBroughtAndWhatFailed) {
  Open();
  desktop_.files.content["/a.vcf"] =
      "BEGIN:VCARD\nFN:Zoe\nEMAIL:z@x.org\nEND:VCARD\nBEGIN:VCARD\nFN:Cut";
  dialog_->ImportFrom(u"/a.vcf"_s);
  EXPECT_EQ(Outcome(),
            "One person is new. One entry is left out: it is damaged or has no mail address.");
  const std::string all = "Eva e@x.org;Eva eva@y.org;Max m@x.org;Zoe z@x.org;";
  EXPECT_EQ(Shown(), all);
  dialog_->ImportFrom(u"/none.vcf"_s);
  EXPECT_TRUE(Outcome().starts_with("Nothing was changed: ")) << Outcome();
  EXPECT_EQ(Shown(), all);
}

TEST_F(AddressBookTest, ResolvesOneAndAsksAmongSeveralWhereItMay) {
  const auto resolve = [this](Recipient typed, bool mayAsk) {
    const auto found = ResolveRecipient(book_, typed, mayAsk);
    return found ? found->address : "none";
  };
  EXPECT_EQ(resolve({"max", ""}, false), "m@x.org");
  EXPECT_EQ(resolve({"nobody", ""}, true), "none");
  EXPECT_EQ(resolve({"new@x.org", "m@x.org"}, false), "new@x.org");
  EXPECT_EQ(resolve({"eva", ""}, false), "none");
  EXPECT_EQ(resolve({"eva", "eva@y.org"}, true), "eva@y.org") << "the one who was picked before";
  OnNextDialog([](QWidget& dialog) {
    auto* list = dialog.findChild<QTableWidget*>();
    QTest::keyClick(dialog.focusWidget(), Qt::Key_Down);
    QTest::keyClick(list, Qt::Key_Down);
    QTest::keyClick(list, Qt::Key_Return);
  });
  EXPECT_EQ(resolve({"Eva", ""}, true), "eva@y.org");
  OnNextDialog(CloseWindow);
  EXPECT_EQ(resolve({"Eva", ""}, true), "none");
}

}  // namespace
}  // namespace ui
