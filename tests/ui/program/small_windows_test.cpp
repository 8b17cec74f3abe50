// SPDX-License-Identifier: GPL-3.0-or-later
#include <QCheckBox>
#include <QPointer>
#include <QTableWidget>
#include <QTextEdit>

#include "skin/splash_screen.h"
#include "ui/games/held_mail_form.h"
#include "ui/games/notify_form.h"
#include "ui/games/welcome.h"
#include "ui/program/about_box.h"
#include "ui/program/credits.h"
#include "ui/skin_fixture.h"
#include "widgets/window_places.h"

namespace ui {
namespace {

using platform::HeldMailChoice;
using platform::NotifyChoice;

using NotifyFormTest = SkinTest;
using HeldMailFormTest = SkinTest;
using SplashScreenTest = SkinTest;
using AboutBoxTest = SkinTest;
using WelcomeTest = SkinTest;

TEST(WindowPlacesTest, BothAreInSightWhereTheScreenHasRoom) {
  const struct {
    const char* name;
    QRect window;
    int windowLeft, nextLeft, nextWidth;
  } rows[] = {
      {"right", {0, 0, 500, 400}, 0, 508, 300},
      {"left", {500, 0, 500, 400}, 500, 192, 300},
      {"narrower", {240, 0, 500, 400}, 240, 748, 252},
      {"the window moves", {150, 0, 700, 400}, 0, 708, 292},
      {"no room", {50, 0, 900, 400}, 50, 700, 300},
  };
  for (const auto& row : rows) {
    const TwoPlaces places = PlacesSideBySide({0, 0, 1000, 600}, row.window, {0, 0, 300, 300}, 250);
    EXPECT_EQ(places.window.left(), row.windowLeft) << row.name;
    EXPECT_EQ(places.next.left(), row.nextLeft) << row.name;
    EXPECT_EQ(places.next.width(), row.nextWidth) << row.name;
  }
}

TEST_F(NotifyFormTest, Choices) {
  const struct {
    const char* name;
    Action action;
    NotifyChoice choice;
    int timeout = 0;
    bool isLast = false;
  } rows[] = {
      {"Play", Click("PlayButton"), NotifyChoice::Play},
      {"Game list", Click("GameListButton"), NotifyChoice::GameList},
      {"Later", Click("LaterButton"), NotifyChoice::Later},
      {"Next", Click("NextButton"), NotifyChoice::Next},
      {"Enter plays", Key(Qt::Key_Return), NotifyChoice::Play},
      {"Escape is Later", Key(Qt::Key_Escape), NotifyChoice::Later},
      {"so is the window's close", CloseWindow, NotifyChoice::Later},
      {"the third of three ticks answers Later", Ticks<NotifyForm>(3), NotifyChoice::Later, 3},
      {"the last one has no Next",
       [](QWidget& dialog) {
         EXPECT_FALSE(Can(dialog, "NextButton"));
         Press(dialog, "GameListButton");
       },
       NotifyChoice::GameList, 0, true},
  };
  for (const bool simple : {false, true}) {
    platform::Settings().SimpleUI = simple;
    for (const auto& row : rows) {
      SCOPED_TRACE(row.name);
      platform::Settings().NotificationTimeout = row.timeout;
      OnNextDialog(row.action);
      EXPECT_EQ(AskAboutNewMove({"Eva", "Winter", "Well, well", row.isLast, "", -1}), row.choice);
    }
  }
}

TEST_F(NotifyFormTest, WhatItShows) {
  const auto font = [](const std::string& comment) {
    const NotifyForm form({"Eva", "Winter", comment, true, "", -1});
    return Find(form, "MoveComment").font();
  };
  platform::Settings().NotificationTimeout = 2;
  const NotifyForm form({"<b>Eva</b>", "Winter & Co", "ä<i>", true, "12... N<f6"});
  EXPECT_EQ(Find<QLabel>(form, "LastMove").text(), u"Last move: 12... N<f6"_s);
  EXPECT_EQ(Find<QLabel>(form, "OpName").text(), u"<b>Eva</b>"_s);
  EXPECT_EQ(Find<QLabel>(form, "GameName").text(), u"Winter & Co"_s);
  EXPECT_EQ(Find<QTextEdit>(form, "MoveComment").toPlainText(), u"ä<i>"_s);
  EXPECT_EQ(form.findChild<QTimer*>(u"TimeoutTicker"_s)->interval(), 30000);
  const std::string umlauts = u"ä"_s.repeated(100).toStdString();
  EXPECT_TRUE(font(umlauts).bold());
  EXPECT_FALSE(font(umlauts + "!").bold());
}

TEST_F(HeldMailFormTest, NothingButItsButtonGivesAnythingAway) {
  const platform::HeldMailQuestion question;
  const std::tuple<const char*, Action, HeldMailChoice> rows[] = {
      {"accept", Click("AcceptButton"), HeldMailChoice::Accept},
      {"refuse", Click("RefuseButton"), HeldMailChoice::Refuse},
      {"Later", Click("LaterButton"), HeldMailChoice::Later},
      {"a careless Enter is Later", Key(Qt::Key_Return), HeldMailChoice::Later},
      {"so is Escape", Key(Qt::Key_Escape), HeldMailChoice::Later},
      {"so is the window's close", CloseWindow, HeldMailChoice::Later},
  };
  for (const bool simple : {false, true}) {
    platform::Settings().SimpleUI = simple;
    for (const auto& [name, action, choice] : rows) {
      SCOPED_TRACE(name);
      OnNextDialog(action);
      EXPECT_EQ(AskAboutHeldMail(question), choice);
    }
  }
}

TEST_F(HeldMailFormTest, TheFirstMoveThatDiffersIsMarkedAndSeenAndNoNameFakesAnAddress) {
  platform::HeldMailQuestion question;
  question.senderName = "<b>Eva</b>\neva@example.org";
  question.senderAddress = "max@example.org";
  for (int i = 1; i <= 60; ++i) question.moves.push_back({i, "e4", i == 50 ? "d4" : "e4", i == 50});
  for (const bool simple : {false, true}) {
    platform::Settings().SimpleUI = simple;
    HeldMailForm form(question);
    form.show();
    EXPECT_EQ(Find<QLabel>(form, "Sender").text(),
              u"<b>Eva</b> eva@example.org\nmax@example.org"_s);
    const auto& moves = Find<QTableWidget>(form, "Moves");
    const QRect seen = moves.visualItemRect(moves.item(49, 2));
    EXPECT_TRUE(moves.viewport()->rect().contains(seen.center()));
    EXPECT_EQ(moves.item(49, 2)->text(), u"d4"_s);
    EXPECT_EQ(moves.item(49, 3)->text(), u"differs"_s);
    EXPECT_EQ(moves.item(48, 3)->text(), QString());
  }
}

/// A splash window and what it told.
struct Splash {
  void Ticks(int count) const {
    for (int i = 0; i < count; ++i) window->Tick();
    QCoreApplication::processEvents();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  }

  void BeginStay() {
    window->BeginStay([] { return Process().StartupComplete; }, [this] { ++handOvers; });
  }

  int handOvers = 0;
  QPointer<SplashScreen> window = new SplashScreen(std::future<QImage>());
};

TEST_F(SplashScreenTest, OutlastsTheStartAndHandsOverOnceUnlessItFailed) {
  Splash splash;
  splash.window->Display();
  // What has to be said first is said without it.
  QWidget question;
  question.show();
  EXPECT_FALSE(splash.window->isVisible());
  splash.window->Display();
  splash.BeginStay();
  question.hide();
  question.show();
  EXPECT_TRUE(splash.window->isVisible());
  Process().StartupComplete = false;
  splash.Ticks(20);
  ASSERT_TRUE(splash.window);
  Process().StartupComplete = true;
  splash.Ticks(1);
  EXPECT_FALSE(splash.window);
  EXPECT_EQ(splash.handOvers, 1);

  Splash closed;
  closed.window->Display();
  closed.BeginStay();
  closed.window->CloseAtOnce();
  closed.Ticks(0);
  EXPECT_FALSE(closed.window);
  EXPECT_EQ(closed.handOvers, 0);
}

TEST_F(AboutBoxTest, TellsTheVersionAndLeadsToTheCredits) {
  AboutBox about;
  about.show();
  EXPECT_EQ(Find<QLabel>(about, "VerNo").text(),
            QString::fromStdString(platform::GetVersionText()));
  bool seen = false;
  OnNextDialog([&](QWidget& dialog) {
    seen = qobject_cast<Credits*>(&dialog) != nullptr;
    Key(Qt::Key_Escape)(dialog);
  });
  Press(about, "CreditsButton");
  EXPECT_TRUE(seen && about.isVisible());
  Press(about, "OkButton");
  EXPECT_FALSE(about.isVisible());
}

TEST_F(WelcomeTest, EachWayIsOneClick) {
  for (const char* name : {"OnThisMachine", "ByMail", "AgainstTheComputer"}) {
    SCOPED_TRACE(name);
    std::string taken;
    Welcome welcome({[&] { taken += "AgainstTheComputer"; }, [&] { taken += "OnThisMachine"; },
                     [&] { taken += "ByMail"; }});
    welcome.show();
    Press(welcome, name);
    EXPECT_FALSE(welcome.isVisible());
    QCoreApplication::processEvents();
    EXPECT_EQ(taken, name);
  }
}

TEST_F(WelcomeTest, EnterTakesTheWayThatHasTheFocusAndElseNone) {
  for (const auto& [name, taken] :
       {std::pair{"AgainstTheComputer", 1}, {"Verbose", 0}, {"Later", 0}}) {
    SCOPED_TRACE(name);
    int games = 0;
    Welcome welcome({[&] { ++games; }, {}, {}});
    welcome.show();
    welcome.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&welcome));
    EXPECT_EQ(welcome.focusWidget(), &Find<QWidget>(welcome, "AgainstTheComputer"));
    Find<QWidget>(welcome, name).setFocus();
    QTest::keyClick(&Find<QWidget>(welcome, name), Qt::Key_Return);
    QCoreApplication::processEvents();
    EXPECT_EQ(games, taken);
  }
}

TEST_F(WelcomeTest, AsksWhetherRefusedMovesShallBeExplained) {
  platform::Settings().Verbose = true;
  const Welcome welcome({});
  auto& box = Find<QCheckBox>(welcome, "Verbose");
  EXPECT_TRUE(box.isChecked());
  box.click();
  EXPECT_FALSE(platform::Settings().Verbose);
}

}  // namespace
}  // namespace ui
