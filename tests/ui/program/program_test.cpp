// SPDX-License-Identifier: GPL-3.0-or-later
// The program's own part in the windows: the mail account that it asks for and changes.
#include "app/program.h"

#include <QFile>
#include <QSpinBox>
#include <QTemporaryDir>
#include <QTextEdit>

#include "platform/registry.h"
#include "ui/ui_fixture.h"

namespace ui {
namespace {

class ProgramTest : public testing::Test {
 protected:
  ProgramTest() {
    EXPECT_TRUE(QFile::link(QStringLiteral(TARVOLENIX_SKINS), folder_.path() + u"/UI Graphics"_s));
  }
  void Configure(const QByteArray& settings) {
    QFile file(folder_.path() + u"/Tarvolenix.conf"_s);
    EXPECT_TRUE(
        file.open(QFile::WriteOnly) &&
        file.write("DisplaySplash=False\nRunBefore=True\nSystrayStartup=False\n" + settings));
  }
  std::unique_ptr<app::Program> Start() {
    auto program = std::make_unique<app::Program>(desktop::FoldersFor(folder_.path().toStdString()),
                                                  "-nosound");
    EXPECT_TRUE(program->Start());
    return program;
  }
  static void ChangeAccount(app::Program& program) {
    TakeEntry(*program.Windows().GameList(), "FileMenuButton", "Mail account...");
  }
  QTemporaryDir folder_;
};

TEST_F(ProgramTest, WhoCancelsTheAccountDialogHasNotCrashed) {
  Configure({});
  for (const char* start : {"first", "second"}) {
    SCOPED_TRACE(start);
    OnNextDialog([](QWidget& dialog) {
      EXPECT_EQ(dialog.objectName(), u"AccountDialog"_s);
      EXPECT_TRUE(Find<QAbstractButton>(dialog, "Imap").isChecked());
      EXPECT_TRUE(Field(dialog, "MyAddress").text().isEmpty());
      dialog.close();
    });
    const auto program = Start();
    EXPECT_TRUE(platform::Process().Offline);
    QCoreApplication::processEvents();
    EXPECT_FALSE(platform::GetLogonStatus());
    program->Stop();
  }
}

TEST_F(ProgramTest, TheMailAccountCanBeSeenAndChanged) {
  const std::string post = folder_.path().toStdString() + "/post/";
  Configure(("[Mail]\nMailKind=Post\nMyName=anna\nMyAddress=anna@example.org\nPostFolder=" + post)
                .c_str());
  const auto program = Start();
  EXPECT_FALSE(platform::Process().Offline);
  QWidget& list = *program->Windows().GameList();
  OnNextDialog([&](QWidget& dialog) {
    EXPECT_EQ(Field(dialog, "MyName").text(), u"anna"_s);
    EXPECT_EQ(Field(dialog, "MyAddress").text(), u"anna@example.org"_s);
    EXPECT_EQ(Field(dialog, "PostFolder").text().toStdString(), post);
    Field(dialog, "MyAddress").setText(u"dora"_s);
    Press(dialog, "OkButton");
  });
  ChangeAccount(*program);
  EXPECT_EQ(platform::ReadRegistry(platform::mailSection, "MyAddress"), "dora");
  EXPECT_TRUE(list.findChild<QLabel*>(u"Notice"_s)->text().contains(u"with you: dora"_s));
  EXPECT_FALSE(platform::Process().Offline);
  EXPECT_TRUE(QFile::exists(QString::fromStdString(post) + u"dora@localhost"_s))
      << "the logon is the new account's";
  OnNextDialog([&](QWidget& dialog) {
    platform::WriteRegistry(platform::mailSection, "SendPage", "False");  // at the console
    Field(dialog, "MyName").setText(u"Dora"_s);
    Press(dialog, "OkButton");
  });
  ChangeAccount(*program);
  EXPECT_EQ(platform::ReadRegistry(platform::mailSection, "MyName"), "Dora");
  EXPECT_EQ(platform::ReadRegistry(platform::mailSection, "SendPage"), "False");
  program->Stop();
}

TEST_F(ProgramTest, AMailboxCanBeTriedOutAndStored) {
  Configure("[Mail]\nMyName=anna\nMyAddress=anna@example.org\nPostFolder=post");
  const auto program = Start();
  for (const bool again : {false, true}) {
    SCOPED_TRACE(again);
    OnNextDialog([&](QWidget& dialog) {
      Press(dialog, "Imap");
      if (!again) {
        for (const char* host : {"ImapHost", "SmtpHost"}) Type(dialog, host, "127.0.0.1");
        for (const char* port : {"ImapPort", "SmtpPort"}) {
          Find<QSpinBox>(dialog, port).setValue(1);  // nobody is there
        }
        Field(dialog, "Password").setText(u"geheim"_s);
      }
      Press(dialog, "TestButton");
      const auto& outcome = Find<QTextEdit>(dialog, "OutcomeText");
      EXPECT_TRUE(QTest::qWaitFor([&] { return outcome.toPlainText().contains(u"127.0.0.1"_s); }));
      Press(dialog, "OkButton");
    });
    int failures = 0;
    QTimer answering;
    QObject::connect(&answering, &QTimer::timeout, [&failures] {
      QWidget* dialog = QApplication::activeModalWidget();
      if (dialog && dialog->objectName() == u"MsgForm"_s) failures += dialog->close() ? 1 : 0;
    });
    answering.start(10);
    ChangeAccount(*program);
    EXPECT_EQ(failures, again ? 0 : 1) << "a changed account is logged on with at once";
  }
  EXPECT_EQ(platform::ReadRegistry(platform::mailSection, "MailKind"), "Imap");
  EXPECT_EQ(platform::ReadRegistry(platform::mailSection, "ImapPort"), "1");
  EXPECT_EQ(platform::ReadRegistry(platform::mailSection, "UserName"), "anna@example.org");
  QFile settings(folder_.path() + u"/Tarvolenix.conf"_s);
  EXPECT_TRUE(settings.open(QFile::ReadOnly) && !settings.readAll().contains("geheim"));
  QFile passwords(folder_.path() + u"/Tarvolenix.passwords"_s);
  EXPECT_TRUE(passwords.open(QFile::ReadOnly) && passwords.readAll().contains("geheim"));
  program->Stop();
}

TEST_F(ProgramTest, AnEndFromOutsideWhileTheStartAsksIsAnOrderlyStop) {
  Configure({});
  app::Program program(desktop::FoldersFor(folder_.path().toStdString()), "-nosound");
  OnNextDialog([&](QWidget& dialog) {
    EXPECT_EQ(dialog.objectName(), u"AccountDialog"_s);
    program.End();
  });
  EXPECT_FALSE(program.Start());
  EXPECT_EQ(QApplication::activeModalWidget(), nullptr);
  EXPECT_FALSE(platform::Process().ShuttingDown);
  EXPECT_FALSE(platform::GetLogonStatus()) << "nothing crashed";
  EXPECT_EQ(program.Windows().GameList(), nullptr);
  // The toolkit remembers that it was told to end until a loop begins.
  QTimer::singleShot(0, QApplication::instance(), &QCoreApplication::quit);
  QApplication::exec();
}

}  // namespace
}  // namespace ui
