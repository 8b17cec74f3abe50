// SPDX-License-Identifier: GPL-3.0-or-later
// Whole games between two players, by mail and by move files.
#include "cli/cli_fixture.h"

namespace cli {
namespace {

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
  EXPECT_NE(late.err.find("The game is over."), std::string::npos) << late.err;
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
  for (const char* name : {"nowhere.txt", "rubbish.txt"}) {
    EXPECT_NE(As("bob", {"check", (root_ / name).string()}).err.find(name), std::string::npos);
  }
}

}  // namespace
}  // namespace cli
