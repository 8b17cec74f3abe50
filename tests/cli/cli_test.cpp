// SPDX-License-Identifier: GPL-3.0-or-later
// The console companion as a script sees it: arguments in, JSON, sentences and an exit code out.
#include <functional>
#include <map>

#include "cli/cli_fixture.h"

namespace cli {
namespace {

struct UsageCase {
  const char* name;
  std::vector<std::string> arguments;
};

TEST_F(CliTest, WrongUsageExitsWith2AndOneSentence) {
  const UsageCase cases[] = {
      {"no verb", {}},
      {"unknown verb that would colour the terminal", {"\x1B[31mcastle\n"}},
      {"option without its value", {"games", "--select"}},
      {"option given twice", {"games", "--sort", "Game_ID;A", "--sort", "Game_ID;D"}},
      {"required option missing", {"new", "--name", "T", "--opponent", "N", "--move", "5254"}},
      {"argument missing", {"moves"}},
      {"identifier that is no number", {"moves", "one"}},
      {"folder option without a folder", {"--folder"}},
      {"a match of no games", {"match", "factory", "factory", "--games", "0", "--depth", "1"}},
      {"nothing to set", {"account", "set"}},
      {"unknown setting", {"account", "set", "Foo=hunter2"}},
      {"setting without a value", {"account", "set", "--password", "hunter2"}},
      {"password on the command line", {"account", "set", "Password=hunter2"}},
  };
  for (const UsageCase& row : cases) {
    SCOPED_TRACE(row.name);
    const Answer answer = Run(row.arguments);
    EXPECT_EQ(answer.exitCode, 2);
    EXPECT_EQ(answer.out, "");
    EXPECT_EQ(std::count(answer.err.begin(), answer.err.end(), '\n'), 1);
    for (const char* never : {"hunter2", "\x1B"}) {
      EXPECT_EQ(answer.err.find(never), std::string::npos);
    }
  }
}

TEST_F(CliTest, HelpAndVersion) {
  EXPECT_NE(Run({"--help"}).out.find("retrieve [--all]"), std::string::npos);
  EXPECT_NE(Run({"new", "--help"}).out.find("--opponent N"), std::string::npos);
  EXPECT_EQ(Run({"--version"}).out, "tarvolenix-cli 3.0.0\n");
}

TEST_F(CliTest, ReplayTellsEachMoveAndStopsAtTheFirstRefusal) {
  const std::string promotion = "board=" + BoardWith("Kg8 Pa7 Pb2 kf1") + " moves=";
  const std::pair<std::string, const char*> rows[] = {
      {"moves=6263 5755 7274 4884",
       R"({"move":"4884","ok":true,"text":"Qh4++","check":0,"mate":true,"drawn":false,"messages":[]}],)"
       R"("board":"0102030405030201;0606060606000006;0000000000060000;0000000000000610;)"
       R"(0000000012000000;0000000000000000;1212121200121212;0708090011090807","castle":"000000"})"},
      {"board= moves=5254 5457 5755",
       R"({"move":"5457","ok":false,"messages":[["That is not one of your pieces!",)"
       R"("Illegal move"]]}])"},
      {"moves=5254 xyz", R"({"move":"xyz","ok":false,"messages":[["A move is written)"},
      {promotion + "1718=R", R"("ok":true,"text":"a8=R")"},
      {promotion + "1718", R"("ok":false,"messages":[["A pawn that reaches)"},
  };
  std::string input;
  for (const auto& [line, told] : rows) input += line + '\n';
  const Answer answer = As("anna", {"replay"}, input);
  EXPECT_EQ(answer.exitCode, 0);
  std::istringstream lines(answer.out);
  for (const auto& [sent, told] : rows) {
    std::string line;
    std::getline(lines, line);
    EXPECT_NE(line.find(told), std::string::npos) << sent << '\n' << line;
  }
}

TEST_F(CliTest, LegalAndPerftStartFromThePositionsOfStandardInput) {
  EXPECT_EQ(As("anna", {"legal"}, "moves=6263 5755 7274 4884\n").out,
            "{\"side\":0,\"moves\":[]}\n");
  EXPECT_EQ(As("anna", {"perft", "3"}).out, "{\"nodes\":8902}\n");
  const Answer refused = As("anna", {"legal"}, "moves=5255\n");
  EXPECT_EQ(refused.exitCode, 1);
  EXPECT_NE(refused.err.find("5255"), std::string::npos);
}

TEST_F(CliTest, TheComputerOpponentTellsItsScoresAndRepeatsASearchWithItsSeed) {
  std::string table = "10";  // only check counts
  for (int i = 1; i < 54; ++i) table += ";0";
  EXPECT_NE(As("anna", {"evaluate", "--heuristics", table}, "moves=5254 6766\n")
                .out.find("{\"move\":\"4185\",\"before\":0,\"after\":10,\"score\":10}"),
            std::string::npos);
  const auto search = [&](const char* seed) {
    const Answer answer = As("anna", {"search", "--depth", "2", "--seed", seed}, "moves=5254\n");
    return answer.out.substr(0, answer.out.find("\"seconds\""));
  };
  EXPECT_EQ(search("4"), search("4"));
  EXPECT_TRUE(search("4").starts_with("{\"value\":")) << search("4");
}

TEST_F(CliTest, AMatchTellsItsGamesAndWhoIsAhead) {
  fs::create_directories(root_ / "anna/AI Files");
  std::string nothing;  // no move is worth more than another, not even mate
  for (int row = 2; row < 64; ++row) {
    const bool heading =
        std::string(" 3 14 30 31 37 43 49 59 ").find(' ' + std::to_string(row) + ' ') !=
        std::string::npos;
    if (!heading) nothing += std::to_string(row) + ",0\n";
  }
  WriteFile(root_ / "anna/AI Files/Idle.AI", nothing);
  WriteFile(root_ / "torn.AI", "2,88,4");
  const auto match = [&](const std::string& one, const std::string& other) {
    return As("anna", {"match", one, other, "--games", "4", "--depth", "1", "--seed", "7"});
  };
  const std::string told = match("Idle", "factory").out;
  EXPECT_TRUE(told.starts_with("{\"game\":1,\"white\":\"A\",\"result\":")) << told;
  EXPECT_NE(told.find("\n{\"won\":0,\"drawn\":"), std::string::npos) << told;
  EXPECT_EQ(told.find("\"lost\":0"), std::string::npos) << told;
  EXPECT_EQ(match("Idle", "factory").out, told);
  EXPECT_NE(match("factory", root_ / "torn.AI").err.find("Field 4 is missing"), std::string::npos);
  EXPECT_NE(match("factory", "Nobody").err.find("no AI file \"Nobody\""), std::string::npos);
}

TEST_F(CliTest, GamesAreSelectedSortedAndRemoved) {
  for (const std::string name : {"b", "a"}) {
    As("anna", {"new", "--name", name, "--opponent", "Bo\u202Eb", "--email", "bob@example.org",
                "--move", "5254"});
  }
  const std::string sorted = As("anna", {"games", "--sort", "Game_name;D"}).out;
  EXPECT_LT(sorted.find("\"b\""), sorted.find("\"a\""));
  const std::string one = As("anna", {"games", "--select", "Game_ID;2"}).out;
  EXPECT_TRUE(one.starts_with("{\"GAME_ID\":2,\"GAME_DATESTAMP\":\"")) << one;
  EXPECT_NE(one.find("\"GAME_OPPONENTS_NAME\":\"Bo\\u202eb\""), std::string::npos) << one;
  EXPECT_NE(As("anna", {"show", "2", "--text"}).out.find("You are playing Bo�b"),
            std::string::npos);
  EXPECT_EQ(As("anna", {"backup"}).out, "{\"ok\":true}\n");
  EXPECT_EQ(As("anna", {"remove", "2"}).out, "{\"ok\":true}\n");
  EXPECT_EQ(As("anna", {"games", "--select", "Game_ID;2"}).out, "");
  EXPECT_EQ(As("anna", {"show", "2"}).exitCode, 1);
}

/// A new game that could be, but for one of its options.
std::vector<std::string> NewGameWith(const std::string& option, const std::string& value) {
  std::map<std::string, std::string> options = {
      {"--name", "T"},    {"--opponent", "Bob"}, {"--email", "b@c.d"},
      {"--move", "5254"}, {"--comment", ""},     {"--board", BoardWith("Ke1 Pe2 ke8")}};
  options[option] = value;
  std::vector<std::string> arguments = {"new"};
  for (const auto& [name, given] : options) arguments.insert(arguments.end(), {name, given});
  return arguments;
}

TEST_F(CliTest, ARefusalSaysWhyAndSavesNothing) {
  AnnaStartsGame();
  const std::string before = ReadFile(root_ / "anna/Data/Tvgdb.dat");
  const std::pair<std::vector<std::string>, const char*> rows[] = {
      {{"move", "7", "5254"}, "There is no game 7."},
      {{"games", "--select", "Foo;2"}, "No CASE for FOO"},
      {NewGameWith("--board", BoardWith("Ke1 Pe2")), "no position with a king"},
      {NewGameWith("--opponent", "Bob\nBcc: x"), "--opponent"},
      {NewGameWith("--opponent", "B\xF6"), "UTF-8"},
      {NewGameWith("--email", ""), "--email"},
      {NewGameWith("--comment", "x:TARVOLENIX>>"), "--comment"},
      {NewGameWith("--comment", std::string(201, 'x')), "longer than 200"},
  };
  for (const auto& [arguments, said] : rows) {
    SCOPED_TRACE(said);
    const Answer answer = As("anna", arguments);
    EXPECT_EQ(answer.exitCode, 1);
    EXPECT_NE(answer.err.find(said), std::string::npos) << answer.err;
    EXPECT_EQ(ReadFile(root_ / "anna/Data/Tvgdb.dat"), before);
  }
  EXPECT_EQ(As("anna", NewGameWith("--name", "Another")).exitCode, 0);
}

TEST_F(CliTest, WhatCantBeSentIsNotSaved) {
  fs::create_directories(root_ / "post");
  WriteFile(root_ / "post/anna@example.org", "a file where her mailbox should be");
  const Answer answer = AnnaStartsGame();
  EXPECT_EQ(answer.exitCode, 1);
  EXPECT_EQ(answer.out, "");
  for (const std::string& said : {answer.err, As("anna", {"retrieve"}).err}) {
    EXPECT_NE(said.find("failed to connect to your mail service"), std::string::npos) << said;
    EXPECT_NE(said.find(" Can't make "), std::string::npos) << "the mail service's own reason";
  }
  EXPECT_FALSE(fs::exists(root_ / "anna/Data/Tvgdb.dat"));
}

TEST_F(CliTest, WithoutSettingsNothingIsSentAndWhatNeedsNoneGoesOn) {
  AnnaStartsGame();
  const std::string conf = root_ / "anna/Tarvolenix.conf";
  const std::pair<std::function<void()>, const char*> rows[] = {
      {[&] { WriteFile(conf, "Verbose=True\n"); }, "account set"},
      {[&] { WriteFile(conf, "Verbo"); }, "was damaged and is kept as"},
      {[&] { fs::remove(conf), fs::create_directory(conf); }, "can't be read"},
  };
  for (const auto& [spoil, said] : rows) {
    for (const auto& arguments : std::vector<std::vector<std::string>>{
             {"send", "1"}, {"retrieve"}, {"account", "test"}, {"account", "show"}}) {
      fs::remove(conf + ".bak");
      spoil();
      const Answer answer = As("anna", arguments);
      EXPECT_EQ(answer.exitCode, 1) << said;
      EXPECT_NE((answer.out + answer.err).find(said), std::string::npos) << answer.err;
      EXPECT_EQ(answer.out.find("\"ok\":true"), std::string::npos);
    }
    EXPECT_EQ(As("anna", {"games"}).exitCode, 0);
  }
}

TEST_F(CliTest, ADamagedGameFileIsToldAndLeftAsItIs) {
  AnnaStartsGame();
  const std::string file = root_ / "anna/Data/Tvgdb.dat";
  const std::string damaged = ReadFile(file) + "no game\r\n";
  WriteFile(file, damaged);
  WriteFile(root_ / "anna/Data/tvgdb.bak", "no game");
  EXPECT_EQ(As("anna", {"repair", "--from-backup"}).exitCode, 1);
  for (const std::vector<std::string>& arguments :
       {std::vector<std::string>{"games"}, {"show", "1"}, {"move", "1", "5254"}, {"remove", "1"}}) {
    const Answer answer = As("anna", arguments);
    EXPECT_EQ(answer.exitCode, 1) << arguments.front();
    EXPECT_NE(answer.err.find("Line 2 of your game file"), std::string::npos) << answer.err;
  }
  EXPECT_EQ(ReadFile(file), damaged);
  EXPECT_TRUE(
      As("anna", {"repair"})
          .out.starts_with("{\"ok\":true,\"kept\":1,\"lost\":[{\"line\":2,\"why\":\"its GAME_ID "
                           "can't be read\"}],\"aside\":\"Tvgdb.damaged-"));
}

TEST_F(CliTest, AMailAccountIsSetUpFromItsAddress) {
  const Answer set =
      As("anna", {"account", "set", "MailKind=Imap", "MyAddress=anna@gmx.at", "SendPage=false"});
  EXPECT_EQ(set.exitCode, 0);
  for (const char* told :
       {R"("MyName":"anna")", R"("ImapHost":"imap.gmx.net","ImapPort":993)",
        R"("UserName":"anna@gmx.at")", R"("SendPage":false)", R"("PasswordKept":false})"}) {
    EXPECT_NE(set.out.find(told), std::string::npos) << set.out;
  }
  EXPECT_EQ(As("anna", {"account", "test"}).out,
            "{\"ok\":false,\"reason\":\"No password is kept for this mail account.\"}\n");
  const auto kept = [this](const std::vector<std::string>& arguments, const char* input = "") {
    const Answer answer = As("anna", arguments, input);
    EXPECT_EQ((answer.out + answer.err).find("hunter"), std::string::npos);
    return answer.out.find("\"PasswordKept\":true}") != std::string::npos;
  };
  const auto signsIn = [this](const char* change) {
    return As("anna", {"account", "set", change}).out.find(R"("SignIn":"Google")") !=
           std::string::npos;
  };
  As("anna", {"account", "set", "MyAddress=anna@gmail.com"});
  EXPECT_TRUE(signsIn("SignIn=Google"));
  EXPECT_TRUE(signsIn("MyAddress=anna.m@gmail.com"));
  EXPECT_FALSE(signsIn("TokenCommand=true")) << "a command stands for it";
  As("anna", {"account", "set", "TokenCommand="});
  EXPECT_TRUE(signsIn("SignIn=Google"));
  EXPECT_FALSE(signsIn("MyAddress=anna@gmx.at")) << "another provider's";
  EXPECT_TRUE(kept({"account", "set", "--password"}, "hunter2 %|ü\nmore\n"));
  EXPECT_FALSE(kept({"account", "set", "ImapHost=127.0.0.1"})) << "another server's";
  EXPECT_TRUE(kept({"account", "set", "ImapPort=1", "--password"}, "hunter3"));
  EXPECT_EQ(ReadFile(root_ / "anna/Tarvolenix.conf").find("hunter"), std::string::npos);
}

TEST_F(CliTest, AnAccountThatCantWorkIsRefusedAndNothingIsStored) {
  const std::string before = ReadFile(root_ / "anna/Tarvolenix.conf");
  const std::vector<std::string> rows[] = {
      {"MailKind=Pigeon"},
      {"MyAddress=nobody at home"},
      {"MailKind=Imap", "ImapHost="},
      {"TokenCommand=a\nb"},
      {"SmtpPort=25x"},
      {"SmtpSecurity=tls"},
      {"SendPage=perhaps"},
      {"--password", "MailKind=Imap"},
  };
  for (std::vector<std::string> arguments : rows) {
    SCOPED_TRACE(arguments.back());
    arguments.insert(arguments.begin(), {"account", "set"});
    const Answer answer = As("anna", arguments);
    EXPECT_EQ(answer.exitCode, 1);
    EXPECT_EQ(answer.out, "");
    EXPECT_EQ(std::count(answer.err.begin(), answer.err.end(), '\n'), 1) << answer.err;
    EXPECT_EQ(ReadFile(root_ / "anna/Tarvolenix.conf"), before);
  }
  EXPECT_EQ(As("anna", {"account", "test"}).out, "{\"ok\":true}\n");
}

}  // namespace
}  // namespace cli
