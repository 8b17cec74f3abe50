// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/seams.h"
#include "store/store_fixture.h"

namespace store {
namespace {

using SavingTest = StoreTest;

struct SaveCase {
  const char* name;
  bool stored;
  int storedMoves;
  MoveRecords passed;
  MoveRecords expected;
  bool news;
};

MoveRecords operator+(MoveRecords moves, const MoveRecords& more) {
  moves.insert(moves.end(), more.begin(), more.end());
  return moves;
}

// Stored moves read "s", passed ones "p".
const SaveCase saveCases[] = {
    {"a new game with its first move", false, 0, Moves('p', 1, 1), Moves('p', 1, 1), true},
    {"a new game without moves", false, 0, {}, {}, true},
    {"only the record", true, 4, {}, Moves('s', 1, 4), false},
    {"the board's next move", true, 4, Moves('p', 5, 5), Moves('s', 1, 4) + Moves('p', 5, 5), true},
    {"the same move again", true, 5, Moves('p', 5, 5), Moves('s', 1, 5), false},
    {"one move far ahead", true, 2, Moves('p', 9, 9), Moves('s', 1, 2) + Moves('p', 9, 9), true},
    {"a longer game received", true, 4, Moves('p', 1, 6), Moves('p', 1, 6), true},
    {"an equal game received", true, 6, Moves('p', 1, 6), Moves('s', 1, 6), false},
    {"a shorter game received", true, 6, Moves('p', 1, 4), Moves('s', 1, 6), false},
};

TEST_F(SavingTest, SaveGameKeepsAppendsOrReplacesMoves) {
  for (const SaveCase& row : saveCases) {
    SCOPED_TRACE(row.name);
    const std::string other = Line(Game(12, GameWon)) + Text(Moves('o', 1, 3));
    GameRecord old = Game(1);
    old.GAME_WHITE_NAME = "written by the last call";
    const std::string oldLine = Line(old) + Text(Moves('s', 1, row.storedMoves)) + "\r\n";
    const std::string before = (row.stored ? oldLine : "") + other + "\r\n";
    for (const bool withFlag : {true, false}) {
      SetGameFile(before);
      GameRecord game = Game(1, DrawOfferSent);
      bool changed = !row.news;
      ASSERT_TRUE(SaveGame(game, row.passed, withFlag ? &changed : nullptr));
      if (withFlag) {
        EXPECT_EQ(changed, row.news);
      }
      const GameRecord written = Game(1, withFlag && row.news ? MoveWaiting : DrawOfferSent);
      EXPECT_EQ(Line(game), Line(written));
      EXPECT_EQ(FileText("Tvgdb.dat"),
                other + "\r\n" + Line(written) + Text(row.expected) + "\r\n");
      EXPECT_EQ(FileText("tvgdb.bak"), before);
      EXPECT_EQ(FileText("tvgdb.new"), "no file");
    }
  }
}

TEST_F(SavingTest, AMoveThatIsCutOffMakesWayForTheNext) {
  for (const char* rest : {"|2", "|2|5755", "|2|5755|e5"}) {
    SetGameFile(Line(Game(1)) + Text(Moves('s', 1, 1)) + rest + "\r\n");
    GameRecord game = Game(1);
    EXPECT_TRUE(SaveGame(game, Moves('p', 2, 2)));
    EXPECT_EQ(FileText("Tvgdb.dat"),
              Line(game) + Text(Moves('s', 1, 1) + Moves('p', 2, 2)) + "\r\n");
  }
}

TEST_F(SavingTest, OtherLinesAreCopiedAsTheyAre) {
  const std::string odd = "2| odd \xFF\x80 |||\r|";
  SetGameFile(odd + "\n" + "7.0|damaged" + "\r\n" + Line(Game(1)));
  GameRecord game = Game(1);
  ASSERT_TRUE(SaveGame(game, {}));
  EXPECT_EQ(FileText("Tvgdb.dat"), odd + "\r\n7.0|damaged\r\n" + Line(Game(1)) + "\r\n");
  ASSERT_TRUE(RemoveGame(7));
  EXPECT_EQ(FileText("Tvgdb.dat"), odd + "\r\n" + Line(Game(1)) + "\r\n");
}

TEST_F(SavingTest, ALineWithoutANumberBlocksEveryChange) {
  for (const char* line : {"", "x|y", "|1"}) {
    const std::string before = Line(Game(1)) + "\r\n" + line + "\r\n" + Line(Game(2));
    SetGameFile(before);
    GameRecord game = Game(1);
    EXPECT_FALSE(SaveGame(game, Moves('p', 1, 1))) << line;
    EXPECT_FALSE(RemoveGame(1)) << line;
    EXPECT_EQ(FileText("Tvgdb.dat"), before);
    EXPECT_EQ(FileText("tvgdb.new"), "no file");
  }
}

TEST_F(SavingTest, NewGamesStandBehindTheGreatestNumberOrInAGap) {
  NewGames games;
  for (int i = 0; i < 2; ++i) games.Add(Game(0), {});
  const auto file = [](auto... ids) { return ((Line(Game(ids)) + "\n") + ...); };
  SetGameFile(file(2147483645, 2));
  EXPECT_EQ(AddGames(games, nullptr, [] { return true; }), std::nullopt) << "it is cancelled";
  EXPECT_EQ(AddGames(games), 2147483646);
  EXPECT_EQ(AddGames(games), 3) << "the place before 2 has no room for both";
  std::string why;
  SetGameFile("x\n");
  EXPECT_EQ(AddGames(games, &why), std::nullopt);
  EXPECT_NE(why, "");
}

TEST_F(SavingTest, TheBackupIsTheStateBeforeTheLatestChange) {
  const std::string a = Line(Game(1)) + "\r\n";
  const std::string b = Line(Game(2)) + "\r\n";
  SetGameFile(a);
  EXPECT_TRUE(BackupDatabase());
  SetGameFile(b);
  RestoreDatabase();
  EXPECT_EQ(FileText("Tvgdb.dat"), a);
  SetGameFile(b + "rubbish\r\n");
  EXPECT_FALSE(BackupDatabase());
  SetGameFile(b + "3|damaged\r\n");
  EXPECT_TRUE(RemoveGame(2));
  EXPECT_EQ(FileText("Tvgdb.dat"), "3|damaged\r\n");
  EXPECT_EQ(FileText("tvgdb.bak"), a) << "damage must not cost the last good backup";
}

TEST_F(SavingTest, WhatStandsAroundTheGamesIsReadOverAndGoesWithTheNextChange) {
  const std::string a = Line(Game(1)) + Text(Moves('s', 1, 1)) + "own blanks  ";
  const std::string b = Line(Game(2)) + Text(Moves('s', 1, 1)) + "own blanks \t";
  const std::string nul(3, '\0');
  const struct {
    const char* name;
    std::string file;
    bool reads = true;
  } rows[] = {
      {"a byte order mark", "\xEF\xBB\xBF" + a + "\r\n" + b + "\n"},
      {"NUL bytes", a + "\n" + b + "\r\n" + nul},
      {"blanks and blank lines", a + "\n" + b + "\n \t\r\n\n" + nul + " \r\n  "},
      {"a blank line between games is damage", a + "\n \n" + b + "\n", false},
      {"a file of NUL bytes has lost its games", nul, false},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.name);
    SetGameFile(row.file);
    EXPECT_EQ(NextGameID().has_value(), row.reads);
    EXPECT_EQ(RemoveGame(9), row.reads);
    EXPECT_EQ(FileText("Tvgdb.dat"), row.reads ? a + "\r\n" + b + "\r\n" : row.file);
  }
}

// Every operation in turn fails, and the user has lost nothing.
TEST_F(SavingTest, AFailureAnywhereLeavesTheGameFileAsItStood) {
  for (const Change& change : AllChanges()) {
    for (const Moment moment : moments) {
      for (int operation = 1;; ++operation) {
        SCOPED_TRACE(std::string(change.name) + ", operation " + std::to_string(operation));
        desktop.files.content = {{DataFile("tvgdb.bak"), "an earlier state"}};
        if (change.before != "no file") SetGameFile(change.before);
        AccidentFiles files(desktop.files, operation, moment,
                            [] { throw platform::FileError("accident"); });
        platform::TheSeams().files = &files;
        const bool done = change.make();
        EXPECT_EQ(done, !files.happened);
        EXPECT_EQ(FileText("Tvgdb.dat"), files.happened ? change.before : change.after);
        EXPECT_EQ(FileText("tvgdb.new"), "no file");
        if (!files.happened) break;
      }
    }
  }
}

}  // namespace
}  // namespace store
