// SPDX-License-Identifier: GPL-3.0-or-later
// Signing in at a provider of the test's own, with browsers that do what they shouldn't.
#include <QCoreApplication>
#include <QJsonDocument>
#include <QJsonObject>
#include <QTcpSocket>
#include <gtest/gtest.h>
#include <sys/stat.h>

#include "fakes/memory_passwords.h"
#include "fakes/memory_settings.h"
#include "fakes/plain_events.h"
#include "fakes/temporary_folder.h"
#include "platform/seams.h"
#include "post/accounts/mail_account.h"
#include "post/servers/mail_failures.h"
#include "sign_in/authorization_server.h"
#include "sign_in/browser_sign_in.h"
#include "sign_in/device_sign_in.h"
#include "sign_in/kept_tokens.h"
#include "sign_in/proof_of_origin.h"

namespace {

using namespace sign_in;
using platform::MailError;

// Nobody waits for so long on purpose: it is for a machine that is busy with other tests.
constexpr auto silence = std::chrono::seconds(20);

template <typename Work>
std::string ProblemOf(const Work& work) {
  try {
    work();
    return {};
  } catch (const MailError& error) {
    return error.what();
  }
}

class SignInTest : public testing::Test {
 protected:
  SignInTest() {
    WriteFile(files_.front(),
              "[Google]\nClientId=mine\n[home.org]\nClientId=a client & more\nIssuer=" +
                  server_.Url("") + '\n');
    account_.SignIn = "home.org";
    account_.UserName = "anna";
    account_.ImapHost = "imap.home.org";
  }

  Service Home(std::string Service::*page = &Service::authorize) {
    return WithMetadata(ServiceNamed("home.org", files_), page, patience_);
  }
  std::string Visit(const std::string& url) { return Get(url, patience_).content; }

  int count_ = 0;
  QCoreApplication application_{count_, nullptr};
  TemporaryFolder folder_;
  ClientFiles files_ = {folder_ / "mine.ini", folder_ / "missing.ini"};
  AuthorizationServer server_;
  post::Patience patience_{silence};
  post::MailAccount account_;
};

TEST(ProofOfOriginTest, TheChallengeIsThatOfTheStandardsExample) {
  EXPECT_EQ(ChallengeOf("dBjftJeZ4CVP-mB92K27uhbUJU1p1r_wW1gFWFOEjXk"),
            "E9Melhoa2OwvFrEMTJguCHaoeK1t8URWbuGJSstw-cM");
  EXPECT_EQ(RandomText().size(), 43u);
  EXPECT_NE(RandomText(), RandomText());
}

TEST_F(SignInTest, OnlyTheRightVisitorWithTheRightProofEndsTheWait) {
  std::string pages;
  const auto goTo = [&](const std::string& url, const std::string& from, const std::string& to) {
    std::string place = Visit(url);
    if (const auto at = place.find(from); at != std::string::npos)
      place.replace(at, from.size(), to);
    pages += Visit(place);
  };
  using Browser = std::function<void(const std::string& url)>;
  const struct {
    const char *name, *problem, *page;
    Browser browse;
  } rows[] = {
      {"the user signs in", "", "close this window", [&](auto& url) { goTo(url, "", ""); }},
      {"the browser opens a connection that it doesn't use", "", "close this window",
       [&](auto& url) {
         QTcpSocket idle;
         const QUrl place(QString::fromStdString(Visit(url)));
         idle.connectToHost(place.host(), static_cast<quint16>(place.port()));
         EXPECT_TRUE(idle.waitForConnected());
         goTo(url, "", "");
       }},
      {"forged visits come first", "", "Nobody asked",
       [&](auto& url) {
         for (const char* forged : {"x", ""})
           goTo(url, "state=", std::string("state=") + forged + "&other=");
         goTo(url, "/?code", "/favicon.ico?code");
         goTo(url, "&state", "&error=access_denied&nostate");
         goTo(url, "code=code", "nocode=");
         EXPECT_EQ(pages.find("close this window"), std::string::npos);
         goTo(url, "", "");
       }},
      {"somebody else's code",
       "home.org doesn't accept your sign-in any more: please sign in again.", "close this window",
       [&](auto& url) { goTo(url, "code=code", "code=stolen"); }},
      {"a code that was given for another proof",
       "home.org doesn't accept your sign-in any more: please sign in again.", "",
       [&](auto& url) {
         const std::string back = Visit(url);
         Visit(server_.Url("/authorize?code_challenge=other"));
         Visit(back);
       }},
      {"the user refuses", "The sign-in was refused at home.org.", "close this window",
       [&](auto& url) { goTo(url, "code=code", "error=access_denied"); }},
      {"the provider refuses", "home.org refuses the sign-in: Not today.", "close this window",
       [&](auto& url) { goTo(url, "code=code", "error=x&error_description=Not+today"); }},
      {"the user gives up", "The sign-in was given up.", "", [&](auto&) { patience_.Hurry(); }},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.name);
    pages.clear();
    std::jthread browsing;
    const OpenBrowser open = [&](const std::string& url) {
      browsing = std::jthread([&row, url] { row.browse(url); });
      return true;
    };
    EXPECT_EQ(ProblemOf([&] { SignInByBrowser(Home(), "anna@home.org", open, patience_); }),
              row.problem);
    if (browsing.joinable()) browsing.join();
    EXPECT_NE(pages.find(row.page), std::string::npos) << pages;
  }
}

TEST_F(SignInTest, TheBrowserIsSentToSafePlacesOnly) {
  for (const char* place : {"file:///usr/bin/xterm", "http://home.org", "https:", "mailto:a@b"}) {
    Service service = Home();
    service.authorize = place;
    const OpenBrowser open = [](const std::string& url) {
      ADD_FAILURE() << url;
      return false;
    };
    EXPECT_THROW(SignInByBrowser(service, "", open, patience_), MailError);
  }
}

TEST_F(SignInTest, ADeviceAsksAtThePaceOfTheProvider) {
  const auto error = [](const char* word) { return std::string(R"({"error":")") + word + "\"}"; };
  const struct {
    std::vector<std::pair<int, std::string>> said;
    const char* problem;
    std::vector<int> pauses;
  } rows[] = {
      {{{400, error("authorization_pending")},
        {400, error("slow_down")},
        {503, "down"},
        {200, R"({"access_token":"a","refresh_token":"r"})"}},
       "",
       {2, 2, 7, 14}},
      {{{400, "no form"}}, "home.org refuses the sign-in (400).", {2}},
      {{{400, error("access_denied")}}, "The sign-in was refused at home.org.", {2}},
      {{{400, error("expired_token")}}, "The sign-in took too long: please begin again.", {2}},
      {{{200, R"({"access_token":"a"})"}}, "home.org gave no sign-in that lasts.", {2}},
  };
  for (const auto& row : rows) {
    server_.Say(
        200,
        R"({"device_code":"d","user_code":"WXYZ","verification_uri":"https://home.org","interval":2})");
    for (const auto& [status, content] : row.said) server_.Say(status, content);
    std::vector<int> pauses;
    const auto pause = [&](std::chrono::seconds time) {
      pauses.push_back(static_cast<int>(time.count()));
    };
    EXPECT_EQ(ProblemOf([&] {
                const DeviceCode code = BeginDeviceSignIn(Home(&Service::device), patience_);
                EXPECT_EQ(code.userCode, "WXYZ");
                AwaitDeviceSignIn(Home(), code, pause, patience_);
              }),
              row.problem);
    EXPECT_EQ(pauses, row.pauses) << row.problem;
  }
}

TEST_F(SignInTest, TokensAreRenewedBeforeTheyEndAndWhenTheyAreRefused) {
  fakes::PlainEvents events;
  fakes::MemoryPasswords passwords;
  fakes::MemorySettings settings;
  platform::TheSeams().settings = &settings;
  KeptTokens::Clock::time_point now{};
  const std::string key = post::PasswordKey(account_);
  passwords.kept[key] = "first";
  const auto tokens =
      std::make_unique<KeptTokens>(events, passwords, files_, [&now] { return now; });
  const auto token = [&](const std::string& stale) {
    return tokens->Token(account_, "first", stale, patience_);
  };
  const auto say = [&](const char* name) {
    server_.Say(200, std::string(R"({"access_token":")") + name +
                         R"(","refresh_token":"next","expires_in":"600"})");
  };
  say("one");
  EXPECT_EQ(token(""), "one");
  now += std::chrono::seconds(500);
  EXPECT_EQ(token("an older one"), "one");
  EXPECT_EQ(server_.Asked(), 1);
  now += std::chrono::seconds(50);
  say("two");
  EXPECT_EQ(token(""), "two") << "a minute ahead of its end";
  say("three");
  EXPECT_EQ(token("two"), "three") << "a server wouldn't take it";
  server_.Say(503, "down");
  EXPECT_THROW(token("three"), post::ConnectionLost);
  server_.Say(200, "<html>welcome</html>");
  EXPECT_THROW(token("three"), post::ConnectionLost) << "a hotel's page";
  EXPECT_THROW(token("three"), post::SignInLapsed) << "revoked";
  server_.Say(400, R"({"error":"interaction_required"})");
  EXPECT_THROW(token("three"), post::SignInLapsed) << "the provider wants to see the user";
  bool done = false;
  events.Post([&done] { done = true; });
  events.RunUntil([&done] { return done; });
  EXPECT_EQ(passwords.kept[key], "next") << "the next start begins with what counts now";
  EXPECT_EQ(tokens->Newest("first"), "next") << "what a window holds may be spent";
  passwords.kept[key] = "another";
  server_.Say(400, R"({"error":"invalid_grant"})");
  server_.Say(200, R"({"access_token":"four","refresh_token":"later"})");
  std::string elsewhere;
  std::jthread session([&] {
    elsewhere = token("three");
    events.Post([&done] { done = false; });
  });
  events.RunUntil([&done] { return !done; });
  EXPECT_EQ(elsewhere, "four") << "another program renewed it";
  const auto renew = [&](const char* last, const post::Patience& patience) {
    server_.Say(200, std::string(R"({"access_token":"five","refresh_token":")") + last + "\"}");
    tokens->Token(account_, "first", token(""), patience);
  };
  post::Patience hurried(silence);
  server_.meanwhile = [&hurried] {
    hurried.Hurry();
    while (!hurried.IsOver()) std::this_thread::sleep_for(std::chrono::milliseconds(20));
  };
  renew("late", hurried);
  server_.meanwhile = {};
  EXPECT_EQ(passwords.kept[key], "late") << "what is under way counts from now on";
  passwords.isLocked = true;
  account_.MailKind = "Imap";
  post::SaveMailAccount(account_);
  renew("locked", patience_);
  EXPECT_EQ(passwords.kept[key], "locked") << "what can't be read is spent";
  passwords.isLocked = false;
  passwords.kept.erase(key);
  post::SaveMailAccount({});
  renew("gone", patience_);
  EXPECT_TRUE(passwords.kept.empty()) << "the account isn't the user's any more";
  platform::TheSeams() = {};
}

TEST(TokenEndpointTest, ATimeIsBelievedWithinReason) {
  using std::chrono::seconds;
  const std::pair<const char*, int> rows[] = {
      {R"("600")", 600}, {"0", 60}, {"-5", 60}, {R"("soon")", 60}, {"4294967297", 900}};
  for (const auto& [said, taken] : rows) {
    const auto answer = QJsonDocument::fromJson("{\"in\":" + QByteArray(said) + '}').object();
    EXPECT_EQ(SecondsIn(answer, "in", seconds(60), seconds(900)), seconds(taken)) << said;
  }
}

TEST_F(SignInTest, WhatIsMissingIsSaid) {
  EXPECT_EQ(ServiceNamed("Google", files_).clientId, "mine");
  const std::string missing = ProblemOf([&] { ServiceNamed("Microsoft", files_); });
  EXPECT_NE(missing.find("needs a client identifier"), std::string::npos) << missing;
  account_.MyAddress = "anna@home.org";
  EXPECT_EQ(ServiceNameFor(account_, files_), "home.org");
  EXPECT_EQ(ServiceNameFor(account_, {}), "");
  account_.ImapHost = "IMAP.gmail.com";
  EXPECT_EQ(ServiceNameFor(account_, {}), "Google");
  Service slashed = ServiceNamed("home.org", files_);
  slashed.issuer += "/tenant/";
  EXPECT_EQ(WithMetadata(slashed, &Service::token, patience_).token, server_.Url("/token"));
  Service foreign = ServiceNamed("home.org", files_);
  foreign.issuer += "/other";
  const auto token = [&] { return WithMetadata(foreign, &Service::token, patience_).token; };
  EXPECT_THROW(token(), MailError) << "it speaks for another issuer";
  foreign.issuer = "http://home.org";
  EXPECT_THROW(token(), MailError) << "anybody could read along";
  foreign.token = "known";
  EXPECT_EQ(token(), "known") << "nobody needs to be asked";
  EXPECT_EQ(RemarkOn(files_), "");
  WriteFile(files_.front(), "[Google]\nClientId=mine\nClientSecret=x\n");
  ::chmod(files_.front().c_str(), 0600);
  EXPECT_EQ(RemarkOn(files_), "");
  ::chmod(files_.front().c_str(), 0644);
  EXPECT_EQ(RemarkOn(files_), "") << "nobody gets into the folder";
  ::chmod((folder_ / "").c_str(), 0755);
  EXPECT_NE(RemarkOn(files_), "");
  WriteFile(files_.front(), "[home.org]\nClientId\n");
  EXPECT_EQ(ServiceNameFor(account_, files_), "Google");
  account_.ImapHost = "";
  EXPECT_EQ(ServiceNameFor(account_, files_), "home.org") << "it may be there";
  EXPECT_EQ(ProblemOf([&] { ServiceNamed("home.org", files_); }),
            "The client identifiers can't be looked up: " + files_.front() +
                " has a line that is neither a section nor a value.");
}

}  // namespace
