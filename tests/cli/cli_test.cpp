// SPDX-License-Identifier: GPL-3.0-or-later
// The console companion as a script sees it: arguments in, JSON, sentences and an exit code out.
#include <functional>

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
      {"unknown option", {"games", "--all"}},
      {"option without its value", {"games", "--select"}},
      {"option given twice", {"games", "--sort", "Game_ID;A", "--sort", "Game_ID;D"}},
      {"required option missing", {"new", "--name", "T", "--opponent", "N", "--move", "5254"}},
      {"argument missing", {"moves"}},
      {"argument too many", {"backup", "now"}},
      {"identifier that is no number", {"moves", "one"}},
      {"depth that is no number", {"perft", "-1"}},
      {"folder option without a folder", {"--folder"}},
      {"account without what to do", {"account"}},
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
  const Answer answer = As("anna", {"replay"},
                           "moves=6263 5755 7274 4884\n"
                           "board= moves=5254 2826\n"
                           "moves=5254 5457\n"
                           "moves=5254 xyz\n");
  EXPECT_EQ(answer.exitCode, 0);
  std::istringstream lines(answer.out);
  std::string line;
  std::getline(lines, line);
  EXPECT_TRUE(line.ends_with(
      R"({"move":"4884","ok":true,"text":"Qh4++","check":0,"mate":true,"drawn":false,"messages":[]}],)"
      R"("board":"0102030405030201;0606060606000006;0000000000060000;0000000000000610;)"
      R"(0000000012000000;0000000000000000;1212121200121212;0708090011090807","castle":"000000"})"))
      << line;
  std::getline(lines, line);
  EXPECT_NE(
      line.find(R"({"move":"2826","ok":false,"messages":[["Although the Knights path does not )"
                R"(have to be unobstructed, it can only move in L shaped moves; two along and )"
                R"(one to the side.","Illegal move"]]}])"),
      std::string::npos)
      << line;
  std::getline(lines, line);
  EXPECT_NE(line.find(R"({"move":"5457","ok":false,"messages":[["That is not one of your pieces!",)"
                      R"("Illegal move"]]}])"),
            std::string::npos)
      << line;
  std::getline(lines, line);
  EXPECT_NE(line.find(R"({"move":"xyz","ok":false,"messages":[["A move is written)"),
            std::string::npos)
      << line;
}

TEST_F(CliTest, PromotionsWantTheirLetterAndOnlyTheyDo) {
  // A white pawn on the seventh row, kings far off.
  const std::string board =
      "board=0000000005000000;0000000000000000;0000000000000000;0000000000000000;"
      "0000000000000000;0000000000000000;0600000000000000;0000000000001100 moves=";
  struct Row {
    const char* move;
    const char* expected;
  };
  const Row rows[] = {{"1718=N", R"("ok":true,"text":"a8=N 1/2-1/2")"},
                      {"1718=Q", R"("ok":true,"text":"a8=Q+")"},
                      {"1718", R"("ok":false,"messages":[["A pawn that reaches)"},
                      {"1718=K", R"("ok":false,"messages":[["A move is written)"},
                      {"5152=Q", R"("ok":false,"messages":[["That move is no promotion.)"}};
  for (const Row& row : rows) {
    EXPECT_NE(As("anna", {"replay"}, board + row.move + "\n").out.find(row.expected),
              std::string::npos)
        << row.move;
  }
}

TEST_F(CliTest, LegalAndPerftStartFromThePositionsOfStandardInput) {
  EXPECT_EQ(As("anna", {"legal"}, "moves=6263 5755 7274 4884\n").out,
            "{\"side\":0,\"moves\":[]}\n");
  EXPECT_EQ(As("anna", {"legal"}, "moves=5254\n").out.substr(0, 32),
            "{\"side\":1,\"moves\":[\"1716\",\"1715\"");
  EXPECT_EQ(As("anna", {"perft", "3"}).out, "{\"nodes\":8902}\n");
  EXPECT_EQ(As("anna", {"perft", "1"}, "moves=5254\nmoves=5254 5755\n").out,
            "{\"nodes\":20}\n{\"nodes\":29}\n");
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
  EXPECT_EQ(As("anna", {"search", "--depth", "1"}, "moves=6263 5755 7274 4884\n")
                .out.find("{\"value\":0,\"best\":null,\"considered\":0,\"root\":[]"),
            0U);
  EXPECT_EQ(As("anna", {"search", "--depth", "5"}).exitCode, 2);
  EXPECT_EQ(As("anna", {"evaluate", "--heuristics", "1;2"}, "moves=\n").exitCode, 1);
}

TEST_F(CliTest, GamesAreSelectedSortedAndRemoved) {
  for (const std::string name : {"b", "a", "c"}) {
    As("anna", {"new", "--name", name, "--opponent", "Bo\u202Eb", "--email", "bob@example.org",
                "--move", "5254"});
  }
  const std::string sorted = As("anna", {"games", "--sort", "Game_name;D"}).out;
  EXPECT_LT(sorted.find("\"c\""), sorted.find("\"b\""));
  EXPECT_LT(sorted.find("\"b\""), sorted.find("\"a\""));
  const std::string one = As("anna", {"games", "--select", "Game_ID;2"}).out;
  EXPECT_TRUE(one.starts_with("{\"GAME_ID\":2,\"GAME_DATESTAMP\":\"")) << one;
  EXPECT_NE(one.find("\"GAME_HOST\":true,\"GAME_OPPONENTS_NAME\":\"Bo\\u202eb\",\"GAME_STATUS\":2,"
                     "\"GAME_VS_COMPUTER\":false,\"GAME_START_BOARD\":\"0102030405030201;"),
            std::string::npos)
      << one;
  EXPECT_EQ(As("anna", {"games", "--select", "Game_ID;two"}).exitCode, 1);
  EXPECT_NE(As("anna", {"show", "2", "--text"}).out.find("You are playing Bo�b"),
            std::string::npos);
  EXPECT_EQ(As("anna", {"backup"}).out, "{\"ok\":true}\n");
  EXPECT_EQ(As("anna", {"remove", "2"}).out, "{\"ok\":true}\n");
  EXPECT_EQ(As("anna", {"games", "--select", "Game_ID;2"}).out, "");
  EXPECT_EQ(As("anna", {"show", "2"}).exitCode, 1);
}

TEST_F(CliTest, ARefusalSaysWhyAndSavesNothing) {
  AnnaStartsGame();
  const std::string before = Slurp(root_ / "anna/Data/Tvgdb.dat");
  const auto newGame = [](const std::string& board) {
    return std::vector<std::string>{"new",   "--name",  "T",   "--opponent", "Bob", "--email",
                                    "b@c.d", "--board", board, "--move",     "5152"};
  };
  struct Row {
    const char* name;
    std::vector<std::string> arguments;
    const char* said;
  };
  const Row rows[] = {
      {"not her turn", {"move", "1", "4244"}, "You are not allowed to make a move right now."},
      {"no such game", {"move", "7", "5254"}, "There is no game 7."},
      {"unknown key", {"games", "--select", "Foo;2"}, "No CASE for FOO"},
      {"board without a Black king", newGame(BoardWith("Ke1 Pa2")), "no position with a king"},
      {"board of a wrong form", newGame(BoardWith("Ke1 Pa2 ke8").substr(0, 133)),
       "no position with a king"},
      {"kings alone", newGame(BoardWith("Ke1 ke8")), "you cannot checkmate with only a king each."},
      {"kings side by side", newGame(BoardWith("Ke1 kf1 Pa2")), "both kings being in check"},
      {"Black is mated before the first move", newGame(BoardWith("Kg6 Ra8 kg8")), "in checkmate"},
      {"White has no move", newGame(BoardWith("Ka1 qb3 ke8")), "in a stalemate"},
  };
  for (const Row& row : rows) {
    SCOPED_TRACE(row.name);
    const Answer answer = As("anna", row.arguments);
    EXPECT_EQ(answer.exitCode, 1);
    EXPECT_NE(answer.err.find(row.said), std::string::npos) << answer.err;
    EXPECT_EQ(Slurp(root_ / "anna/Data/Tvgdb.dat"), before);
  }
  // Only odd: nine pawns, and two bishops on squares of one colour.
  const Answer odd = As("anna", newGame(BoardWith("Ke1 Pa2 Pb2 Pc2 Pd2 Pf2 Pg2 Ph2 Pa3 Pb3 ke8 "
                                                  "ba7 bb8")));
  EXPECT_EQ(odd.exitCode, 0) << odd.err;
}

TEST_F(CliTest, WhatCantBeSentIsNotSaved) {
  fs::create_directories(root_ / "post");
  Spill(root_ / "post/anna@example.org", "a file where her mailbox should be");
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
  const fs::path conf = root_ / "anna/Tarvolenix.conf";
  const struct {
    const char* name;
    std::function<void()> spoil;
    const char* said;
    const char* shown;
  } rows[] = {
      {"no account", [&] { Spill(conf, "Verbose=True\n"); }, "account set", R"("MailKind":"")"},
      {"damaged", [&] { Spill(conf, "Verbo"); }, "was damaged and is kept as", R"("MailKind":"")"},
      {"unreadable", [&] { fs::remove(conf), fs::create_directory(conf); }, "can't be read", ""},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.name);
    for (const auto& arguments : std::vector<std::vector<std::string>>{
             {"send", "1"}, {"retrieve"}, {"account", "test"}, {"account", "show"}}) {
      fs::remove(conf.string() + ".bak");
      row.spoil();
      const Answer answer = As("anna", arguments);
      EXPECT_EQ(answer.exitCode, 1);
      EXPECT_NE((answer.out + answer.err).find(row.said), std::string::npos) << answer.err;
      const bool shows = arguments.back() == "show";
      EXPECT_NE(answer.out.find(shows ? row.shown : ""), std::string::npos);
      EXPECT_EQ(answer.out.find("\"ok\":true"), std::string::npos);
    }
    EXPECT_EQ(As("anna", {"games"}).exitCode, 0);
  }
}

TEST_F(CliTest, TextsThatWouldDamageAGameAreRefused) {
  struct Row {
    const char* name;
    std::vector<std::string> texts;  // name, opponent, e-mail, comment
  };
  const Row rows[] = {
      {"field separator in the title", {"a|b", "Bob", "bob@example.org", ""}},
      {"line break in the opponent's name", {"a", "Bob\nBcc: x", "bob@example.org", ""}},
      {"marker in the comment", {"a", "Bob", "bob@example.org", "x:TARVOLENIX>>"}},
      {"comment of 201 characters", {"a", "Bob", "bob@example.org", std::string(201, 'x')}},
      {"no address", {"a", "Bob", "", ""}},
      {"name that is no UTF-8",
       {"a",
        "B\xF6"
        "b",
        "bob@example.org", ""}},
  };
  for (const Row& row : rows) {
    SCOPED_TRACE(row.name);
    const Answer answer =
        As("anna", {"new", "--name", row.texts[0], "--opponent", row.texts[1], "--email",
                    row.texts[2], "--move", "5254", "--comment", row.texts[3]});
    EXPECT_EQ(answer.exitCode, 1);
    EXPECT_EQ(answer.out, "");
    EXPECT_FALSE(fs::exists(root_ / "anna/Data/Tvgdb.dat"));
  }
}

TEST_F(CliTest, ADamagedGameFileIsToldAndLeftAsItIs) {
  AnnaStartsGame();
  const fs::path file = root_ / "anna/Data/Tvgdb.dat";
  const std::string damaged = Slurp(file) + "no game\r\n";
  Spill(file, damaged);
  Spill(root_ / "anna/Data/tvgdb.bak", "no game");
  EXPECT_EQ(As("anna", {"repair", "--from-backup"}).exitCode, 1);
  for (const std::vector<std::string>& arguments :
       {std::vector<std::string>{"games"}, {"show", "1"}, {"move", "1", "5254"}, {"remove", "1"}}) {
    const Answer answer = As("anna", arguments);
    EXPECT_EQ(answer.exitCode, 1) << arguments.front();
    EXPECT_NE(answer.err.find("Line 2 of your game file"), std::string::npos) << answer.err;
  }
  EXPECT_EQ(Slurp(file), damaged);
  EXPECT_TRUE(
      As("anna", {"repair"})
          .out.starts_with("{\"ok\":true,\"kept\":1,\"lost\":[{\"line\":2,\"why\":\"its GAME_ID "
                           "can't be read\"}],\"aside\":\"Tvgdb.damaged-"));
  EXPECT_EQ(As("anna", {"repair"}).out, "{\"ok\":true,\"kept\":1,\"lost\":[],\"aside\":null}\n");
}

TEST_F(CliTest, AMailAccountIsSetUpFromItsAddress) {
  const Answer set = As("anna", {"account", "set", "MailKind=Imap", "MyAddress=anna@gmx.at"});
  EXPECT_EQ(set.exitCode, 0);
  EXPECT_EQ(set.out,
            R"({"MailKind":"Imap","MyName":"anna","MyAddress":"anna@gmx.at","PostFolder":")" +
                (root_ / "post").string() +
                R"(/","ImapHost":"imap.gmx.net","ImapPort":993,"ImapSecurity":"Tls",)"
                R"("SmtpHost":"mail.gmx.net","SmtpPort":465,"SmtpSecurity":"Tls",)"
                R"("UserName":"anna@gmx.at","TokenCommand":"","PasswordKept":false})"
                "\n");
  EXPECT_EQ(As("anna", {"account", "test"}).out,
            "{\"ok\":false,\"reason\":\"No password is kept for this mail account.\"}\n");
  const auto kept = [this](const std::vector<std::string>& arguments, const char* input = "") {
    const Answer answer = As("anna", arguments, input);
    EXPECT_EQ((answer.out + answer.err).find("hunter"), std::string::npos);
    return answer.out.find("\"PasswordKept\":true}") != std::string::npos;
  };
  EXPECT_TRUE(kept({"account", "set", "--password"}, "hunter2 %|ü\nmore\n"));
  EXPECT_TRUE(kept({"account", "show"}));
  EXPECT_TRUE(kept({"account", "set", "ImapPort=1", "ImapHost=127.0.0.1", "UserName=anna",
                    "SmtpHost=localhost", "--password"},
                   "hunter3"));
  const Answer test = As("anna", {"account", "test"});
  EXPECT_EQ(test.exitCode, 1);
  EXPECT_TRUE(test.out.starts_with("{\"ok\":false,\"reason\":\"")) << test.out;
  EXPECT_NE(test.err.find("127.0.0.1"), std::string::npos) << test.err;
  // Chosen servers are no guess: another address leaves them.
  const Answer moved = As("anna", {"account", "set", "MyAddress=anna@web.de"});
  EXPECT_NE(moved.out.find("\"ImapHost\":\"127.0.0.1\""), std::string::npos);
  EXPECT_NE(moved.out.find("\"PasswordKept\":true}"), std::string::npos);
  EXPECT_EQ(Slurp(root_ / "anna/Tarvolenix.conf").find("hunter"), std::string::npos);
}

TEST_F(CliTest, AnAccountThatCantWorkIsRefusedAndNothingIsStored) {
  const std::string before = Slurp(root_ / "anna/Tarvolenix.conf");
  const std::vector<std::string> rows[] = {
      {"MailKind=Pigeon"},
      {"MyName="},
      {"MyName=" + std::string(51, 'x')},
      {"MyName=a|b"},
      {"MyAddress=nobody at home"},
      {"MailKind=Imap", "MyAddress=anna"},
      {"MailKind=Imap", "ImapHost="},
      {"UserName=a\nb"},
      {"TokenCommand=a\nb"},
      {"PostFolder= "},
      {"ImapPort=0"},
      {"SmtpPort=65536"},
      {"SmtpPort=25x"},
      {"SmtpSecurity=tls"},
      {"MyAddress=anna@\xF6"},
      {"--password"},
      {"--password", "MailKind=Imap"},
  };
  for (std::vector<std::string> arguments : rows) {
    SCOPED_TRACE(arguments.back());
    arguments.insert(arguments.begin(), {"account", "set"});
    const Answer answer = As("anna", arguments);
    EXPECT_EQ(answer.exitCode, 1);
    EXPECT_EQ(answer.out, "");
    EXPECT_EQ(std::count(answer.err.begin(), answer.err.end(), '\n'), 1) << answer.err;
    EXPECT_EQ(Slurp(root_ / "anna/Tarvolenix.conf"), before);
  }
  EXPECT_EQ(As("anna", {"account", "test"}).out, "{\"ok\":true}\n");
}

}  // namespace
}  // namespace cli
