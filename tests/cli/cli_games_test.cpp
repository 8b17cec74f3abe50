// SPDX-License-Identifier: GPL-3.0-or-later
// Whole games between two players, by mail and by move files.
#include "cli/cli_fixture.h"

namespace cli {
namespace {

TEST_F(CliTest, AGameTravelsBetweenTwoPlayersByMail) {
  EXPECT_EQ(AnnaStartsGame().out, "{\"game\":1,\"text\":\"e4\",\"status\":2,\"state\":\"sent\"}\n");
  EXPECT_EQ(
      As("bob", {"retrieve"}).out,
      "{\"game\":1,\"changed\":true,\"ok\":true,\"stage\":0,\"from\":\"anna@example.org\"}\n");
  EXPECT_EQ(As("bob", {"retrieve", "--all"}).out, "");
  EXPECT_EQ(As("bob", {"moves", "1"}).out,
            "{\"MoveNumber\":1,\"MoveCoordinates\":\"5254\",\"MoveText\":\"e4\","
            "\"MoveComment\":\"Grüße\"}\n");
  EXPECT_EQ(
      As("bob", {"move", "1", "5755", "--send"}).out,
      "{\"game\":1,\"ok\":true,\"text\":\"e5\",\"status\":2,\"state\":\"sent\",\"messages\":[]}\n");
  EXPECT_EQ(As("anna", {"retrieve"}).exitCode, 0);
  EXPECT_NE(As("anna", {"show", "1", "--text"}).out.find(" 4  . . . . P . . ."), std::string::npos);
  EXPECT_EQ(As("bob", {"send", "1"}).out,
            "{\"game\":1,\"ok\":true,\"to\":\"anna@example.org\",\"state\":\"sent\"}\n");
  EXPECT_NE(As("anna", {"retrieve"}).out.find("\"changed\":false"), std::string::npos);
}

TEST_F(CliTest, AGameIsPrintedIntoAFile) {
  AnnaStartsGame();
  const std::string file = root_ / "moves.pdf";
  EXPECT_EQ(As("anna", {"print", "moves", "1", "--pdf", file}).out,
            "{\"file\":\"" + file + "\",\"pages\":1}\n");
  EXPECT_EQ(ReadFile(file).substr(0, 4), "%PDF");
  const std::tuple<std::vector<std::string>, int, const char*> refused[] = {
      {{"moves", "1", "--pdf", root_ / "none/x.pdf"}, 1, "can't be written"},
      {{"moves", "7", "--pdf", file}, 1, "There is no game 7."},
      {{"moves", "1", "--pdf", file, "--rows", "81"}, 2, "no number from 1 to 80"},
      {{"travel", "--pdf", file}, 1, "no game in which you are to move"},
  };
  for (const auto& [arguments, exitCode, why] : refused) {
    auto words = arguments;
    words.insert(words.begin(), "print");
    const Answer answer = As("anna", words);
    EXPECT_EQ(answer.exitCode, exitCode) << why;
    EXPECT_NE(answer.err.find(why), std::string::npos) << answer.err;
  }
}

TEST_F(CliTest, GamesAndPositionsGoToOtherProgramsAndComeFromThem) {
  const std::string file = root_ / "games.pgn";
  WriteFile(file, "[Event \"T\"]\n[White \"anna\"]\n[Black \"Bob\"]\n\n1. e4 *\n\n1. e5 *\n");
  const std::string refused = "{\"file\":\"" + file +
                              "\",\"number\":2,\"ok\":false,\"ply\":1,\"move\":\"e5\","
                              "\"why\":\"There is no pawn that can go to e5.\"}\n";
  const std::string taken = "{\"file\":\"" + file + "\",\"number\":1,\"ok\":true,\"game\":";
  const std::vector<std::string> arguments = {"pgn", "import", file, "--opponent", "b@example.org"};
  const Answer check = As("anna", {"pgn", "import", file, "--check"});
  EXPECT_TRUE(check.out.starts_with(taken + "null}\n" + refused + "{\"games\":2,\"good\":1,"))
      << check.out;
  EXPECT_FALSE(fs::exists(root_ / "anna/Data/Tvgdb.dat"));
  const Answer answer = As("anna", arguments);
  EXPECT_EQ(answer.out, taken + "1}\n" + refused);
  EXPECT_EQ(answer.exitCode, 1);
  const std::string there =
      taken.substr(0, taken.find(",\"game")) + ",\"why\":\"already there\"}\n";
  EXPECT_EQ(As("anna", arguments).out, there + refused);
  EXPECT_EQ(As("anna", {"pgn", "import", root_ / "none"}).exitCode, 1);
  for (const std::string opponent : {"f|o@x y", "f@x.org\n9|"}) {
    EXPECT_EQ(As("anna", {"pgn", "import", file, "--opponent", opponent}).err,
              "The text of --opponent is not one mail address.\n");
  }
  WriteFile(root_ / "empty", " ");
  const Answer empty = As("anna", {"pgn", "import", root_ / "empty"});
  EXPECT_EQ(empty.err, "There is no game in " + (root_ / "empty") + ".\n");
  EXPECT_EQ(empty.exitCode, 1);
  EXPECT_TRUE(As("anna", {"pgn", "export", "1"}).out.ends_with("\n\n1. e4 *\n\n"));
  EXPECT_EQ(As("anna", {"pgn", "export", "7"}).exitCode, 1);
  const std::string fen = "rnbqkbnr/pppppppp/8/8/4P3/8/PPPP1PPP/RNBQKBNR b KQkq e3 0 1";
  EXPECT_NE(As("anna", {"show", "1", "--fen"}).out.find(fen), std::string::npos);
  std::vector<std::string> start = {"new",     "--name",          "T",      "--opponent", "Bob",
                                    "--email", "bob@example.org", "--move", "1718=Q",     "--fen"};
  start.push_back(fen);
  EXPECT_NE(As("anna", start).err.find("It is Black's turn"), std::string::npos);
  start.back() = "4k3/P7/8/8/8/8/8/4K3 w - - 0 1";
  EXPECT_EQ(As("anna", start).out, "{\"game\":2,\"text\":\"a8=Q+\",\"status\":2}\n");
}

TEST_F(CliTest, AMailThatWaitsOrFailsIsToldAndGoesOutLater) {
  const auto stateOf = [](const Answer& answer) {
    return Between(answer.out, "\"state\":", ",") + ' ' + std::to_string(answer.exitCode);
  };
  const std::string box = root_ / "post/bob@example.org";
  fs::create_directories(root_ / "post");
  WriteFile(box, "no folder");
  EXPECT_EQ(stateOf(AnnaStartsGame()), "\"state\":\"failed\" 1");
  const std::string status = As("anna", {"mail", "status"}).out;
  EXPECT_NE(status.find("\"connected\":true"), std::string::npos) << status;
  EXPECT_NE(
      status.find("\"waiting\":0,\"failed\":1}\n{\"game\":1,\"state\":\"failed\",\"tries\":1"),
      std::string::npos)
      << status;
  fs::remove(box);
  EXPECT_EQ(As("anna", {"mail", "deliver"}).exitCode, 0);
  EXPECT_FALSE(fs::exists(box)) << "what failed waits for its user";
  EXPECT_EQ(stateOf(As("anna", {"send", "1"})), "\"state\":\"sent\"}\n 0");

  WriteFile(root_ / "anna/Tarvolenix.conf",
            "[Mail]\nMailKind=Imap\nMyName=anna\nMyAddress=anna@example.org\nUserName=anna\n"
            "TokenCommand=echo x\nImapHost=127.0.0.1\nImapPort=1\nImapSecurity=None\n"
            "SmtpHost=127.0.0.1\nSmtpPort=1\nSmtpSecurity=None\n");
  const Answer waits = As("anna", {"send", "1"});
  EXPECT_EQ(stateOf(waits), "\"state\":\"waiting\" 0") << "nobody is there";
  EXPECT_NE(waits.out.find("\"reason\":\"Nothing answers"), std::string::npos) << waits.out;
  WriteFile(root_ / "anna/Tarvolenix.conf",
            "[Mail]\nMailKind=Post\nMyAddress=anna@example.org\n"
            "PostFolder=" +
                root_ / "post/\n");
  EXPECT_EQ(As("anna", {"retrieve"}).exitCode, 0);
  EXPECT_EQ(As("anna", {"mail", "status"}).out.find("\"game\""), std::string::npos) << "it is out";
}

// An answer from another address than the game's waits for the user's word.
TEST_F(CliTest, WhatWasSetAsideIsTakenOrRefusedByItsIdentifier) {
  AnnaStartsGame();
  As("bob", {"retrieve"});
  As("bob", {"account", "set", "MyAddress=robert@example.org"});
  As("bob", {"move", "1", "5755", "--send"});
  const std::string claim = R"("game":1,"from":"robert@example.org",)";
  EXPECT_NE(As("anna", {"retrieve"}).out.find(claim + R"("why":"address"})"), std::string::npos);
  const auto list = As("anna", {"mail", "held"}).out;
  EXPECT_NE(list.find(claim + R"("name":"bob","why":"address","differs":[],"since":")"),
            std::string::npos)
      << list;
  const std::string id = Between(list, "{\"held\":\"", "\",").substr(9);

  EXPECT_EQ(As("anna", {"mail", "accept", "none"}).exitCode, 1);
  EXPECT_EQ(As("anna", {"mail", "refuse", id}).out, R"({"held":")" + id +
                                                        R"(","ok":true,"game":1,"changed":false})"
                                                        "\n");
  EXPECT_EQ(As("anna", {"mail", "held"}).out, "");
  EXPECT_NE(As("anna", {"mail", "held", "--refused"}).out.find(id), std::string::npos);
  EXPECT_EQ(As("anna", {"mail", "accept", id}).out, R"({"held":")" + id +
                                                        R"(","ok":true,"game":1,"changed":true})"
                                                        "\n");
  EXPECT_NE(As("anna", {"moves", "1"}).out.find("\"e5\""), std::string::npos);
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

const Course courses[] = {
    {"BlackMates",
     "",
     {{"6263", "f3", 2}, {"5755", "e5", 2}, {"7274", "g4", 2}, {"4884", "Qh4++", 3}},
     R"("check":0,"mate":true,"drawn":false,"surrendered":false,"drawOffered":false)"},
    {"OneMinorPiece",
     "Ke1 Pa7 kg8",
     {{"1718=N", "a8=N 1/2-1/2", 6}},
     R"("check":-1,"mate":false,"drawn":true,"surrendered":false,"drawOffered":false)"},
    {"AcceptedOfferByMoveFiles",
     "",
     {{"5254", "e4", 2}, {"offer", "Draw offer", 5}, {"accept", "1/2-1/2", 6}},
     R"("check":-1,"mate":false,"drawn":true,"surrendered":false,"drawOffered":true)",
     true},
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
      const std::string file = root_ / (mover + "/Data/Cmove1.txt");
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
    // Who receives the end has still to look at it.
    const std::string status = std::to_string(player == mover ? course.turns.back().status : 1);
    const std::string shown = As(player, {"show", "1"}).out;
    EXPECT_TRUE(shown.ends_with("\"status\":" + status + "," + course.end +
                                ",\"moves\":" + std::to_string(course.turns.size()) + "}\n"))
        << player << ": " << shown;
    positions.insert(Between(shown, "\"board\"", "\"mine\""));
  }
  EXPECT_EQ(positions.size(), 1u);
  EXPECT_EQ(As(other, {"move", "1", "surrender"}).exitCode, 1) << "the game is over";
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
  const Row rows[] = {
      {"anna", "offer", notYourTurn},
      {"bob", "accept", "There is no offer of a draw to answer."},
      {"bob", "offer", nullptr},
      {"anna", "4244", "You are not allowed to make a move right now."},
      {"anna", "surrender", "Your opponent offers a draw: accept or decline it first."},
      {"anna", "decline", nullptr},
      {"bob", "5755", nullptr},
  };
  AnnaStartsGame();
  As("bob", {"retrieve"});
  for (const Row& row : rows) {
    SCOPED_TRACE(std::string(row.player) + " " + row.entry);
    const std::string player = row.player;
    const std::string file = root_ / (player + "/Data/Tvgdb.dat");
    const std::string before = ReadFile(file);
    const Answer answer = As(player, {"move", "1", row.entry, "--send"});
    EXPECT_EQ(answer.exitCode, row.refusal == nullptr ? 0 : 1);
    if (row.refusal == nullptr) {
      As(player == "anna" ? "bob" : "anna", {"retrieve"});
      continue;
    }
    EXPECT_TRUE(
        answer.out.starts_with(R"({"game":1,"ok":false,"messages":[[")" + std::string(row.refusal)))
        << answer.out;
    EXPECT_EQ(ReadFile(file), before);
  }
}

TEST_F(CliTest, AMoveFileIsCheckedAndARubbishOneRefused) {
  AnnaStartsGame();
  As("anna", {"export", "1"});
  const std::string file = root_ / "anna/Data/Cmove1.txt";
  EXPECT_EQ(As("bob", {"check", file}).exitCode, 0);
  WriteFile(file, "<<TARVOLENIX:1|2|3:TARVOLENIX>>");
  EXPECT_EQ(As("bob", {"check", file}).exitCode, 1);
  EXPECT_EQ(As("bob", {"import", file}).exitCode, 1);
  EXPECT_TRUE(fs::exists(file));
}

}  // namespace
}  // namespace cli
