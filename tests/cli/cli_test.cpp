// SPDX-License-Identifier: GPL-3.0-or-later
// The console companion as a script sees it: a process with arguments, standard input, JSON lines
// and an exit code. Players live in temporary folders with a settings file and a post office of
// their own.
#include <gtest/gtest.h>
#include <stdlib.h>
#include <sys/wait.h>

#include <cstdio>
#include <filesystem>
#include <fstream>
#include <set>
#include <sstream>
#include <string>
#include <utility>
#include <vector>

namespace {

namespace fs = std::filesystem;

struct Answer {
  int exitCode = -1;
  std::string out;
  std::string err;
};

std::string Slurp(const fs::path& path) {
  std::ifstream file(path, std::ios::binary);
  std::ostringstream text;
  text << file.rdbuf();
  return text.str();
}

void Spill(const fs::path& path, const std::string& text) {
  std::ofstream(path, std::ios::binary) << text;
}

std::string ShellQuoted(const std::string& text) {
  std::string quoted = "'";
  for (const char c : text) quoted += c == '\'' ? std::string("'\\''") : std::string(1, c);
  return quoted + "'";
}

/// The board text of a position such as "Ke1 Pa7 kg8": White's letters are capitals.
std::string BoardWith(const std::string& pieces) {
  std::vector<std::string> rows(8, std::string(16, '0'));
  std::istringstream words(pieces);
  for (std::string piece; words >> piece;) {
    const auto code = static_cast<int>(std::string(".RNBQKPrnbqkp").find(piece[0]));
    std::string& row = rows.at(static_cast<std::size_t>(piece[2] - '1'));
    const auto column = static_cast<std::size_t>(piece[1] - 'a') * 2;
    row[column] = static_cast<char>('0' + code / 10);
    row[column + 1] = static_cast<char>('0' + code % 10);
  }
  std::string text = rows[0];
  for (std::size_t y = 1; y < rows.size(); ++y) text += ';' + rows[y];
  return text;
}

/// What the text has between two others.
std::string Between(const std::string& text, const std::string& from, const std::string& to) {
  const std::size_t begin = text.find(from);
  return begin == std::string::npos ? text : text.substr(begin, text.find(to, begin) - begin);
}

class CliTest : public testing::Test {
 protected:
  CliTest() {
    std::string name = (fs::temp_directory_path() / "tarvolenix-cli-XXXXXX").string();
    root_ = mkdtemp(name.data());
    for (const std::string player : {"anna", "bob"}) {
      fs::create_directories(root_ / player / "Data");
      Spill(root_ / player / "Tarvolenix.conf",
            "[Mail]\nMailKind=Post\nMyName=" + player + "\nMyAddress=" + player +
                "@example.org\nPostFolder=" + (root_ / "post").string() + "/\n");
    }
  }
  ~CliTest() override { fs::remove_all(root_); }

  /// Runs the companion without a folder of its own.
  Answer Run(const std::vector<std::string>& arguments, const std::string& input = {}) {
    Spill(root_ / "in", input);
    std::string command = TARVOLENIX_CLI;
    for (const std::string& argument : arguments) command += ' ' + ShellQuoted(argument);
    const auto path = [&](const char* name) { return ShellQuoted((root_ / name).string()); };
    command += " <" + path("in") + " >" + path("out") + " 2>" + path("err");
    const int status = std::system(command.c_str());
    return {WEXITSTATUS(status), Slurp(root_ / "out"), Slurp(root_ / "err")};
  }

  Answer As(const std::string& player, std::vector<std::string> arguments,
            const std::string& input = {}) {
    const std::vector<std::string> folder = {"--folder", (root_ / player).string()};
    arguments.insert(arguments.begin(), folder.begin(), folder.end());
    return Run(arguments, input);
  }

  Answer AnnaStartsGame() {
    return As("anna", {"new", "--name", "Autumn", "--opponent", "Bob", "--email", "bob@example.org",
                       "--move", "5254", "--comment", "Grüße", "--send"});
  }

  fs::path root_;
};

struct UsageCase {
  const char* name;
  std::vector<std::string> arguments;
};

TEST_F(CliTest, WrongUsageExitsWith2AndOneSentence) {
  const UsageCase cases[] = {
      {"no verb", {}},
      {"unknown verb", {"castle"}},
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
    EXPECT_EQ(answer.err.find("hunter2"), std::string::npos);
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

TEST_F(CliTest, AGameTravelsBetweenTwoPlayersByMail) {
  EXPECT_EQ(AnnaStartsGame().out, "{\"game\":1,\"text\":\"e4\",\"status\":2}\n");
  EXPECT_EQ(
      As("bob", {"retrieve"}).out,
      "{\"game\":1,\"changed\":true,\"ok\":true,\"stage\":0,\"from\":\"anna@example.org\"}\n");
  EXPECT_EQ(As("bob", {"retrieve", "--all"}).out, "");
  EXPECT_EQ(As("bob", {"moves", "1"}).out,
            "{\"MoveNumber\":1,\"MoveCoordinates\":\"5254\",\"MoveText\":\"e4\","
            "\"MoveComment\":\"Grüße\"}\n");
  const Answer refused = As("bob", {"move", "1", "5253"});
  EXPECT_EQ(refused.exitCode, 1);
  EXPECT_EQ(refused.out.substr(0, 22), "{\"game\":1,\"ok\":false,\"");
  EXPECT_EQ(As("bob", {"move", "1", "5755", "--send"}).out,
            "{\"game\":1,\"ok\":true,\"text\":\"e5\",\"status\":2,\"messages\":[]}\n");
  EXPECT_EQ(As("anna", {"retrieve"}).exitCode, 0);
  const std::string shown = As("anna", {"show", "1"}).out;
  EXPECT_EQ(shown.substr(0, 42), R"({"game":1,"white":"anna","black":"Bob","bo)") << shown;
  EXPECT_TRUE(shown.ends_with(R"("toMove":0,"mine":true,"status":1,"check":-1,"mate":false,)"
                              R"("drawn":false,"surrendered":false,"drawOffered":false,"moves":2})"
                              "\n"))
      << shown;
  EXPECT_NE(As("anna", {"show", "1", "--text"}).out.find(" 4  . . . . P . . ."), std::string::npos);
  EXPECT_EQ(As("bob", {"send", "1"}).out, "{\"game\":1,\"ok\":true,\"to\":\"anna@example.org\"}\n");
  EXPECT_NE(As("anna", {"retrieve"}).out.find("\"changed\":false"), std::string::npos);
}

struct Turn {
  const char* entry;
  const char* text;
  int status;  ///< in the store of the player who made the entry
};

struct Course {
  const char* name;
  const char* pieces;  ///< none for the normal start
  std::vector<Turn> turns;
  std::string end;  ///< as both players are shown it
  bool byFile = false;
};

void PrintTo(const Course& course, std::ostream* out) { *out << course.name; }

const std::string goesOn =
    R"("check":-1,"mate":false,"drawn":false,"surrendered":false,"drawOffered":false)";
const std::string drawn =
    R"("check":-1,"mate":false,"drawn":true,"surrendered":false,"drawOffered":false)";
const std::string drawAccepted =
    R"("check":-1,"mate":false,"drawn":true,"surrendered":false,"drawOffered":true)";
const std::string surrendered =
    R"("check":-1,"mate":false,"drawn":false,"surrendered":true,"drawOffered":false)";
const std::string whiteIsMated =
    R"("check":0,"mate":true,"drawn":false,"surrendered":false,"drawOffered":false)";
const std::string blackIsMated =
    R"("check":1,"mate":true,"drawn":false,"surrendered":false,"drawOffered":false)";

const Course courses[] = {
    {"BlackMates",
     "",
     {{"6263", "f3", 2}, {"5755", "e5", 2}, {"7274", "g4", 2}, {"4884", "Qh4++", 3}},
     whiteIsMated},
    {"WhiteMates", "Kg1 Ra1 kg8 pf7 pg7 ph7", {{"1118", "Ra8++", 3}}, blackIsMated},
    {"Stalemate", "Kf7 Qg1 kh8", {{"7176", "Qg6 1/2-1/2", 6}}, drawn},
    {"KingsAlone", "Ke1 pe2 ke8", {{"5152", "Kxe2 1/2-1/2", 6}}, drawn},
    {"OneMinorPiece", "Ke1 Pa7 kg8", {{"1718=N", "a8=N 1/2-1/2", 6}}, drawn},
    {"BishopsOfOneColour", "Ke1 Bc1 ke8 bf8 pg5", {{"3175", "Bxg5 1/2-1/2", 6}}, drawn},
    {"AcceptedOfferByMoveFiles",
     "",
     {{"5254", "e4", 2}, {"offer", "Draw offer", 5}, {"accept", "1/2-1/2", 6}},
     drawAccepted,
     true},
    {"DeclinedOffer",
     "",
     {{"5254", "e4", 2}, {"offer", "Draw offer", 5}, {"decline", "Decline", 5}},
     goesOn},
    {"BlackSurrenders", "", {{"5254", "e4", 2}, {"surrender", "1-0", 4}}, surrendered},
    {"WhiteSurrenders",
     "",
     {{"5254", "e4", 2}, {"5755", "e5", 2}, {"surrender", "0-1", 4}},
     surrendered},
};

class CourseTest : public CliTest, public testing::WithParamInterface<Course> {};

TEST_P(CourseTest, EndsAlikeForBothPlayers) {
  const Course& course = GetParam();
  const std::string board = *course.pieces == 0 ? "" : BoardWith(course.pieces);
  std::string mover = "bob";
  std::string other = "anna";
  for (const Turn& turn : course.turns) {
    std::swap(mover, other);
    std::vector<std::string> arguments = {"move", "1", turn.entry};
    if (&turn == &course.turns.front()) {
      arguments = {"new",     "--name",          "T",      "--opponent", "Bob",
                   "--email", "bob@example.org", "--move", turn.entry};
      if (!board.empty()) arguments.insert(arguments.end(), {"--board", board});
    }
    arguments.insert(arguments.end(), {"--comment", std::string("said with ") + turn.entry});
    if (!course.byFile) arguments.push_back("--send");
    const Answer answer = As(mover, arguments);
    ASSERT_EQ(answer.exitCode, 0) << answer.err;
    ASSERT_NE(answer.out.find(std::string("\"text\":\"") + turn.text +
                              "\",\"status\":" + std::to_string(turn.status)),
              std::string::npos)
        << answer.out;
    if (course.byFile) {
      EXPECT_EQ(As(mover, {"export", "1"}).out, "{\"file\":\"Cmove1.txt\"}\n");
      const std::string file = (root_ / mover / "Data/Cmove1.txt").string();
      EXPECT_EQ(As(other, {"import", file}).exitCode, 0);
      fs::remove(file);
    } else {
      EXPECT_EQ(As(other, {"retrieve"}).exitCode, 0);
    }
  }
  const std::string moves = As(mover, {"moves", "1"}).out;
  EXPECT_NE(moves.find(std::string("said with ") + course.turns.back().entry), std::string::npos);
  EXPECT_EQ(As(other, {"moves", "1"}).out, moves);
  std::set<std::string> positions;
  for (const std::string& player : {mover, other}) {
    SCOPED_TRACE(player);
    // Who receives the end has still to look at it.
    const std::string status = std::to_string(player == mover ? course.turns.back().status : 1);
    const std::string shown = As(player, {"show", "1"}).out;
    EXPECT_TRUE(shown.ends_with("\"status\":" + status + "," + course.end +
                                ",\"moves\":" + std::to_string(course.turns.size()) + "}\n"))
        << shown;
    positions.insert(Between(shown, "\"board\"", "\"mine\""));
    const std::string listed = As(player, {"games"}).out;
    EXPECT_NE(listed.find("\"GAME_STATUS\":" + status + ","), std::string::npos) << listed;
    EXPECT_NE(listed.find("\"GAME_START_BOARD\":\"" + board), std::string::npos) << listed;
  }
  EXPECT_EQ(positions.size(), 1u);
  if (course.end == goesOn) return;
  const Answer late = As(other, {"move", "1", "surrender"});
  EXPECT_EQ(late.exitCode, 1);
  EXPECT_NE(late.out.find("The game is over."), std::string::npos) << late.out;
}

INSTANTIATE_TEST_SUITE_P(Games, CourseTest, testing::ValuesIn(courses),
                         [](const auto& row) { return std::string(row.param.name); });

TEST_F(CliTest, OffersAnswersAndMovesWaitForTheirTime) {
  struct Row {
    const char* player;
    const char* entry;
    const char* refusal;  ///< none where the entry is made and arrives
  };
  const char* notYourTurn = "It is your opponent's turn.";
  const char* answerFirst = "Your opponent offers a draw: accept or decline it first.";
  const Row rows[] = {
      {"anna", "offer", notYourTurn},
      {"bob", "accept", "There is no offer of a draw to answer."},
      {"bob", "decline", "There is no offer of a draw to answer."},
      {"bob", "resign", "A move is written as four digits"},
      {"bob", "offer", nullptr},
      {"bob", "offer", notYourTurn},
      {"bob", "accept", notYourTurn},
      {"anna", "4244", "You are not allowed to make a move right now."},
      {"anna", "offer", answerFirst},
      {"anna", "surrender", answerFirst},
      {"anna", "decline", nullptr},
      {"bob", "accept", "There is no offer of a draw to answer."},
      {"bob", "5755", nullptr},
  };
  AnnaStartsGame();
  As("bob", {"retrieve"});
  for (const Row& row : rows) {
    SCOPED_TRACE(std::string(row.player) + " " + row.entry);
    const std::string player = row.player;
    const fs::path file = root_ / player / "Data/Tvgdb.dat";
    const std::string before = Slurp(file);
    const Answer answer = As(player, {"move", "1", row.entry, "--send"});
    EXPECT_EQ(answer.exitCode, row.refusal == nullptr ? 0 : 1);
    if (row.refusal == nullptr) {
      As(player == "anna" ? "bob" : "anna", {"retrieve"});
      continue;
    }
    EXPECT_TRUE(
        answer.out.starts_with(R"({"game":1,"ok":false,"messages":[[")" + std::string(row.refusal)))
        << answer.out;
    EXPECT_EQ(Slurp(file), before);
  }
}

TEST_F(CliTest, AGameTravelsAsAMoveFile) {
  AnnaStartsGame();
  EXPECT_EQ(As("anna", {"export", "1"}).out, "{\"file\":\"Cmove1.txt\"}\n");
  const std::string file = (root_ / "anna/Data/Cmove1.txt").string();
  EXPECT_EQ(As("bob", {"check", file}).out,
            "{\"file\":\"" + file + "\",\"ok\":true,\"stage\":0}\n");
  const std::string imported = "{\"file\":\"" + file + "\",\"ok\":true,\"game\":1,\"changed\":";
  EXPECT_EQ(As("bob", {"import", file}).out, imported + "true,\"stage\":0}\n");
  EXPECT_EQ(As("bob", {"import", file}).out, imported + "false,\"stage\":0}\n");
  EXPECT_TRUE(fs::exists(file));
  Spill(root_ / "rubbish.txt", "<<TARVOLENIX:1|2|3:TARVOLENIX>>");
  const Answer bad = As("bob", {"import", (root_ / "rubbish.txt").string()});
  EXPECT_EQ(bad.exitCode, 1);
  EXPECT_NE(bad.out.find("\"ok\":false,\"game\":null,\"changed\":false,\"stage\":1}"),
            std::string::npos)
      << bad.out;
  EXPECT_NE(bad.err.find("failed validation"), std::string::npos);
  EXPECT_EQ(As("bob", {"check", (root_ / "nowhere.txt").string()}).exitCode, 1);
}

TEST_F(CliTest, GamesAreSelectedSortedAndRemoved) {
  for (const std::string name : {"b", "a", "c"}) {
    As("anna", {"new", "--name", name, "--opponent", "Bob", "--email", "bob@example.org", "--move",
                "5254"});
  }
  const std::string sorted = As("anna", {"games", "--sort", "Game_name;D"}).out;
  EXPECT_LT(sorted.find("\"c\""), sorted.find("\"b\""));
  EXPECT_LT(sorted.find("\"b\""), sorted.find("\"a\""));
  const std::string one = As("anna", {"games", "--select", "Game_ID;2"}).out;
  EXPECT_TRUE(one.starts_with("{\"GAME_ID\":2,\"GAME_DATESTAMP\":\"")) << one;
  EXPECT_NE(one.find("\"GAME_HOST\":true,\"GAME_OPPONENTS_NAME\":\"Bob\",\"GAME_STATUS\":2,"
                     "\"GAME_VS_COMPUTER\":false,\"GAME_START_BOARD\":\"0102030405030201;"),
            std::string::npos)
      << one;
  EXPECT_EQ(As("anna", {"games", "--select", "Game_ID;two"}).exitCode, 1);
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
    EXPECT_NE((answer.out + answer.err).find(row.said), std::string::npos)
        << answer.out << answer.err;
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
  EXPECT_NE(answer.err.find("failed to connect to your mail service"), std::string::npos);
  EXPECT_FALSE(fs::exists(root_ / "anna/Data/Tvgdb.dat"));
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
  for (const std::vector<std::string>& arguments :
       {std::vector<std::string>{"games"}, {"show", "1"}, {"move", "1", "5254"}, {"remove", "1"}}) {
    const Answer answer = As("anna", arguments);
    EXPECT_EQ(answer.exitCode, 1) << arguments.front();
    EXPECT_NE(answer.err, "") << arguments.front();
  }
  EXPECT_EQ(Slurp(file), damaged);
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
  EXPECT_NE(test.out.find("127.0.0.1"), std::string::npos) << test.out;
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
