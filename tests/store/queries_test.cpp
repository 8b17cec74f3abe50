// SPDX-License-Identifier: GPL-3.0-or-later
#include <algorithm>
#include <stdexcept>

#include "store/store_fixture.h"

namespace store {
namespace {

using QueriesTest = StoreTest;

constexpr int fails = -1;

struct LineCase {
  const char* name;
  const char* line;
  bool gameReads;
  int moves;
};

const LineCase lineCases[] = {
    {"thirteen fields", "1|s|0|n|d|e|w|b|-1|o|2|0|11;12", true, 0},
    {"a missing start board reads as empty", "1|s|0|n|d|e|w|b|-1|o|2|0", true, 0},
    {"without the computer flag", "1|s|0|n|d|e|w|b|-1|o|2", false, 0},
    {"nineteen are two moves", "1|s|0|n|d|e|w|b|-1|o|2|0||1|5254|e4||2|5755", true, 2},
    {"a move number that is none", "1|s|0|n|d|e|w|b|-1|o|2|0||1|5254|e4||x|||", true, fails},
    {"digits all over", "1|12|0|4|1234|e|5|5254|-1|7|1234|0|11|1|5254|5|6|2|0000|3|4", true, 2},
    {"booleans in words", "1|s|0|n|d|e|w|b|True|o|2|false|", true, 0},
    {"a boolean that is none", "1|s|0|n|d|e|w|b|yes|o|2|0|", false, 0},
    {"an identifier that is none", "one|s|0|n|d|e|w|b|-1|o|2|0|", false, fails},
    {"an empty line", "", false, fails},
};

TEST_F(QueriesTest, ALineReadsOrFailsTheWholeQuery) {
  for (const LineCase& row : lineCases) {
    SCOPED_TRACE(row.name);
    SetGameFile(Line(Game(5)) + "\r\n" + row.line + "\r\n" + Line(Game(9)) + "\r\n");
    GameRecords games(1);
    EXPECT_EQ(SelectGames(games, ""), row.gameReads);
    EXPECT_EQ(games.size(), row.gameReads ? 3u : 0u);
    MoveRecords moves(1);
    EXPECT_EQ(SelectMoves(moves, 1), row.moves != fails);
    EXPECT_EQ(moves.size(), static_cast<std::size_t>(std::max(0, row.moves)));
    LastMoves last;
    EXPECT_EQ(SelectGamesWithLastMoves(games, last, ""), row.gameReads);
    const bool hasMoves = row.gameReads && SelectWholeMoves(moves, 1) && !moves.empty();
    EXPECT_EQ(last.contains(1), hasMoves);
    if (hasMoves) {
      EXPECT_EQ(Text({last[1]}), Text({moves.back()}));
    }
    EXPECT_TRUE(SelectMoves(moves, 5)) << "damage behind the wanted line disturbs nothing";
  }
}

TEST_F(QueriesTest, MembersAndMovesComeBackAsTheyStandInTheFile) {
  GameRecords games(1);
  EXPECT_TRUE(SelectGames(games, "") && games.empty()) << "without a file there are none";
  SetGameFile("3|s1|4|ti tle|d|e|w|\xFF|0|o|6|-1|1;2|1|5254|e4|hi|2|5755|e5|");
  ASSERT_TRUE(SelectGames(games, "game_id;3") && games.size() == 1);
  EXPECT_EQ(Line(games[0]), "3|s1|4|ti tle|d|e|w|\xFF|0|o|6|-1|1;2");
  MoveRecords moves;
  ASSERT_TRUE(SelectMoves(moves, 3));
  EXPECT_EQ(Text(moves), "|1|5254|e4|hi|2|5755|e5|");
  desktop.files.FailOperation(1);
  EXPECT_FALSE(SelectGames(games, ""));
}

TEST_F(QueriesTest, TheNextGameIDIsBehindTheGreatest) {
  const auto file = [](auto... ids) { return ((Line(Game(ids)) + "\n") + ...); };
  EXPECT_EQ(NextGameID(), 1);
  SetGameFile(file(5, 2));
  EXPECT_EQ(NextGameID(), 6);
  SetGameFile(file(3, 2147483647, 1));
  EXPECT_EQ(NextGameID(), 2) << "no number is left behind, and none in use may be given";
  desktop.files.FailOperation(1);
  EXPECT_EQ(NextGameID(), std::nullopt) << "without a reading there is no number";
}

// The games found as text: GAME_IDs in order, or that the query failed.
std::string Found(std::string_view selection) {
  GameRecords games;
  if (!SelectGames(games, selection)) return "fails";
  std::string found;
  for (const GameRecord& game : games) found += std::to_string(game.GAME_ID);
  return found;
}

TEST_F(QueriesTest, ASelectionTakesTheGamesOfWhichAllPairsHold) {
  SetGameFile(
      "1|s1|4|Title|01/02/2026|a@x|Ann|Bob|-1|Bob|1|0|\r\n"
      "2|s1|4|title|02/02/2026|a@x||Bob|0|bob|2|0|\n"
      "3|s2|0|Title|01/02/2026|b@x|You|Tarvolenix|-1|Tarvolenix|1|-1|88");
  const struct {
    const char* selection;
    const char* found;
  } rows[] = {
      {"", "123"},
      {"Game_ID;2", "2"},
      {"GAME_WHITE_NAME;", "2"},
      {"GAME_DATE;01/02/2026;GAME_OPPONENTS_EMAIL;b@x;GAME_BLACK_NAME;Tarvolenix", "3"},
      {"GAME_OPPONENTS_ID;4;Game_DateStamp;s1;GAME_OPPONENTS_NAME;bob", "2"},
      {"GAME_ID;two", "fails"},
      {"GAME_ID", ""},
      {"GAME_NAME;Title;GAME_ID", "fails"},
  };
  for (const auto& row : rows) EXPECT_EQ(Found(row.selection), row.found) << row.selection;
  EXPECT_EQ(Found("Game_start_board;88"), "") << "no such key";
}

// In two spellings a day makes no order, and an ordinary sort would get lost between its games.
TEST_F(QueriesTest, ADaySpelledTwiceIsSortedByPassesOverNeighbours) {
  GameRecords games = {Game(1), Game(2), Game(3), Game(4)};
  games[2].GAME_DATE = "9/3/2026";
  SortGames(games, "GAME_DATE;A;GAME_ID;D");
  std::string order;
  for (const GameRecord& game : games) order += std::to_string(game.GAME_ID);
  EXPECT_EQ(order, "2134");
  games[0].GAME_DATE = "30/02/2026";
  EXPECT_THROW(SortGames(games, "GAME_DATE;A"), std::invalid_argument);
}

}  // namespace
}  // namespace store
