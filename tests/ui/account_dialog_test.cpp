// SPDX-License-Identifier: GPL-3.0-or-later
// The account dialog as its user meets it: by keys and clicks, with somebody else's knowledge of
// providers, passwords and servers.
#include "ui/people/account_dialog.h"

#include <QComboBox>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QSpinBox>
#include <QTextEdit>
#include <QToolButton>

#include "ui_fixture.h"

namespace ui {
namespace {

using namespace Qt::StringLiterals;

ProviderGuess GuessFor(MailAccount account) {
  const std::string& address = account.MyAddress;
  const std::string domain = address.substr(std::min(address.size(), address.find('@') + 1));
  if (address.find('@') == std::string::npos) return {account, false, {}};
  account.ImapHost = "imap." + domain;
  account.SmtpHost = "smtp." + domain;
  account.UserName = address;
  return {account, domain == "known.org", "Switch it on first."};
}

class AccountDialogTest : public testing::Test {
 protected:
  AccountDialogTest() {
    suggestion_.MyName = "root";
    suggestion_.MyAddress = "root@localhost";
    suggestion_.PostFolder = "/post";
  }

  void Open() {
    const AccountHelp help{
        [](const MailAccount& account) {
          return account.MyAddress.find('@') != std::string::npos &&
                 account.MyAddress.find(' ') == std::string::npos;
        },
        GuessFor, [this](const MailAccount& account) { return account.UserName == keptFor_; },
        [this](const AccountAnswer& answer, AccountHelp::Told told) {
          tested_.push_back(answer);
          told_.push_back(std::move(told));
        }};
    dialog_ = std::make_unique<AccountDialog>(suggestion_, help);
    dialog_->show();
    dialog_->activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(dialog_.get()));
  }

  void OpenMailbox() {
    suggestion_.MailKind = "Imap";
    Open();
  }

  template <typename Widget>
  Widget& Find(const char* name) {
    auto* widget = dialog_->findChild<Widget*>(QLatin1StringView(name));
    EXPECT_NE(widget, nullptr) << name;
    return *widget;
  }
  QLineEdit& Field(const char* name) { return Find<QLineEdit>(name); }
  void Choose(const char* kind) { Find<QRadioButton>(kind).click(); }
  void Press(const char* button) { Find<QPushButton>(button).click(); }
  void Type(const char* field, const char* text) {
    Field(field).setFocus();
    Field(field).selectAll();
    QTest::keyClicks(&Field(field), QString::fromUtf8(text));
  }
  bool Shows(const char* name) { return Find<QWidget>(name).isVisible(); }
  bool CanGoOn() { return Find<QPushButton>("OkButton").isEnabled(); }
  QString Outcome() { return Find<QTextEdit>("OutcomeText").toPlainText(); }
  MailAccount Account() { return dialog_->Answer().account; }

  MailAccount suggestion_;
  std::string keptFor_;
  std::vector<AccountAnswer> tested_;
  std::vector<AccountHelp::Told> told_;
  std::unique_ptr<AccountDialog> dialog_;
};

TEST_F(AccountDialogTest, TakesWhatCannotHarmAMailAndWantsNameAndAddress) {
  Open();
  Type("MyName", " A|nna M");
  Field("MyName").insert(u"ü|\nller "_s);
  for (const char* unfit : {"   ", "anna at home", "anna"}) {
    Type("MyAddress", unfit);
    EXPECT_FALSE(CanGoOn()) << unfit;
  }
  Type("MyAddress", " anna@example.org");
  EXPECT_TRUE(CanGoOn());
  EXPECT_EQ(Account().MailKind, "Post");
  EXPECT_EQ(Account().MyName, "Anna Mü ller");
  EXPECT_EQ(Account().MyAddress, "anna@example.org");
  EXPECT_EQ(Account().PostFolder, "/post/");
  Field("PostFolder").clear();
  EXPECT_FALSE(CanGoOn());
}

TEST_F(AccountDialogTest, EachKindShowsAndWantsItsOwn) {
  Open();
  struct Row {
    const char* kind;
    bool folder, password, test, ready;
  };
  for (const Row& row :
       {Row{"Imap", false, true, true, false}, Row{"System", false, false, true, true},
        Row{"Post", true, false, false, true}}) {
    SCOPED_TRACE(row.kind);
    Choose(row.kind);
    EXPECT_EQ(Account().MailKind, row.kind);
    EXPECT_EQ(Shows("PostFolder"), row.folder);
    EXPECT_EQ(Shows("Password"), row.password);
    EXPECT_EQ(Shows("ServerFold"), row.password);
    EXPECT_EQ(Shows("TestButton"), row.test);
    EXPECT_EQ(CanGoOn(), row.ready);
    EXPECT_EQ(Field("MyAddress").text(), row.password ? u""_s : u"root@localhost"_s)
        << "this machine's own address is of no use elsewhere";
  }
  EXPECT_EQ(Account(), [this] {
    MailAccount same = suggestion_;
    same.PostFolder += '/';
    return same;
  }());
}

TEST_F(AccountDialogTest, TheServersFollowTheAddressUntilTheUserChoosesThem) {
  Open();
  Choose("Imap");
  Type("MyAddress", "anna@known.org");
  EXPECT_EQ(Account().ImapHost, "imap.known.org");
  Field("Password").setFocus();
  EXPECT_FALSE(Shows("ImapHost")) << "a known provider's servers interest nobody";
  EXPECT_EQ(Find<QLabel>("ProviderNote").text(), u"Switch it on first."_s);
  Type("MyAddress", "anna@home.net");
  Field("Password").setFocus();
  EXPECT_TRUE(Shows("ImapHost"));
  EXPECT_EQ(Account().UserName, "anna@home.net");

  Type("SmtpHost", "mail.home.net");
  Type("MyAddress", "anna@known.org");
  EXPECT_EQ(Account().ImapHost, "imap.home.net");
  EXPECT_EQ(Account().SmtpHost, "mail.home.net");
}

TEST_F(AccountDialogTest, AnAddressThatIsThereAlreadyTellsItsServersToo) {
  suggestion_.MyAddress = "anna@home.net";
  Open();
  Choose("Imap");
  EXPECT_EQ(Account().ImapHost, "imap.home.net");
  EXPECT_TRUE(Shows("ImapHost"));
}

TEST_F(AccountDialogTest, StoredServersThatWereChosenAreShownAndStay) {
  suggestion_.MyAddress = "anna@known.org";
  suggestion_.ImapHost = suggestion_.SmtpHost = "localhost";
  suggestion_.UserName = "anna";
  OpenMailbox();
  EXPECT_TRUE(Shows("ImapHost"));
  Type("MyAddress", "bob@known.org");
  EXPECT_EQ(Account().ImapHost, "localhost");
  Find<QToolButton>("ServerFold").click();
  EXPECT_FALSE(Shows("ImapHost"));
  Field("MyName").setFocus();
  EXPECT_FALSE(Shows("ImapHost")) << "what the user has closed stays closed";
}

TEST_F(AccountDialogTest, ThePortFollowsTheSecurityUnlessItIsUnusual) {
  OpenMailbox();
  const auto choose = [this](const char* security) {
    auto& list = Find<QComboBox>("SmtpSecurity");
    list.setFocus();
    QTest::keyClick(&list, Qt::Key_Home);
    while (list.currentData().toString() != QLatin1StringView(security)) {
      QTest::keyClick(&list, Qt::Key_Down);
    }
  };
  Find<QToolButton>("ServerFold").click();
  choose("StartTls");
  EXPECT_EQ(Account().SmtpPort, 587);
  choose("None");
  EXPECT_EQ(Account().SmtpPort, 25);
  EXPECT_EQ(Account().SmtpSecurity, "None");
  Find<QSpinBox>("SmtpPort").setValue(2525);
  choose("Tls");
  EXPECT_EQ(Account().SmtpPort, 2525);
}

TEST_F(AccountDialogTest, AStoredPasswordStaysUnlessAnotherIsTyped) {
  suggestion_ = GuessFor([this] {
                  MailAccount account = suggestion_;
                  account.MyAddress = keptFor_ = "anna@known.org";
                  return account;
                }())
                    .account;
  OpenMailbox();
  EXPECT_TRUE(CanGoOn());
  EXPECT_EQ(Field("Password").placeholderText(), u"the stored password stays"_s);
  EXPECT_EQ(dialog_->Answer().password, std::nullopt);
  Type("Password", " geheim ");
  EXPECT_EQ(Field("Password").displayText(), u"        "_s.replace(u' ', QChar(0x25CF)));
  EXPECT_EQ(dialog_->Answer().password, " geheim ") << "blanks may belong to it";
  Field("Password").clear();
  Type("MyAddress", "bob@known.org");
  EXPECT_FALSE(CanGoOn()) << "the stored one is another account's";
  Find<QToolButton>("ServerFold").click();
  Type("TokenCommand", "token | head -1");
  EXPECT_TRUE(CanGoOn());
  EXPECT_EQ(Account().TokenCommand, "token | head -1");
}

TEST_F(AccountDialogTest, ATestTellsWhatItFoundUntilSomethingIsChanged) {
  OpenMailbox();
  EXPECT_FALSE(Find<QPushButton>("TestButton").isEnabled());
  Type("MyAddress", "anna@known.org");
  Type("Password", "geheim");
  Press("TestButton");
  EXPECT_EQ(tested_.at(0).account, Account());
  EXPECT_EQ(tested_.at(0).password, "geheim");
  EXPECT_TRUE(CanGoOn()) << "nobody has to wait for it";
  told_.at(0)("<b>Wrong</b> password.");
  EXPECT_EQ(Outcome(), u"<b>Wrong</b> password."_s);
  Type("Password", "besser");
  EXPECT_EQ(Outcome(), u""_s);

  Press("TestButton");
  const QString busy = Outcome();
  Press("TestButton");  // which stops it now
  EXPECT_NE(Outcome(), busy);
  told_.at(1)("Too late.");
  EXPECT_EQ(Outcome(), u""_s) << "a test that was stopped has nothing to say";
  Press("TestButton");
  told_.at(1)("Too late.");
  EXPECT_EQ(Outcome(), busy);
  told_.at(2)("");
  EXPECT_TRUE(Outcome().startsWith(u"It works"_s));

  Press("TestButton");
  dialog_.reset();
  told_.at(3)("Nobody is there to hear it.");
}

TEST_F(AccountDialogTest, KeysDoEverything) {
  Open();
  // A button that is pressed by its letter takes a moment.
  const auto press = [this](Qt::Key letter, const std::function<bool()>& done) {
    QTest::keyClick(dialog_.get(), letter, Qt::AltModifier);
    EXPECT_TRUE(QTest::qWaitFor(done));
  };
  const auto focus = [this] { return dialog_->focusWidget()->objectName().toStdString(); };
  press(Qt::Key_M, [this] { return Account().MailKind == "Imap"; });
  press(Qt::Key_A, [&] { return focus() == "MyAddress"; });
  QTest::keyClicks(dialog_->focusWidget(), u"anna@known.org"_s);
  QTest::keyClick(dialog_->focusWidget(), Qt::Key_Tab);
  EXPECT_EQ(focus(), "Password");
  QTest::keyClicks(dialog_->focusWidget(), u"geheim"_s);
  press(Qt::Key_G, [this] { return Shows("ImapHost"); });
  for (const char* next : {"ShowPassword", "ServerFold", "ImapHost", "ImapPort", "ImapSecurity",
                           "SmtpHost", "SmtpPort", "SmtpSecurity", "UserName", "TokenCommand",
                           "TestButton", "CancelButton", "OkButton", "Imap"}) {
    QTest::keyClick(dialog_->focusWidget(), Qt::Key_Tab);
    EXPECT_EQ(focus(), next);
  }
  press(Qt::Key_T, [this] { return !tested_.empty(); });
  Field("MyName").setFocus();
  QTest::keyClick(dialog_->focusWidget(), Qt::Key_Return);
  EXPECT_EQ(dialog_->result(), QDialog::Accepted);
  EXPECT_FALSE(dialog_->isVisible());
}

}  // namespace
}  // namespace ui
