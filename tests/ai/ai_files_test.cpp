// SPDX-License-Identifier: GPL-3.0-or-later
#include "ai/ai_files.h"

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <set>
#include <sstream>

#include "ai/heuristic_rows.h"
#include "fakes/fake_desktop.h"

namespace ai {
namespace {

TEST(AIFilesTest, AFactoryFileListsTheRowsInTheirOrder) {
  const std::string text = AIFileText(DefaultHeuristics());
  EXPECT_TRUE(text.starts_with("2,88,4,-118,5,-39,6,-51,")) << text;
  EXPECT_TRUE(text.ends_with(",60,-40,61,-58,62,-88,63,148\r\n")) << text;
  HeuristicTable read{};
  EXPECT_FALSE(ReadAIText(text, [&](int row, auto value) { read[HeuristicOnRow(row)] = value; }));
  EXPECT_EQ(read, DefaultHeuristics());
}

struct ReadCase {
  const char* name;
  std::string text;
  const char* taken;
  int faultAt = 0;  ///< 0 none
};

TEST(AIFilesTest, AReaderHandsOnPairsUntilTheFirstThatIsNone) {
  const ReadCase cases[] = {
      {"an empty file", "", ""},
      {"a line end alone", "\r\n", ""},
      {"pairs in any order, on lines that end in any way", "63,1,2,-2\n\r\n4,32767",
       "63:1 2:-2 4:32767 "},
      {"a row named twice", "2,1,2,2\r\n", "2:1 2:2 "},
      {"a row without its value", "2,1,4\r\n", "2:1 ", 4},
      {"a comma at the end", "2,1,\r\n", "2:1 ", 3},
      {"a comma before the line end", "2,1,\r\n4,1\r\n", "2:1 ", 3},
      {"a row beyond the list", "2,1,64,1\r\n", "2:1 ", 3},
      {"a row before the list", "2,1,-2,1\r\n", "2:1 ", 3},
      {"a heading", "2,1,59,1\r\n", "2:1 ", 3},
      {"the row of the captions", "0,1\r\n", "", 1},
      {"a word for a value", "2,1,4,much,5,1\r\n", "2:1 ", 4},
      {"a value beyond 16 bits", "2,-32768,4,-32769\r\n", "2:-32768 ", 4},
      {"a megabyte of digits", "2,1,4," + std::string(1 << 20, '9'), "2:1 ", 4},
      {"bytes that mean nothing", std::string("2,1,\0\xFF,1", 9), "2:1 ", 3},
  };
  for (const ReadCase& row : cases) {
    SCOPED_TRACE(row.name);
    std::string taken;
    const auto fault = ReadAIText(row.text, [&](int onRow, int value) {
      taken += std::to_string(onRow) + ':' + std::to_string(value) + ' ';
    });
    EXPECT_EQ(taken, row.taken);
    EXPECT_EQ(fault ? fault->field : 0, row.faultAt);
  }
}

TEST(AIFilesTest, TheReadyMadeStylesAreWholeAndFitTheSlider) {
  std::set<HeuristicTable> styles{DefaultHeuristics()};
  for (const auto& file : std::filesystem::directory_iterator(TARVOLENIX_STYLES)) {
    SCOPED_TRACE(file.path());
    std::stringstream text;
    text << std::ifstream(file.path(), std::ios::binary).rdbuf();
    HeuristicTable table{};
    ReadAIText(text.str(), [&](int row, auto value) { table[HeuristicOnRow(row)] = value; });
    EXPECT_EQ(text.str(), AIFileText(table));
    const auto [low, high] = std::minmax_element(table.begin(), table.end());
    EXPECT_TRUE(*low >= -200 && *high <= 200) << *low << " " << *high;
    styles.insert(table);
  }
  EXPECT_EQ(styles.size(), 7U);
}

TEST(AIFilesTest, AFileIsReplacedWholeOrNotAtAll) {
  fakes::FakeDesktop desktop;
  HeuristicTable table = DefaultHeuristics();
  WriteAIFile("Bold", table);
  const auto before = desktop.files.content;
  table.fill(1);
  for (const int failing : {1, 2}) {
    desktop.files.FailOperation(failing);
    EXPECT_THROW(WriteAIFile("Bold", table), platform::FileError);
    EXPECT_EQ(desktop.files.content, before);
  }
  for (const char* other : {"Small.ai", "Unfinished.AI.new"}) {
    desktop.files.content[AIFilePath(other)] = "";
  }
  EXPECT_EQ(ListAIFiles(), std::vector<std::string>{"Bold"});
}

TEST(AIFilesTest, HeadingsFoldAwayWhatStandsUnderThem) {
  EXPECT_STREQ(heuristicRows[37].text, "Pin with a Rook");
  EXPECT_EQ(heuristicRows[37].under, 30);
  EXPECT_EQ(heuristicRows[42].under, 37);
  EXPECT_EQ(heuristicRows[30].last, 48);
  EXPECT_EQ(GetDefaultOfRow(60), -58) << "the list has the rooks of castling exchanged";
  EXPECT_EQ(GetDefaultOfRow(61), -40);
}

}  // namespace
}  // namespace ai
