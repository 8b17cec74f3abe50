// SPDX-License-Identifier: GPL-3.0-or-later
// The account dialog as its user meets it: by keys and clicks, with somebody else's knowledge of
// providers, passwords and servers.
#include "ui/people/account_dialog.h"

#include <QTextEdit>

#include "ui/ui_fixture.h"

namespace ui {
namespace {

bool IsAddress(const std::string& text) {
  return text.find('@') != std::string::npos && text.find(' ') == std::string::npos;
}

ProviderGuess GuessFor(MailAccount account) {
  if (!IsAddress(account.MyAddress)) return {account, false, {}};
  const std::string domain = account.MyAddress.substr(account.MyAddress.find('@') + 1);
  account.ImapHost = "imap." + domain;
  account.SmtpHost = "smtp." + domain;
  account.UserName = account.MyAddress;
  return {account, domain == "known.org", "Switch it on first."};
}

class AccountDialogTest : public testing::Test {
 protected:
  AccountDialogTest() {
    platform::Settings().SimpleUI = true;
    suggestion_.MyName = "root";
    suggestion_.MyAddress = "root@localhost";
    suggestion_.PostFolder = "/post";
  }

  void Open() {
    const AccountHelp help{
        [](const MailAccount& account) { return IsAddress(account.MyAddress); },
        GuessFor,
        [this](const MailAccount& account, AccountHelp::Found found) {
          found_.emplace_back(account.MyAddress, std::move(found));
        },
        [this](const MailAccount& account) { return account.UserName == keptFor_; },
        [this](const AccountAnswer& answer, AccountHelp::Told told) {
          tested_.push_back(answer);
          told_.push_back(std::move(told));
        },
        [this](const MailAccount& account) {
          return account.ImapHost.ends_with("known.org") ? offer_ : AccountHelp::SignInOffer{};
        },
        [this](const MailAccount&, const std::string&, AccountHelp::Sent sent,
               AccountHelp::SignedIn signedIn) {
          sent("https://known.org/page");
          signedIn_.push_back(std::move(signedIn));
        },
        [this] { ++givenUp_; }};
    dialog_ = std::make_unique<AccountDialog>(suggestion_, help);
    BringUp(*dialog_);
  }

  void OpenMailbox(const char* address) {
    suggestion_.MailKind = "Imap";
    suggestion_.MyAddress = address;
    Open();
  }

  void Type(const char* field, const char* text) { ui::Type(*dialog_, field, text); }
  void Press(const char* button) { ui::Press(*dialog_, button); }
  bool Shows(const char* name) { return ui::Shows(*dialog_, name); }
  bool CanGoOn() { return Can(*dialog_, "OkButton"); }
  QString Outcome() { return Find<QTextEdit>(*dialog_, "OutcomeText").toPlainText(); }
  MailAccount Account() { return dialog_->Answer().account; }

  MailAccount suggestion_;
  std::string keptFor_;
  std::vector<std::pair<std::string, AccountHelp::Found>> found_;
  std::vector<AccountAnswer> tested_;
  std::vector<AccountHelp::Told> told_;
  AccountHelp::SignInOffer offer_{"Known", "", true};
  std::vector<AccountHelp::SignedIn> signedIn_;
  int givenUp_ = 0;
  std::unique_ptr<AccountDialog> dialog_;
};

TEST_F(AccountDialogTest, TakesWhatCannotHarmAMailAndWantsNameAndAddress) {
  Open();
  Type("MyName", " A|nna M");
  Field(*dialog_, "MyName").insert(u"ü|\nller "_s);
  for (const char* unfit : {"   ", "anna at home", "anna"}) {
    Type("MyAddress", unfit);
    EXPECT_FALSE(CanGoOn()) << unfit;
  }
  Type("MyAddress", " anna@example.org");
  EXPECT_TRUE(CanGoOn());
  EXPECT_EQ(Account().MyName, "A/nna Mü/ ller");
  EXPECT_EQ(Account().MyAddress, "anna@example.org");
  EXPECT_EQ(Account().PostFolder, "/post/");
  EXPECT_TRUE(Account().SendPage);
  Press("SendPage");
  EXPECT_FALSE(Account().SendPage);
  for (const char* unfit : {"", "max@example.org", "max@example.org/", "post"}) {
    Type("PostFolder", unfit);
    EXPECT_FALSE(CanGoOn()) << unfit;
  }
}

TEST_F(AccountDialogTest, EachKindShowsAndWantsItsOwn) {
  Open();
  const struct {
    const char* kind;
    bool folder, password, test, ready;
  } rows[] = {{"Imap", false, true, true, false},
              {"System", false, false, true, true},
              {"Post", true, false, false, true}};
  for (const auto& row : rows) {
    SCOPED_TRACE(row.kind);
    Press(row.kind);
    EXPECT_EQ(Account().MailKind, row.kind);
    EXPECT_EQ(Shows("PostFolder"), row.folder);
    EXPECT_EQ(Shows("Password"), row.password);
    EXPECT_EQ(Shows("TestButton"), row.test);
    EXPECT_EQ(CanGoOn(), row.ready);
    EXPECT_EQ(Account().MyAddress, row.password ? "" : "root@localhost")
        << "this machine's own address is of no use elsewhere";
  }
}

TEST_F(AccountDialogTest, TheServersFollowTheAddressUntilTheUserChoosesThem) {
  OpenMailbox("");
  Type("MyAddress", "anna@known.org");
  EXPECT_EQ(Account().ImapHost, "imap.known.org");
  EXPECT_FALSE(Shows("ImapHost")) << "a known provider's servers interest nobody";
  EXPECT_EQ(Find<QLabel>(*dialog_, "ProviderNote").text(), u"Switch it on first."_s);
  Type("MyAddress", "anna@home.net");
  found_.at(0).second({});
  EXPECT_TRUE(Shows("ImapHost"));
  EXPECT_EQ(Account().UserName, "anna@home.net");
  Type("SmtpHost", "mail.home.net");
  Type("MyAddress", "anna@known.org");
  EXPECT_EQ(Account().ImapHost, "imap.home.net");
  EXPECT_EQ(Account().SmtpHost, "mail.home.net");
}

TEST_F(AccountDialogTest, WhatIsFoundFillsTheServersThatNobodyHasChosen) {
  const auto find = [this](std::size_t number, const char* host) {
    ProviderGuess found{Account(), true, "Found there."};
    found.account.ImapHost = host;
    found_.at(number).second(found);
  };
  OpenMailbox("");
  Type("Password", "geheim");
  for (const char* address : {"anna@known.org", "anna", "anna@home.net", "bob@home.net"}) {
    Type("MyAddress", address);
  }
  ASSERT_EQ(found_.size(), 2u) << "only unknown providers are asked about";
  find(0, "mail.anna.net");
  EXPECT_EQ(Account().ImapHost, "imap.home.net") << "it was asked for another address";
  Press("TestButton");
  EXPECT_TRUE(tested_.empty()) << "there may be better servers soon";
  find(1, "mail.bob.net");
  EXPECT_EQ(tested_.at(0).account.ImapHost, "mail.bob.net");
  EXPECT_EQ(Find<QLabel>(*dialog_, "ProviderNote").text(), u"Found there."_s);
  Type("MyAddress", "eva@home.net");
  EXPECT_EQ(Account().ImapHost, "imap.home.net");
  Press("ServerFold");
  Type("ImapHost", "mine.net");
  find(2, "mail.eva.net");
  EXPECT_EQ(Account().ImapHost, "mine.net");
  EXPECT_FALSE(Shows("ProviderNote")) << "nothing was found there that counts";
}

TEST_F(AccountDialogTest, StoredServersThatWereChosenAreShownAndStay) {
  suggestion_.ImapHost = suggestion_.SmtpHost = "localhost";
  suggestion_.UserName = "anna";
  OpenMailbox("anna@known.org");
  EXPECT_TRUE(Shows("ImapHost"));
  Type("MyAddress", "bob@known.org");
  EXPECT_EQ(Account().ImapHost, "localhost");
  Press("ServerFold");
  Type("MyName", "Bob");
  EXPECT_FALSE(Shows("ImapHost")) << "what the user has closed stays closed";
}

TEST_F(AccountDialogTest, AStoredPasswordStaysUnlessAnotherIsTyped) {
  suggestion_.MyAddress = keptFor_ = "anna@known.org";
  suggestion_ = GuessFor(suggestion_).account;
  OpenMailbox("anna@known.org");
  EXPECT_TRUE(CanGoOn());
  EXPECT_EQ(dialog_->Answer().password, std::nullopt);
  Type("Password", " geheim ");
  EXPECT_EQ(Field(*dialog_, "Password").displayText(), QString(8, QChar(0x25CF)));
  EXPECT_EQ(dialog_->Answer().password, " geheim ") << "blanks may belong to it";
  Type("Password", "");
  Type("MyAddress", "bob@known.org");
  EXPECT_FALSE(CanGoOn()) << "the stored one is another account's";
  Press("ServerFold");
  Type("TokenCommand", "token | head -1");
  EXPECT_TRUE(CanGoOn());
  EXPECT_EQ(Account().TokenCommand, "token | head -1");
}

TEST_F(AccountDialogTest, ATestTellsWhatItFoundUntilSomethingIsChanged) {
  OpenMailbox("");
  EXPECT_FALSE(Can(*dialog_, "TestButton"));
  Type("MyAddress", "anna@known.org");
  Type("Password", "geheim");
  Press("TestButton");
  EXPECT_EQ(tested_.at(0).account, Account());
  EXPECT_EQ(tested_.at(0).password, "geheim");
  EXPECT_TRUE(CanGoOn()) << "nobody has to wait for it";
  told_.at(0)("<b>Wrong</b> password.", false);
  EXPECT_EQ(Outcome(), u"<b>Wrong</b> password."_s);
  Type("Password", "besser");
  EXPECT_EQ(Outcome(), u""_s);

  Press("TestButton");
  const QString busy = Outcome();
  Press("TestButton");  // which stops it now
  EXPECT_NE(Outcome(), busy);
  told_.at(1)("Too late.", false);
  EXPECT_EQ(Outcome(), u""_s) << "a test that was stopped has nothing to say";
  Press("TestButton");
  told_.at(2)("", false);
  EXPECT_TRUE(Outcome().startsWith(u"It works"_s));

  Press("TestButton");
  dialog_.reset();
  told_.at(3)("Nobody is there to hear it.", false);
}

TEST_F(AccountDialogTest, KeysDoEverything) {
  OpenMailbox("");
  // A button that is pressed by its letter takes a moment.
  const auto press = [this](Qt::Key letter, const std::function<bool()>& done) {
    QTest::keyClick(dialog_.get(), letter, Qt::AltModifier);
    EXPECT_TRUE(QTest::qWaitFor(done));
  };
  const auto focus = [this] { return dialog_->focusWidget()->objectName().toStdString(); };
  press(Qt::Key_A, [&] { return focus() == "MyAddress"; });
  QTest::keyClicks(dialog_->focusWidget(), u"anna@known.org"_s);
  Key(Qt::Key_Tab)(*dialog_);
  QTest::keyClicks(dialog_->focusWidget(), u"geheim"_s);
  press(Qt::Key_G, [this] { return Shows("ImapHost"); });
  press(Qt::Key_T, [this] { return !tested_.empty(); });
  Field(*dialog_, "MyName").setFocus();
  Key(Qt::Key_Return)(*dialog_);
  EXPECT_EQ(dialog_->result(), QDialog::Accepted);
}

TEST_F(AccountDialogTest, ASignInStandsForThePasswordAtItsProvider) {
  OpenMailbox("anna@known.org");
  dialog_->BeginSignIn();
  EXPECT_FALSE(CanGoOn());
  EXPECT_TRUE(Shows("SignInPage")) << "a browser that doesn't come up tells nobody";
  Press("SignInButton");
  EXPECT_FALSE(Shows("SignInPage"));
  EXPECT_EQ(givenUp_, 1) << "the second click ends it";
  signedIn_.at(0)("too late", "");
  EXPECT_EQ(Account().SignIn, "");
  Press("SignInButton");
  signedIn_.at(1)("", "The sign-in was refused.");
  EXPECT_EQ(Outcome(), u"The sign-in was refused."_s);
  Press("SignInButton");
  signedIn_.at(2)("secret", "");
  EXPECT_TRUE(CanGoOn());
  EXPECT_EQ(Account().SignIn, "Known");
  EXPECT_EQ(dialog_->Answer().password, "secret");
  const auto says = [this](const char* note) {
    return Find<QLabel>(*dialog_, "SignInNote").text().contains(QLatin1StringView(note));
  };
  for (const bool isRefused : {false, true, false}) {
    Press("TestButton");
    told_.back()(isRefused ? "Please sign in again." : "", isRefused);
    EXPECT_EQ(says("You are signed in"), !isRefused);
  }
  Type("Password", "typed");
  EXPECT_EQ(Account().SignIn, "");
  EXPECT_EQ(dialog_->Answer().password, "typed");
  Type("Password", "");
  Type("MyAddress", "anna@other.org");
  Find<QLineEdit>(*dialog_, "MyAddress").editingFinished();
  EXPECT_FALSE(Shows("SignInButton"));
  EXPECT_EQ(Account().SignIn, "") << "it is no use elsewhere";
}

TEST_F(AccountDialogTest, ASignInIsForOneMailboxOnly) {
  OpenMailbox("anna@my.known.org");
  Press("SignInButton");
  Type("MyName", "Anna");
  ProviderGuess found{GuessFor(Account()).account, true, ""};
  found.account.UserName = "anna";
  found_.at(0).second(found);
  EXPECT_EQ(givenUp_, 0) << "a search that ends ends nothing else";
  EXPECT_FALSE(CanGoOn());
  signedIn_.at(0)("secret", "");
  for (const char* owner : {"anna@my.known.org", "bert@my.known.org", "anna@my.known.org"}) {
    Type("MyAddress", owner);
    found_.back().second(found);
    const bool isHers = *owner == 'a';
    EXPECT_EQ(dialog_->Answer().password.value_or(""), isHers ? "secret" : "") << owner;
    EXPECT_EQ(CanGoOn(), isHers) << owner;
  }
  Press("SignInButton");
  Type("MyAddress", "bert@my.known.org");
  EXPECT_EQ(givenUp_, 1);
}

}  // namespace
}  // namespace ui
