// SPDX-License-Identifier: GPL-3.0-or-later
#include "store/store_fixture.h"

namespace store {
namespace {

using RepairTest = StoreTest;

std::string Told(const std::vector<DamagedLine>& lines) {
  std::string told;
  for (const DamagedLine& line : lines) told += std::to_string(line.number) + " " + line.why + "; ";
  return told;
}

const std::string one = Line(Game(1)) + Text(Moves('s', 1, 2));
const std::string laterOne = Line(Game(1)) + Text(Moves('s', 1, 3));
const std::string two = Line(Game(2)) + " \xFF";
const std::string three = Line(Game(3)) + "|x|5254|e4|";

const struct {
  std::vector<std::string> file;
  const char* damage;
  std::vector<int> kept;  ///< lines that stand in the file repaired from itself, from 1
} rows[] = {
    {{one, two}, "", {1, 2}},
    {{one, "", two, "x"}, "2 it is empty; 4 its GAME_ID can't be read; ", {1, 3}},
    {{"4|s|0|n|d|e|w|b|maybe"}, "1 its GAME_HOST can't be read; ", {}},
    {{three, two}, "1 the number of its move 1 can't be read; ", {2}},
    {{one, two, laterOne}, "1 its game 1 stands once more further down; ", {2, 3}},
};

TEST_F(RepairTest, TheGoodLinesOrTheBackupComeInThePlaceOfADamagedFile) {
  const std::string backup = one + "\r\n" + two + "\r\n";
  const std::string aside = "Tvgdb.damaged-20260309-080500";
  for (const auto& row : rows) {
    for (const bool fromBackup : {false, true}) {
      SCOPED_TRACE(row.damage);
      std::string before, repaired;
      for (const std::string& line : row.file) before += line + "\n";
      for (const int line : row.kept) repaired += row.file.at(line - 1) + "\r\n";
      const bool damaged = *row.damage != 0;
      desktop.files.content = {{DataFile("tvgdb.bak"), backup}, {DataFile(aside + ".dat"), "old"}};
      SetGameFile(before);
      const Examination found = ExamineGameFile();
      EXPECT_EQ(found.games, static_cast<int>(row.kept.size()));
      EXPECT_EQ(Told(found.damaged), row.damage);
      EXPECT_EQ(found.backupGames, damaged ? std::optional(2) : std::nullopt);
      EXPECT_EQ(DamageSentence().empty(), !damaged);
      const RepairOutcome outcome = Repair(fromBackup);
      EXPECT_EQ(outcome.failure, "");
      EXPECT_EQ(Told(outcome.lost), row.damage);
      EXPECT_EQ(outcome.kept, damaged && fromBackup ? 2 : found.games);
      EXPECT_EQ(FileText("Tvgdb.dat"), !damaged ? before : fromBackup ? backup : repaired);
      EXPECT_EQ(outcome.aside, damaged ? aside + "-2.dat" : "");
      EXPECT_EQ(FileText(aside + "-2.dat"), damaged ? before : "no file");
      EXPECT_EQ(FileText(aside + ".dat"), "old");
    }
  }
}

TEST_F(RepairTest, WithoutAReadingOrAGoodBackupNothingIsDone) {
  SetGameFile("rubbish");
  EXPECT_NE(Repair(true).failure, "");
  desktop.files.content[DataFile("tvgdb.bak")] = "no game";
  EXPECT_NE(Repair(true).failure, "");
  EXPECT_EQ(ExamineGameFile().backupGames, std::nullopt);
  desktop.files.FailOperation(1);
  EXPECT_EQ(DamageSentence(), "") << "what can't be read isn't damaged";
  desktop.files.FailOperation(1);
  EXPECT_NE(Repair(false).failure, "");
  EXPECT_EQ(FileText("Tvgdb.dat"), "rubbish");
}

}  // namespace
}  // namespace store
