// SPDX-License-Identifier: GPL-3.0-or-later
#include <algorithm>
#include <random>

#include "platform/conversions.h"
#include "platform/text_fields.h"
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
    {"fourteen fields are no move", "1|s|0|n|d|e|w|b|-1|o|2|0||1", true, 0},
    {"nor are fifteen", "1|s|0|n|d|e|w|b|-1|o|2|0||1|5254", true, 0},
    {"sixteen are one", "1|s|0|n|d|e|w|b|-1|o|2|0||1|5254|e4", true, 1},
    {"an empty last comment", "1|s|0|n|d|e|w|b|-1|o|2|0||1|5254|e4|", true, 1},
    {"eighteen are one", "1|s|0|n|d|e|w|b|-1|o|2|0||1|5254|e4||2", true, 1},
    {"nineteen are two", "1|s|0|n|d|e|w|b|-1|o|2|0||1|5254|e4||2|5755", true, 2},
    {"a move without number", "1|s|0|n|d|e|w|b|-1|o|2|0|||5254|e4|", true, fails},
    {"a move number that is none", "1|s|0|n|d|e|w|b|-1|o|2|0||1|5254|e4||x|||", true, fails},
    {"booleans in words", "1|s|0|n|d|e|w|b|True|o|2|false|", true, 0},
    {"numbers in other forms", " 1|s|+0.0|n|d|e|w|b|7|o|2e0|0|", true, 0},
    {"a boolean that is none", "1|s|0|n|d|e|w|b|yes|o|2|0|", false, 0},
    {"an empty boolean", "1|s|0|n|d|e|w|b||o|2|0|", false, 0},
    {"a status of more than 16 bits", "1|s|0|n|d|e|w|b|0|o|40000|0|", false, 0},
    {"a title with a bar shifts the rest", "1|s|0|n|x|d|e|w|b|-1|o|2|0|", false, 0},
    {"an identifier that is none", "one|s|0|n|d|e|w|b|-1|o|2|0|", false, fails},
    {"an identifier of more than 32 bits", "2147483648|s|0|n|d|e|w|b|-1|o|2|0|", false, fails},
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
    EXPECT_TRUE(SelectMoves(moves, 5)) << "damage behind the wanted line disturbs nothing";
  }
}

TEST_F(QueriesTest, WithoutAFileThereIsNothingAndNoFailure) {
  GameRecords games(1);
  MoveRecords moves(1);
  EXPECT_TRUE(SelectGames(games, "GAME_ID;x", "Game_ID;A"));
  EXPECT_TRUE(SelectMoves(moves, 1));
  EXPECT_TRUE(games.empty());
  EXPECT_TRUE(moves.empty());
  SetGameFile(Line(Game(1)));
  desktop.files.FailOperation(1);
  EXPECT_FALSE(SelectGames(games, ""));
}

TEST_F(QueriesTest, MembersAndMovesComeBackAsTheyStandInTheFile) {
  SetGameFile("3|s1|4|ti tle|d|e|w|\xFF|0|o|6|-1|1;2|1|5254|e4|hi|2|5755|e5|");
  GameRecords games;
  ASSERT_TRUE(SelectGames(games, "game_id;3") && games.size() == 1);
  EXPECT_EQ(Line(games[0]), "3|s1|4|ti tle|d|e|w|\xFF|0|o|6|-1|1;2");
  MoveRecords moves;
  ASSERT_TRUE(SelectMoves(moves, 3));
  EXPECT_EQ(Text(moves), "|1|5254|e4|hi|2|5755|e5|");
}

TEST_F(QueriesTest, TheNextGameIDIsBehindTheGreatest) {
  const auto file = [](auto... ids) { return ((Line(Game(ids)) + "\n") + ...); };
  EXPECT_EQ(NextGameID(), 1);
  SetGameFile(file(5, 2));
  EXPECT_EQ(NextGameID(), 6);
  SetGameFile(file(5, 2) + "damage");
  EXPECT_EQ(NextGameID(), 1);
  SetGameFile(file(3, 2147483647, 1));
  EXPECT_EQ(NextGameID(), 2) << "no number is left behind, and none in use may be given";
}

// The games found as text: GAME_IDs in order, or that the query failed.
std::string Found(std::string_view selection, std::string_view sort = {}) {
  GameRecords games;
  if (!SelectGames(games, selection, sort)) return "fails";
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
    const char* box = "";
  } rows[] = {
      {"", "123"},
      {"Game_ID;2", "2"},
      {"gAmE_iD; 2.0 ", "2"},
      {"Game_ID;9", ""},
      {"Game_status;1", "13"},
      {"GAME_NAME;Title", "13"},
      {"GAME_WHITE_NAME;", "2"},
      {"GAME_HOST;True", "13"},
      {"GAME_VS_COMPUTER;5", "3"},
      {"GAME_DATE;01/02/2026;GAME_OPPONENTS_EMAIL;b@x;GAME_BLACK_NAME;Tarvolenix", "3"},
      {"GAME_OPPONENTS_ID;4;Game_DateStamp;s1;GAME_OPPONENTS_NAME;bob", "2"},
      {"GAME_ID;two", "fails"},
      {"GAME_STATUS;40000", "fails"},
      {"GAME_HOST;maybe", "fails"},
      {"GAME_NAME;none;GAME_ID;two", "fails"},
      {"GAME_ID", ""},
      {"GAME_ID;2;GAME_WHITE_NAME", ""},
      {"GAME_NAME;Title;GAME_ID", "fails"},
      {"Game_ID;1;GAME_NAME;Title;x", ""},
      {"Game_start_board;88", "", "Game data selection error!  No CASE for GAME_START_BOARD"},
      {"Title;1", "", "Game data selection error!  No CASE for TITLE"},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.selection);
    desktop.boxes.plainBoxes.clear();
    EXPECT_EQ(Found(row.selection), row.found);
    EXPECT_EQ(desktop.boxes.plainBoxes.size(), *row.box ? 3u : 0u) << "one for each game";
    for (const auto& [title, text] : desktop.boxes.plainBoxes) EXPECT_EQ(text, row.box);
  }
}

TEST_F(QueriesTest, ASortStringOrdersByItsPairs) {
  SetGameFile(
      "1||0|b|30/01/2026||||0|eva|2|0|\n"
      "2||0|B|01/02/2026||||0|eva|1|0|\n"
      "3||0|a|01/02/2025||||0|Zoe|1|0|\n"
      "4||0|a|31/01/2026||||0|eva|1|0|\n");
  const struct {
    const char* sort;
    const char* found;
  } rows[] = {
      {"", "1234"},
      {"Game_status;A;Game_opponents_name;A;Game_date;D", "3241"},
      {"game_date;a", "3142"},
      {"Game_date;D", "2413"},
      {"Game_name;A", "2341"},
      {"Game_opponents_name;D;Game_ID;D", "4213"},
      {"Game_status;X;Game_ID;D", "1432"},
      {"Game_name", "1234"},
  };
  for (const auto& row : rows) EXPECT_EQ(Found("", row.sort), row.found) << row.sort;
  EXPECT_TRUE(desktop.boxes.plainBoxes.empty());
  EXPECT_EQ(Found("Game_status;2", "Game_host;A"), "1");
  EXPECT_TRUE(desktop.boxes.plainBoxes.empty()) << "one game is never compared";
  Found("GAME_NAME;a", "Game_host;A");
  ASSERT_EQ(desktop.boxes.plainBoxes.size(), 1u);
  EXPECT_EQ(desktop.boxes.plainBoxes[0].second,
            "Game recordset sort error!  No CASE for GAME_HOST");
}

TEST_F(QueriesTest, AFailedSortLeavesEveryGameWhole) {
  SetGameFile("1||0|b|30/02/2026||||0|eva|2|0|\n2||0|B|01/02/2026||||0|eva|1|0|\n");
  GameRecords games;
  EXPECT_FALSE(SelectGames(games, "", "Game_date;A"));
  ASSERT_EQ(games.size(), 2u);
  EXPECT_EQ(games[0].GAME_DATE + games[1].GAME_DATE, "30/02/202601/02/2026");
}

// The described passes, by the letter.
struct ReferenceSort {
  std::string sort;
  int boxes = 0;

  bool SwapsAt(const GameRecord& lower, const GameRecord& upper) {
    for (int k = 1; 2 * k <= platform::CountFields(sort, ';'); ++k) {
      const std::string key(platform::GetField(sort, 2 * k - 1, ';'));
      const std::string order(platform::GetField(sort, 2 * k, ';'));
      int sign = 0;
      if (key == "GAME_ID") {
        sign = lower.GAME_ID - upper.GAME_ID;
      } else if (key == "GAME_NAME") {
        sign = lower.GAME_NAME.compare(upper.GAME_NAME);
      } else if (key == "GAME_DATE") {
        if (lower.GAME_DATE == upper.GAME_DATE) continue;
        const platform::Date a = platform::ToDate(lower.GAME_DATE).value();
        const platform::Date b = platform::ToDate(upper.GAME_DATE).value();
        return (order == "A" && a < b) || (order == "D" && a > b);
      } else {
        ++boxes;
        return false;
      }
      if (sign != 0) return (order == "A" && sign < 0) || (order == "D" && sign > 0);
    }
    return false;
  }

  void Run(GameRecords& games) {
    const int n = static_cast<int>(games.size());
    for (int i = 2; i <= n; ++i) {
      for (int j = n; j >= i; --j) {
        if (SwapsAt(games[j - 1], games[j - 2])) std::swap(games[j - 1], games[j - 2]);
      }
    }
  }
};

// Marks in the order that a sort gave, or that it raised.
std::string Outcome(GameRecords games, const std::function<void(GameRecords&)>& sort) {
  try {
    sort(games);
  } catch (const std::exception&) {
    return "raised";
  }
  std::string marks;
  for (const GameRecord& game : games) marks += std::to_string(game.GAME_OPPONENTS_ID) + " ";
  return marks;
}

TEST_F(QueriesTest, SortGamesGivesWhatTheDescribedPassesGive) {
  const char* sorts[] = {
      "GAME_ID;A",
      "GAME_DATE;D",
      "GAME_NAME;D;GAME_DATE;A",
      "GAME_ID;A;GAME_NAME;D;GAME_DATE;D",
      "GAME_DATE;A;GAME_ID;D",
      "GAME_ID;X;GAME_NAME;A",
      "GAME_ID;D;GAME_DATE;X;GAME_NAME;A",
      "GAME_NAME;A;GAME_HOST;A;GAME_ID;A",
  };
  // Ordinary dates alone, then with a day in two spellings, then with dates that are none.
  const std::vector<std::string> dates = {
      "01/02/2026", "02/01/2026", "31/12/2025", "1/2/2026", "2/01/2026", "soon", ""};
  std::mt19937 random(1);
  const auto below = [&random](std::size_t bound) { return random() % bound; };
  for (int round = 0; round < 6000; ++round) {
    const std::size_t dateCount = round % 3 == 0 ? 3 : round % 3 == 1 ? 5 : 7;
    GameRecords games(1 + below(9));
    for (std::size_t i = 0; i < games.size(); ++i) {
      games[i].GAME_OPPONENTS_ID = static_cast<std::int32_t>(i);
      games[i].GAME_ID = static_cast<std::int32_t>(below(3));
      games[i].GAME_NAME = std::string(1, "aB\xE9"[below(3)]);
      games[i].GAME_DATE = dates[below(dateCount)];
    }
    ReferenceSort reference{sorts[below(std::size(sorts))]};
    desktop.boxes.plainBoxes.clear();
    const std::string expected = Outcome(games, [&](GameRecords& g) { reference.Run(g); });
    ASSERT_EQ(Outcome(games, [&](GameRecords& g) { SortGames(g, reference.sort); }), expected)
        << reference.sort << ", round " << round;
    ASSERT_EQ(static_cast<int>(desktop.boxes.plainBoxes.size()), reference.boxes) << reference.sort;
  }
}

}  // namespace
}  // namespace store
