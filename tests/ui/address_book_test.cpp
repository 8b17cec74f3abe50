// SPDX-License-Identifier: GPL-3.0-or-later
// The address book as its user meets it, over a real book with imaginary files.
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTableWidget>
#include <QTextEdit>

#include "contacts/contacts_book.h"
#include "ui/people/address_book_dialog.h"
#include "ui_fixture.h"

namespace ui {
namespace {

using namespace Qt::StringLiterals;
using platform::Recipient;

class AddressBookTest : public testing::Test {
 protected:
  AddressBookTest() {
    platform::Settings().SimpleUI = true;
    book_.Add({"Eva", {"e@x.org", "eva@y.org"}});
    book_.Add({"Max", {"m@x.org"}});
  }

  void Open(AddressBookDialog::Pick pick = AddressBookDialog::Pick::Many) {
    dialog_ = std::make_unique<AddressBookDialog>(book_, u"Caption"_s, pick);
    dialog_->show();
  }

  template <typename Widget>
  Widget& Find(const char* name) {
    auto* widget = dialog_->findChild<Widget*>(QLatin1StringView(name));
    EXPECT_NE(widget, nullptr) << name;
    return *widget;
  }
  QTableWidget& List() { return Find<QTableWidget>("PeopleList"); }
  bool Can(const char* button) { return Find<QPushButton>(button).isEnabled(); }
  void Press(const char* button) { Find<QPushButton>(button).click(); }
  void LookFor(const char* part) {
    Find<QLineEdit>("SearchField").clear();
    QTest::keyClicks(&Find<QLineEdit>("SearchField"), QString::fromUtf8(part));
  }
  std::string Outcome() {
    return Find<QWidget>("Outcome")
        .findChild<QTextEdit*>(u"OutcomeText"_s)
        ->toPlainText()
        .toStdString();
  }

  static std::string Said(const std::vector<Recipient>& people) {
    std::string text;
    for (const Recipient& person : people) text += person.name + " " + person.address + ";";
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
      auto* lines = person.findChild<QPlainTextEdit*>();
      person.findChild<QLineEdit*>(u"PersonName"_s)->setText(QString::fromUtf8(name));
      lines->setPlainText(QString::fromUtf8(addresses));
      auto* ok = person.findChild<QPushButton*>(u"OkButton"_s);
      if (*name) {
        ASSERT_TRUE(ok->isEnabled());
        ok->click();
      } else {
        person.close();
      }
    });
    Press(button);
  }

  fakes::FakeDesktop desktop_;
  contacts::ContactsBook book_{{}};
  std::unique_ptr<AddressBookDialog> dialog_;
};

TEST_F(AddressBookTest, LooksForAPartOfANameOrAnAddressAndPicksLines) {
  Open();
  EXPECT_FALSE(Can("OkButton"));
  const std::tuple<const char*, const char*, const char*> rows[] = {
      {"ev", "Eva e@x.org;Eva eva@y.org;", "Eva e@x.org;"},
      {"Y.ORG", "Eva eva@y.org;", "Eva eva@y.org;"},
      {" max ", "Max m@x.org;", "Max m@x.org;"},
      {"nobody", "", ""},
      {"", "Eva e@x.org;Eva eva@y.org;Max m@x.org;", ""},
  };
  for (const auto& [part, shown, picked] : rows) {
    LookFor(part);
    EXPECT_EQ(Shown(), shown) << part;
    EXPECT_EQ(Said(dialog_->Picked()), picked) << part;
    EXPECT_EQ(Can("OkButton"), *picked != 0) << part;
    EXPECT_EQ(Find<QLabel>("Notice").isVisible(), *shown == 0) << part;
  }
  List().selectAll();
  EXPECT_EQ(dialog_->Picked().size(), 3u);
  EXPECT_FALSE(Can("EditButton")) << "more than one person";
  LookFor("max");
  EXPECT_EQ(dialog_->Picked().size(), 1u) << "what is out of sight isn't picked";
  QTest::keyClick(&Find<QLineEdit>("SearchField"), Qt::Key_Return);
  EXPECT_EQ(dialog_->result(), QDialog::Accepted);
}

TEST_F(AddressBookTest, AddsEditsAndDeletes) {
  Open();
  LookFor("zoe@x.org");
  Write("AddButton", "", "");
  EXPECT_EQ(Shown(), "");
  Write("AddButton", "Zoe", " zoe@x.org\n\nz@x.org|\n");
  EXPECT_EQ(Shown(), "Zoe zoe@x.org;");
  LookFor("");
  EXPECT_EQ(Shown(), "Eva e@x.org;Eva eva@y.org;Max m@x.org;Zoe zoe@x.org;Zoe z@x.org;");
  LookFor("eva@y");
  Write("EditButton", "Evi", "eva@y.org");
  EXPECT_EQ(Said(dialog_->Picked()), "Evi eva@y.org;");
  for (const bool sure : {false, true}) {
    desktop_.boxes.answers = {sure};
    Press("DeleteButton");
    EXPECT_EQ(desktop_.LastMessage().second, "Delete Evi from your address book?");
    EXPECT_EQ(Shown(), sure ? "" : "Evi eva@y.org;");
  }
  LookFor("");
  EXPECT_EQ(Shown(), "Max m@x.org;Zoe zoe@x.org;Zoe z@x.org;");
}

TEST_F(AddressBookTest, APersonNeedsAnAddressThatCanBeUsed) {
  Open();
  OnNextDialog([](QWidget& person) {
    auto* lines = person.findChild<QPlainTextEdit*>();
    auto* ok = person.findChild<QPushButton*>(u"OkButton"_s);
    for (const auto& [text, good] :
         {std::pair(u""_s, false), std::pair(u"at home"_s, false),
          std::pair(u"z@x.org\nat home"_s, false), std::pair(u"z@x.org\n"_s, true)}) {
      lines->setPlainText(text);
      EXPECT_EQ(ok->isEnabled(), good) << text.toStdString();
    }
    person.close();
  });
  Press("AddButton");
}

TEST_F(AddressBookTest, ABookWithNobodyInItSaysHowPeopleGetThere) {
  for (const platform::BookEntry& entry : book_.People()) book_.Remove(entry.person);
  Open();
  EXPECT_TRUE(Find<QLabel>("Notice").isVisible());
  EXPECT_TRUE(Find<QLabel>("Notice").text().startsWith(u"Nobody is in your address book yet"_s));
  book_.Add({"Eva", {"e@x.org"}});
  Open();
  EXPECT_FALSE(Find<QLabel>("Notice").isVisible());
}

TEST_F(AddressBookTest, TellsWhatAnImportBroughtAndWhatFailed) {
  Open();
  desktop_.files.content["/a.vcf"] =
      "BEGIN:VCARD\nFN:Zoe\nEMAIL:z@x.org\nEND:VCARD\nBEGIN:VCARD\nFN:Cut";
  dialog_->ImportFrom(u"/a.vcf"_s);
  EXPECT_EQ(Outcome(),
            "One person is new. One entry is left out: it is damaged or has no mail address.");
  EXPECT_EQ(Shown(), "Eva e@x.org;Eva eva@y.org;Max m@x.org;Zoe z@x.org;");
  dialog_->ImportFrom(u"/none.vcf"_s);
  EXPECT_TRUE(Outcome().starts_with("Nothing was changed: ")) << Outcome();
  EXPECT_FALSE(Shown().empty());
}

TEST_F(AddressBookTest, APersonOfAGameCanBeEditedButNotDeleted) {
  book_ = contacts::ContactsBook([] { return std::vector<Recipient>{{"Old", "old@x.org"}}; });
  Open();
  LookFor("old");
  EXPECT_TRUE(Can("EditButton"));
  EXPECT_FALSE(Can("DeleteButton"));
  Write("EditButton", "Older", "old@x.org");
  EXPECT_EQ(Shown(), "Older old@x.org;");
  EXPECT_TRUE(Can("DeleteButton"));
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
  OnNextDialog([](QWidget& dialog) { dialog.close(); });
  EXPECT_EQ(resolve({"Eva", ""}, true), "none");
}

}  // namespace
}  // namespace ui
