// SPDX-License-Identifier: GPL-3.0-or-later
// The new game dialog, by keys and clicks, over a mail service in memory.
#include <QCheckBox>
#include <QComboBox>

#include "ai/ai_files.h"
#include "contacts/contacts_book.h"
#include "ui/games/choose_opponent.h"
#include "ui/games/new_game_info.h"
#include "ui/skin_fixture.h"

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
    BringUp(*dialog_);
  }

  bool CanGoOn() { return Can(*dialog_, "OkButton"); }
  void Type(const char* field, const char* text) { ui::Type(*dialog_, field, text); }
  QTimer& Timer1() { return *dialog_->findChild<QTimer*>(u"Timer1"_s); }

  /// The delay of the lookup passes, if it is under way.
  void PassDelay() { QMetaObject::invokeMethod(&Timer1(), "timeout", Qt::DirectConnection); }

  std::string Opponent() {
    return (Field(*dialog_, "Game_opponents_name").text() + u", "_s +
            Field(*dialog_, "Game_opponents_email").text())
        .toStdString();
  }

  contacts::ContactsBook book_{{}};
  std::unique_ptr<NewGameInfo> dialog_;
};

TEST_F(NewGameTest, OkWantsATitleAndAnAddress) {
  Process().Offline = true;
  Open();
  EXPECT_FALSE(Can(*dialog_, "Resolve"));
  EXPECT_FALSE(CanGoOn());
  Type("Game_name", "Friendly");
  EXPECT_FALSE(CanGoOn());
  Type("Game_opponents_name", "Eva");
  Type("Game_opponents_email", "any|thing");
  EXPECT_EQ(Opponent(), "Eva, any/thing");
  EXPECT_TRUE(CanGoOn());
  EXPECT_FALSE(Timer1().isActive()) << "without a mail service nobody is looked for";
  Type("Game_name", "");
  EXPECT_FALSE(CanGoOn());
  Type("Game_name", "Friendly");
  Type("Game_opponents_name", "Max");
  EXPECT_EQ(Opponent(), "Max, ") << "an address goes with its name";
  EXPECT_FALSE(CanGoOn());
}

TEST_F(NewGameTest, WhatBecomesOfABarIsToldOverNoField) {
  Open();
  for (const char* name : {"Game_name", "Game_opponents_name"}) {
    QTest::keyClicks(&Field(*dialog_, name), u"|"_s);
    const QWidget* tip = ShownTip();
    ASSERT_NE(tip, nullptr) << name;
    for (const auto* field : dialog_->findChildren<QLineEdit*>()) {
      const QRect place(field->mapToGlobal(QPoint()), field->size());
      EXPECT_FALSE(place.intersects(tip->geometry())) << name;
    }
  }
}

TEST_F(NewGameTest, AgainstTheComputerOnlyTheTitleIsAsked) {
  Process().ComputerGame = true;
  Open();
  EXPECT_EQ(Opponent(), "The Computer, n/a");
  EXPECT_FALSE(Can(*dialog_, "Game_opponents_name"));
  EXPECT_FALSE(Can(*dialog_, "Resolve"));
  EXPECT_TRUE(Field(*dialog_, "Game_name").selectedText().startsWith(u"Game of "_s));
  Type("Game_name", "Test");
  EXPECT_TRUE(CanGoOn());
  Field(*dialog_, "Game_name").clear();
  EXPECT_FALSE(CanGoOn());
  ai::LoadDefaultHeuristics();
  ai::HeuristicTable wild = ai::Heuristics;
  wild[0] = 1234;
  ai::WriteAIFile("Wild", wild);
  for (const char* style : {"Broken", "Wild"}) {
    SCOPED_TRACE(style);
    platform::TheSeams().files->Write(ai::AIFilePath("Broken") + ".AI", "2,77,oops");
    Open();
    Find<QComboBox>(*dialog_, "SearchDepth").setCurrentIndex(4);
    Find<QComboBox>(*dialog_, "Style").setCurrentText(QLatin1StringView(style));
    QTest::mouseClick(&Find(*dialog_, "OkButton"), Qt::LeftButton);
    const bool loads = std::string(style) == "Wild";
    EXPECT_EQ(dialog_->isVisible(), !loads) << "a style that can't be read is told";
    EXPECT_EQ(ai::Heuristics == wild, loads);
    EXPECT_TRUE(Field(*dialog_, "Game_name").text().startsWith(u"Game of "_s));
  }
  EXPECT_FALSE(ai::AIFileExists("My style")) << "nothing of the user's own was lost";
  ai::Heuristics[0] = 777;
  Open();
  Find<QComboBox>(*dialog_, "Style").setCurrentText(u"Wild"_s);
  QTest::mouseClick(&Find(*dialog_, "OkButton"), Qt::LeftButton);
  EXPECT_TRUE(ai::Heuristics == wild && ai::LoadAIFile("My style"));
  EXPECT_EQ(ai::Heuristics[0], 777);
  EXPECT_EQ(platform::Settings().SearchDepth, 4);
}

TEST_F(NewGameTest, ATypedAddressStandsWhateverBecomesOfTheName) {
  Open();
  Type("Game_name", "Friendly");
  Type("Game_opponents_name", "Nobody");
  PassDelay();
  EXPECT_FALSE(CanGoOn());
  Type("Game_opponents_email", "n@x.org");
  EXPECT_TRUE(CanGoOn());
  Type("Game_opponents_name", "Eva");
  PassDelay();
  EXPECT_EQ(Opponent(), "Eva, n@x.org");
  Type("Game_opponents_email", "");
  Type("Game_opponents_name", "Ev");
  PassDelay();
  EXPECT_EQ(Opponent(), "Eva, e@x.org") << "a blank one is looked for again";
}

TEST_F(NewGameTest, WhoeverIsOfferedBelowAFieldIsTakenWithNameAndAddress) {
  book_.Add({"Zoe", {"z@x.org"}});
  for (const char* field : {"Game_opponents_name", "Game_opponents_email"}) {
    Open();
    Field(*dialog_, field).setFocus();
    QTest::keyClicks(&Field(*dialog_, field), u"Z"_s);
    QWidget* popup = QApplication::activePopupWidget();
    ASSERT_NE(popup, nullptr) << field;
    QTest::keyClick(popup, Qt::Key_Down);
    QTest::keyClick(popup, Qt::Key_Return);
    EXPECT_EQ(Opponent(), "Zoe, z@x.org");
  }
}

TEST_F(NewGameTest, ANameIsLookedForAfterADelay) {
  Open();
  EXPECT_TRUE(Field(*dialog_, "Game_opponents_email").isReadOnly());
  Type("Game_name", "Friendly");
  const std::tuple<const char*, const char*, bool> rows[] = {{"Nobody", "Nobody, ", false},
                                                             {"Ev", "Eva, e@x.org", true}};
  for (const auto& [typed, found, ready] : rows) {
    Type("Game_opponents_name", typed);
    ASSERT_TRUE(Timer1().isActive());
    PassDelay();
    EXPECT_EQ(Opponent(), found);
    EXPECT_EQ(CanGoOn(), ready);
  }
  EXPECT_TRUE(desktop_.boxes.messages.empty());
  desktop_.mail.calls.clear();
  PassDelay();
  EXPECT_TRUE(desktop_.mail.calls.empty()) << "it is looked for once";
  Field(*dialog_, "Game_opponents_name").setFocus();
  Field(*dialog_, "Game_opponents_name").selectAll();
  QTest::keyClicks(&Field(*dialog_, "Game_opponents_name"), QStringLiteral("Ma"));
  QTest::mouseClick(&Find(*dialog_, "OkButton"), Qt::LeftButton);
  EXPECT_EQ(Opponent(), "Max, m@x.org") << "OK doesn't wait for the delay";
  EXPECT_FALSE(dialog_->isVisible());
}

TEST_F(NewGameTest, ThePickFromTheAddressBookReplacesTheLookup) {
  const struct {
    const char* name;
    std::vector<platform::Recipient> picked;
    int choice;
    const char* taken;
  } rows[] = {
      {"one", {{"Max", "m@x.org"}}, -1, "Max, m@x.org"},
      {"three, and the last of them", {{"A", "a@x"}, {"B", "b@x"}, {"C", "c@x"}}, 2, "C, c@x"},
      {"two, and the first is left standing", {{"A", "a@x"}, {"B", "b@x"}}, 0, "A, a@x"},
      {"nobody", {}, -1, "Ev, "},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.name);
    Open();
    desktop_.mail.RecipDisplayName("left from an earlier mail");
    desktop_.mail.picked = row.picked;
    Type("Game_opponents_name", "Ev");
    if (row.choice >= 0) {
      OnNextDialog([&row](QWidget& dialog) {
        auto& list = Find<QComboBox>(dialog, "OppList");
        EXPECT_EQ(list.count(), static_cast<int>(row.picked.size()));
        for (int i = 0; i < row.choice; ++i) QTest::keyClick(&list, Qt::Key_Down);
        QTest::keyClick(&dialog, Qt::Key_Return);
      });
    }
    Press(*dialog_, "Resolve");
    EXPECT_EQ(Opponent(), row.taken);
    desktop_.mail.calls.clear();
    PassDelay();
    EXPECT_TRUE(desktop_.mail.calls.empty()) << "no lookup is due";
  }
}

TEST_F(NewGameTest, AReservedTitleIsCleanedAndTold) {
  Process().Offline = true;
  Open();
  Type("Game_opponents_email", "e@x.org");
  for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Tab}) {
    desktop_.boxes.messages.clear();
    Field(*dialog_, "Game_name").setFocus();
    Field(*dialog_, "Game_name").setText(u"My <<TARVOLENIX:game"_s);
    Key(key)(*dialog_);
    QCoreApplication::processEvents();
    EXPECT_EQ(Field(*dialog_, "Game_name").text(), u"My game"_s);
    EXPECT_EQ(desktop_.LastMessage().first, "Illegal characters");
    EXPECT_TRUE(dialog_->isVisible());
    EXPECT_EQ(dialog_->focusWidget(), &Field(*dialog_, "Game_name"));
  }
}

TEST_F(NewGameTest, AnswersAndStaysAsABackdrop) {
  Process().Offline = true;
  const std::tuple<const char*, Action, bool> rows[] = {
      {"OK", Click("OkButton"), true},
      {"Enter", Key(Qt::Key_Return), true},
      {"Escape", Key(Qt::Key_Escape), false},
      {"Cancel", Click("CancelButton"), false},
      {"the window's close", CloseWindow, false},
  };
  for (const bool simple : {false, true}) {
    platform::Settings().SimpleUI = simple;
    for (const auto& [name, action, answer] : rows) {
      SCOPED_TRACE(name);
      dialog_ = std::make_unique<NewGameInfo>();
      OnNextDialog([this, &act = action](QWidget& dialog) {
        Type("Game_opponents_email", "e@x.org");
        Type("Game_name", "Friendly");
        act(dialog);
      });
      const auto asked = dialog_->Ask();
      EXPECT_EQ(asked.has_value(), answer);
      EXPECT_EQ(dialog_->isVisible(), answer);
      if (!asked) continue;
      EXPECT_EQ(asked->Game_name, "Friendly");
      EXPECT_EQ(asked->Game_opponents_email, "e@x.org");
    }
  }
}

TEST_F(NewGameTest, OffersToRememberAnAddressThatNobodyKnows) {
  desktop_.mail.people = {{"zoe@x.org", "zoe@x.org"}};
  const auto offers = [this] {
    Open();
    Type("Game_name", "Friendly");
    Type("Game_opponents_name", "zoe@x.org");
    PassDelay();
    EXPECT_EQ(Opponent(), "zoe@x.org, zoe@x.org");
    return dialog_->findChild<QCheckBox*>()->isVisible();
  };
  for (const bool wanted : {false, true}) {
    EXPECT_TRUE(offers());
    dialog_->findChild<QCheckBox*>()->setChecked(wanted);
    Press(*dialog_, "OkButton");
    EXPECT_EQ(book_.People().size(), wanted ? 1u : 0u);
  }
  EXPECT_FALSE(offers()) << "it is known now";
}

}  // namespace
}  // namespace ui
