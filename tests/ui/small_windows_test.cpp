// SPDX-License-Identifier: GPL-3.0-or-later
#include <QAbstractButton>
#include <QCheckBox>
#include <QLabel>
#include <QPointer>
#include <QTableWidget>
#include <QTextEdit>

#include "skin_fixture.h"
#include "ui/games/held_mail_form.h"
#include "ui/games/notify_form.h"
#include "ui/games/welcome.h"
#include "ui/program/about_box.h"
#include "ui/program/credits.h"
#include "ui/program/splash_screen.h"

namespace ui {
namespace {

using platform::HeldMailChoice;
using platform::NotifyChoice;
using Action = std::function<void(QWidget& dialog)>;

Action Key(Qt::Key key) {
  return [key](QWidget& dialog) { QTest::keyClick(dialog.focusWidget(), key); };
}

QAbstractButton* FindButton(QWidget& dialog, QString name) {
  if (platform::Settings().SimpleUI) name = name.replace(u"Ok"_s, u"OK"_s) + u'S';
  return dialog.findChild<QAbstractButton*>(name);
}

Action Click(const QString& name) {
  return [name](QWidget& dialog) { QTest::mouseClick(FindButton(dialog, name), Qt::LeftButton); };
}

Action Ticks(int count) {
  return [count](QWidget& dialog) {
    for (int i = 0; i < count; ++i) {
      ASSERT_TRUE(dialog.isVisible()) << "gone before tick " << i + 1;
      static_cast<NotifyForm&>(dialog).Tick();
    }
  };
}

using NotifyFormTest = SkinTest;
using HeldMailFormTest = SkinTest;
using SplashScreenTest = SkinTest;
using AboutBoxTest = SkinTest;
using WelcomeTest = SkinTest;

TEST_F(NotifyFormTest, Choices) {
  const struct {
    const char* name;
    Action action;
    NotifyChoice choice;
    int timeout = 0;
    bool isLast = false;
  } rows[] = {
      {"Play", Click(u"PlayButton"_s), NotifyChoice::Play},
      {"Game list", Click(u"GameListButton"_s), NotifyChoice::GameList},
      {"Later", Click(u"LaterButton"_s), NotifyChoice::Later},
      {"Next", Click(u"NextButton"_s), NotifyChoice::Next},
      {"Enter plays", Key(Qt::Key_Return), NotifyChoice::Play},
      {"Escape is Later", Key(Qt::Key_Escape), NotifyChoice::Later},
      {"so is the window's close", [](QWidget& w) { w.close(); }, NotifyChoice::Later},
      {"the third of three ticks answers Later", Ticks(3), NotifyChoice::Later, 3},
      {"it waits for ever",
       [](QWidget& w) {
         Ticks(500)(w);
         Key(Qt::Key_Return)(w);
       },
       NotifyChoice::Play},
      {"the last one has no Next",
       [](QWidget& w) {
         EXPECT_FALSE(FindButton(w, u"NextButton"_s)->isEnabled());
         Click(u"NextButton"_s)(w);
         Click(u"GameListButton"_s)(w);
       },
       NotifyChoice::GameList, 0, true},
  };
  for (const bool simple : {false, true}) {
    platform::Settings().SimpleUI = simple;
    for (const auto& row : rows) {
      SCOPED_TRACE(row.name);
      platform::Settings().NotificationTimeout = row.timeout;
      OnNextDialog(row.action);
      EXPECT_EQ(AskAboutNewMove({"Eva", "Winter", "Well, well", row.isLast}), row.choice);
    }
  }
}

TEST_F(NotifyFormTest, WhatItShows) {
  const auto font = [](const NotifyForm& form) {
    return form.findChild<QTextEdit*>(u"MoveComment"_s)->font();
  };
  for (const bool simple : {false, true}) {
    platform::Settings().SimpleUI = simple;
    platform::Settings().ShowToolTips = simple;
    platform::Settings().NotificationTimeout = simple ? 2 : 0;
    NotifyForm form({"<b>Eva</b>", "Winter & Co", "ä<i>", true});
    EXPECT_EQ(form.findChild<QLabel*>(u"OpName"_s)->text(), u"<b>Eva</b>"_s);
    EXPECT_EQ(form.findChild<QLabel*>(u"GameName"_s)->text(), u"Winter & Co"_s);
    EXPECT_EQ(form.findChild<QTextEdit*>(u"MoveComment"_s)->toPlainText(), u"ä<i>"_s);
    EXPECT_EQ(FindButton(form, u"NextButton"_s)->toolTip(),
              simple ? u"Skip this move and look at the next"_s : QString());
    const auto* ticker = form.findChild<QTimer*>(u"TimeoutTicker"_s);
    EXPECT_EQ(ticker->isActive(), simple);
    EXPECT_EQ(ticker->interval(), simple ? 30000 : 0);

    const NotifyForm silent({"Eva", "Winter", "", true});
    EXPECT_EQ(silent.findChild<QWidget*>(u"MoveComment"_s)->isHidden(), !simple);

    std::string umlauts;
    for (int i = 0; i < 100; ++i) umlauts += "ä";
    const NotifyForm longest({"Eva", "Winter", umlauts, true});
    const NotifyForm tooLong({"Eva", "Winter", umlauts + "!", true});
    EXPECT_TRUE(font(longest).bold());
    EXPECT_FALSE(font(tooLong).bold());
    EXPECT_LT(QFontInfo(font(tooLong)).pixelSize(), QFontInfo(font(longest)).pixelSize());
  }
}

TEST_F(NotifyFormTest, HelpComesWithF1AndGoesWithTheDialog) {
  platform::TheDesktop().hooks.closeHelp = [this] { desktop_.help.CloseHelp(); };
  OnNextDialog([](QWidget& dialog) {
    EXPECT_TRUE(QTest::qWaitForWindowActive(&dialog));
    Key(Qt::Key_F1)(dialog);
    Key(Qt::Key_Escape)(dialog);
  });
  desktop_.log.clear();
  AskAboutNewMove({"Eva", "Winter", "", true});
  EXPECT_EQ(desktop_.log, (fakes::EventLog{"help 14", "close help"}));
}

TEST_F(HeldMailFormTest, NothingButItsButtonGivesAnythingAway) {
  const platform::HeldMailQuestion question;
  const struct {
    const char* name;
    Action action;
    HeldMailChoice choice;
  } rows[] = {
      {"accept", Click(u"AcceptButton"_s), HeldMailChoice::Accept},
      {"refuse", Click(u"RefuseButton"_s), HeldMailChoice::Refuse},
      {"Later", Click(u"LaterButton"_s), HeldMailChoice::Later},
      {"a careless Enter is Later", Key(Qt::Key_Return), HeldMailChoice::Later},
      {"so is Escape", Key(Qt::Key_Escape), HeldMailChoice::Later},
      {"so is the window's close", [](QWidget& w) { w.close(); }, HeldMailChoice::Later},
  };
  for (const bool simple : {false, true}) {
    platform::Settings().SimpleUI = simple;
    for (const auto& row : rows) {
      SCOPED_TRACE(row.name);
      OnNextDialog(row.action);
      EXPECT_EQ(AskAboutHeldMail(question), row.choice);
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
    EXPECT_EQ(form.findChild<QLabel*>(u"Sender"_s)->text(),
              u"<b>Eva</b> eva@example.org\nmax@example.org"_s);
    const auto& moves = *form.findChild<QTableWidget*>(u"Moves"_s);
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

  int handOvers = 0;
  QPointer<SplashScreen> window = new SplashScreen([this] { ++handOvers; });
};

TEST_F(SplashScreenTest, StaysSixTicksOutlastsTheStartAndHandsOverOnce) {
  Splash splash;
  splash.window->Display();
  Process().StartupComplete = false;
  splash.Ticks(20);
  ASSERT_TRUE(splash.window);
  Process().StartupComplete = true;
  splash.Ticks(1);
  EXPECT_FALSE(splash.window);
  EXPECT_EQ(splash.handOvers, 1);

  Splash quick;
  quick.window->Display();
  quick.Ticks(6);
  ASSERT_TRUE(quick.window);
  EXPECT_EQ(quick.handOvers, 0);
  quick.Ticks(1);
  EXPECT_EQ(quick.handOvers, 1);
}

TEST_F(SplashScreenTest, AStartThatFailedHandsNothingOver) {
  Splash closed, failed;
  closed.window->Display();
  closed.window->CloseAtOnce();
  Process().ShuttingDown = true;
  failed.window->Display();
  failed.window->close();
  QCoreApplication::processEvents();
  EXPECT_EQ(closed.handOvers + failed.handOvers, 0);
}

TEST_F(SplashScreenTest, ThePictureFitsTheScreensColours) {
  const QString folder = QString::fromStdString(Process().ProgramFolder) + u"UI Graphics/"_s;
  const std::pair<const char*, Qt::GlobalColor> pictures[] = {{"Splash8.bmp", Qt::red},
                                                              {"Splash16.bmp", Qt::green}};
  for (const auto& [name, colour] : pictures) {
    QImage picture(96, 60, QImage::Format_RGB32);
    picture.fill(colour);
    ASSERT_TRUE(picture.save(folder + QLatin1StringView(name)));
  }
  const std::pair<std::optional<int>, Qt::GlobalColor> rows[] = {
      {8, Qt::red}, {15, Qt::red}, {16, Qt::green}, {32, Qt::green}, {std::nullopt, Qt::red}};
  for (const auto& [depth, colour] : rows) {
    desktop_.screen.settings.BitsPerPixel = depth;
    SplashScreen splash([] {});
    EXPECT_EQ(splash.size(), QSize(480, 300));
    EXPECT_EQ(SeenAt(splash, {479, 299}), QColor(colour)) << depth.value_or(-1);
  }
}

TEST_F(AboutBoxTest, TellsTheVersionAndLeadsToTheCredits) {
  for (const bool simple : {false, true}) {
    platform::Settings().SimpleUI = simple;
    AboutBox about;
    about.show();
    EXPECT_EQ(about.findChild<QLabel*>(u"VerNo"_s)->text(),
              QString::fromStdString(platform::GetVersionText()));
    bool seen = false;
    OnNextDialog([&](QWidget& dialog) {
      seen = qobject_cast<Credits*>(&dialog) != nullptr;
      Click(u"OkButton"_s)(dialog);
    });
    Click(u"CreditsButton"_s)(about);
    EXPECT_TRUE(seen);
    EXPECT_TRUE(about.isVisible());
    Click(u"OkButton"_s)(about);
    EXPECT_FALSE(about.isVisible());
  }
}

TEST_F(WelcomeTest, EachWayIsOneClick) {
  for (const char* name : {"OnThisMachine", "ByMail", "AgainstTheComputer"}) {
    SCOPED_TRACE(name);
    std::string taken;
    Welcome welcome({[&] { taken += "AgainstTheComputer"; }, [&] { taken += "OnThisMachine"; },
                     [&] { taken += "ByMail"; }});
    welcome.show();
    welcome.findChild<QAbstractButton*>(QLatin1StringView(name))->click();
    EXPECT_FALSE(welcome.isVisible());
    QCoreApplication::processEvents();
    EXPECT_EQ(taken, name);
  }
}

TEST_F(WelcomeTest, AsksWhetherRefusedMovesShallBeExplained) {
  platform::Settings().Verbose = true;
  const Welcome welcome({});
  auto& box = *welcome.findChild<QCheckBox*>(u"Verbose"_s);
  EXPECT_TRUE(box.isChecked());
  box.click();
  EXPECT_FALSE(platform::Settings().Verbose);
}

}  // namespace
}  // namespace ui
