// SPDX-License-Identifier: GPL-3.0-or-later
// The new game dialog in both looks, by keys and clicks, over a mail service in memory.
#include <QCheckBox>
#include <QComboBox>
#include <QLineEdit>

#include "contacts/contacts_book.h"
#include "skin_fixture.h"
#include "ui/games/choose_opponent.h"
#include "ui/games/new_game_info.h"

namespace ui {
namespace {

class NewGameTest : public SkinTest {
 protected:
  NewGameTest() {
    Process().Offline = false;
    platform::TheSeams().addressBook = &book_;
    desktop_.mail.people = {{"Eva", "e@x.org"}, {"Max", "m@x.org"}};
  }

  void Open() {
    dialog_ = std::make_unique<NewGameInfo>();
    dialog_->show();
    dialog_->activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(dialog_.get()));
  }

  static bool Simple() { return platform::Settings().SimpleUI; }

  QLineEdit& Field(const char* name) {
    return *dialog_->findChild<QLineEdit*>(QLatin1StringView(name));
  }
  QAbstractButton& Button(const char* skinned, const char* plain) {
    return *dialog_->findChild<QAbstractButton*>(QLatin1StringView(Simple() ? plain : skinned));
  }
  QAbstractButton& Ok() { return Button("OkButton", "OKButtonS"); }
  QAbstractButton& Resolve() { return Button("Resolve", "Resolve"); }
  QCheckBox& RememberBox() { return *dialog_->findChild<QCheckBox*>(); }
  QTimer& Timer1() { return *dialog_->findChild<QTimer*>(u"Timer1"_s); }

  /// Into a field, which the keyboard leaves then.
  void Type(const char* field, const char* text) {
    Field(field).setFocus();
    Field(field).selectAll();
    QTest::keyClick(&Field(field), Qt::Key_Backspace);
    QTest::keyClicks(&Field(field), QString::fromUtf8(text));
    QTest::keyClick(&Field(field), Qt::Key_Tab);
    QCoreApplication::processEvents();
  }

  /// The delay of the lookup passes.
  void PassDelay() {
    ASSERT_TRUE(Timer1().isActive());
    EXPECT_EQ(Timer1().interval(), 1500);
    QMetaObject::invokeMethod(&Timer1(), "timeout", Qt::DirectConnection);
  }

  std::string Name() { return Field("Game_opponents_name").text().toStdString(); }
  std::string Email() { return Field("Game_opponents_email").text().toStdString(); }

  template <typename Work>
  void InBothLooks(const Work& work) {
    for (const bool simple : {false, true}) {
      SCOPED_TRACE(simple ? "plain" : "skinned");
      platform::Settings().SimpleUI = simple;
      Open();
      work();
    }
  }

  contacts::ContactsBook book_{{}};
  std::unique_ptr<NewGameInfo> dialog_;
};

TEST_F(NewGameTest, OkWantsATitleAndAnAddress) {
  Process().Offline = true;
  InBothLooks([this] {
    EXPECT_FALSE(Resolve().isEnabled());
    EXPECT_FALSE(Ok().isEnabled());
    Type("Game_name", "Friendly");
    EXPECT_FALSE(Ok().isEnabled());
    Type("Game_opponents_name", "Eva");
    Type("Game_opponents_email", "any|thing");
    EXPECT_EQ(Email(), "anything");
    EXPECT_TRUE(Ok().isEnabled());
    EXPECT_FALSE(Timer1().isActive()) << "without a mail service nobody is looked for";
    Type("Game_name", "");
    EXPECT_FALSE(Ok().isEnabled());
    Type("Game_name", "Friendly");
    Type("Game_opponents_name", "Max");
    EXPECT_EQ(Email(), "") << "an address goes with its name";
    EXPECT_FALSE(Ok().isEnabled());
  });
}

TEST_F(NewGameTest, AgainstTheComputerOnlyTheTitleIsAsked) {
  Process().ComputerGame = true;
  InBothLooks([this] {
    EXPECT_EQ(Name() + ", " + Email(), "The Computer, n/a");
    EXPECT_FALSE(Field("Game_opponents_name").isEnabled());
    EXPECT_TRUE(Field("Game_opponents_email").isReadOnly());
    EXPECT_FALSE(Resolve().isEnabled());
    EXPECT_EQ(Ok().isEnabled(), !Simple());
    Type("Game_name", "Test");
    EXPECT_TRUE(Ok().isEnabled());
    Type("Game_name", "");
    EXPECT_FALSE(Ok().isEnabled());
  });
}

TEST_F(NewGameTest, ANameIsLookedForAfterADelay) {
  InBothLooks([this] {
    EXPECT_TRUE(Field("Game_opponents_email").isReadOnly());
    Type("Game_name", "Friendly");
    Type("Game_opponents_name", "Nobody");
    PassDelay();
    EXPECT_EQ(Name() + ", " + Email(), "Nobody, ");
    EXPECT_FALSE(Ok().isEnabled());
    EXPECT_TRUE(desktop_.boxes.messages.empty());
    Type("Game_opponents_name", "Ev");
    PassDelay();
    EXPECT_EQ(Name() + ", " + Email(), "Eva, e@x.org");
    EXPECT_TRUE(Ok().isEnabled());
    desktop_.mail.calls.clear();
    PassDelay();
    EXPECT_TRUE(desktop_.mail.calls.empty()) << "it is looked for once";
  });
}

TEST_F(NewGameTest, ThePickFromTheAddressBookReplacesTheLookup) {
  struct Row {
    const char* name;
    std::vector<platform::Recipient> picked;
    int choice;
    const char* taken;
  };
  const Row rows[] = {
      {"one", {{"Max", "m@x.org"}}, -1, "Max, m@x.org"},
      {"three, and the last of them", {{"A", "a@x"}, {"B", "b@x"}, {"C", "c@x"}}, 2, "C, c@x"},
      {"three, and the first is left standing", {{"A", "a@x"}, {"B", "b@x"}}, 0, "A, a@x"},
      {"nobody", {}, -1, "Ev, "},
  };
  for (const Row& row : rows) {
    InBothLooks([&] {
      SCOPED_TRACE(row.name);
      desktop_.mail.RecipDisplayName("left from an earlier mail");
      desktop_.mail.picked = row.picked;
      Type("Game_opponents_name", "Ev");
      if (row.choice >= 0) {
        OnNextDialog([&row](QWidget& dialog) {
          EXPECT_EQ(dialog.windowTitle(), u"Too many opponents!"_s);
          auto* list = dialog.findChild<QComboBox*>(u"OppList"_s);
          EXPECT_EQ(list->count(), static_cast<int>(row.picked.size()));
          for (int i = 0; i < row.choice; ++i) QTest::keyClick(list, Qt::Key_Down);
          QTest::keyClick(&dialog, Qt::Key_Return);
        });
      }
      Resolve().click();
      EXPECT_EQ(Name() + ", " + Email(), row.taken);
      desktop_.mail.calls.clear();
      QMetaObject::invokeMethod(&Timer1(), "timeout", Qt::DirectConnection);
      EXPECT_TRUE(desktop_.mail.calls.empty()) << "no lookup is due";
    });
  }
}

TEST_F(NewGameTest, ACancelledAddressBookChangesNothing) {
  desktop_.mail.failing = {"Show"};
  InBothLooks([this] {
    Type("Game_opponents_name", "Eva");
    PassDelay();
    Resolve().click();
    EXPECT_EQ(Name() + ", " + Email(), "Eva, e@x.org");
    EXPECT_TRUE(desktop_.boxes.messages.empty());
  });
}

TEST_F(NewGameTest, AReservedTitleIsCleanedAndTold) {
  Process().Offline = true;
  InBothLooks([this] {
    Type("Game_opponents_email", "e@x.org");
    for (const bool byEnter : {false, true}) {
      desktop_.boxes.messages.clear();
      if (byEnter) {
        Field("Game_name").setFocus();
        Field("Game_name").setText(u"My <<TARVOLENIX:game"_s);
        QTest::keyClick(&Field("Game_name"), Qt::Key_Return);
      } else {
        Type("Game_name", "My <<TARVOLENIX:game");
      }
      EXPECT_EQ(Field("Game_name").text(), u"My game"_s);
      ASSERT_EQ(desktop_.boxes.messages.size(), 1u);
      EXPECT_EQ(desktop_.LastMessage().first, "Illegal characters");
      EXPECT_TRUE(dialog_->isVisible());
      EXPECT_EQ(dialog_->focusWidget(), &Field("Game_name"));
    }
  });
}

TEST_F(NewGameTest, AnswersAndStaysAsABackdrop) {
  Process().Offline = true;
  using Action = std::function<void()>;
  const auto key = [this](Qt::Key pressed) {
    return [this, pressed] { QTest::keyClick(dialog_->focusWidget(), pressed); };
  };
  const std::tuple<const char*, Action, bool> rows[] = {
      {"OK", [this] { Ok().click(); }, true},
      {"Enter", key(Qt::Key_Return), true},
      {"Escape", key(Qt::Key_Escape), false},
      {"Cancel", [this] { Button("CancelButton", "CancelButtonS").click(); }, false},
      {"the window's close", [this] { dialog_->close(); }, false},
  };
  for (const auto& [name, action, answer] : rows) {
    for (const bool simple : {false, true}) {
      SCOPED_TRACE(name);
      platform::Settings().SimpleUI = simple;
      Process().NewGame = {};
      dialog_ = std::make_unique<NewGameInfo>();
      OnNextDialog([this, &act = action](QWidget&) {
        Type("Game_opponents_email", "e@x.org");
        Type("Game_name", "Friendly");
        act();
      });
      EXPECT_EQ(dialog_->Ask(), answer);
      EXPECT_EQ(dialog_->FormCanceled(), !answer);
      EXPECT_EQ(dialog_->isVisible(), answer);
      EXPECT_EQ(Process().NewGame.Game_name, answer ? "Friendly" : "");
      EXPECT_EQ(Process().NewGame.Game_opponents_email, answer ? "e@x.org" : "");
    }
  }
}

TEST_F(NewGameTest, OffersToRememberAnAddressThatNobodyKnows) {
  desktop_.mail.people = {{"zoe@x.org", "zoe@x.org"}};
  const auto resolve = [this] {
    Open();
    EXPECT_FALSE(RememberBox().isVisible());
    Type("Game_name", "Friendly");
    Type("Game_opponents_name", "zoe@x.org");
    PassDelay();
    EXPECT_EQ(Email(), "zoe@x.org");
    return RememberBox().isVisible();
  };
  for (const bool simple : {false, true}) {
    platform::Settings().SimpleUI = simple;
    for (const bool wanted : {false, true}) {
      EXPECT_TRUE(resolve());
      RememberBox().setChecked(wanted);
      Ok().click();
      EXPECT_FALSE(dialog_->isVisible());
      EXPECT_EQ(book_.People().size(), wanted ? 1u : 0u);
    }
    EXPECT_FALSE(resolve()) << "it is known now";
    book_.Remove(book_.People().front().person);
  }
}

TEST_F(NewGameTest, WithoutItsSkinItCancelsItself) {
  ASSERT_TRUE(QFile::remove(PathOf("NewGameInfo.jpg")));
  EXPECT_FALSE(NewGameInfo().Ask());
  FileTold();
}

}  // namespace
}  // namespace ui
