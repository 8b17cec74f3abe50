// SPDX-License-Identifier: GPL-3.0-or-later
#include "study/study_file.h"

#include <gtest/gtest.h>
#include <sqlite3.h>

#include <filesystem>

#include "desktop/posix_files.h"
#include "fakes/fake_desktop.h"
#include "fakes/temporary_folder.h"
#include "platform/process_state.h"

namespace study {
namespace {

const GameIdentity evening{3, "090320260805"};
const GameIdentity morning{3, "100320260805"};
const std::vector<TriedLines> someLines{{1, "a position", "e7e5 (c7c5)"}, {4, "another", "d2d4"}};

class StudyFileTest : public testing::Test {
 protected:
  StudyFileTest() {
    platform::TheSeams().files = &files_;
    platform::Process().DataPath = folder_ / "";
  }

  /// What another program does to the file.
  static void Meanwhile(const char* sql, sqlite3*& other) {
    ASSERT_EQ(sqlite3_open(NotesPath().c_str(), &other), SQLITE_OK);
    EXPECT_EQ(sqlite3_exec(other, sql, nullptr, nullptr, nullptr), SQLITE_OK);
  }

  fakes::FakeDesktop desktop_;
  desktop::PosixFiles files_;
  TemporaryFolder folder_;
  StudyFile file_;
};

TEST_F(StudyFileTest, EachGameHasItsOwnAndTheFileComesWithTheFirstOfThem) {
  EXPECT_EQ(file_.Read(evening).note, "");
  EXPECT_TRUE(file_.KeepNote(evening, "") && file_.KeepLines(evening, {}));
  EXPECT_FALSE(std::filesystem::exists(NotesPath()));
  const std::string words = "Läufer'); DROP TABLE game_note; --\n♞";
  EXPECT_TRUE(file_.KeepNote(evening, words) && file_.KeepPositionNote(evening, "p", "hold e5") &&
              file_.KeepPositionNote(evening, "q", "?") &&
              file_.KeepPositionNote(evening, "q", "") && file_.KeepLines(evening, someLines));
  EXPECT_EQ(std::filesystem::status(NotesPath()).permissions(), std::filesystem::perms(0600));
  const GameStudy kept = StudyFile().Read(evening);
  EXPECT_EQ(kept.note, words);
  EXPECT_EQ(kept.positionNotes, (std::map<std::string, std::string>{{"p", "hold e5"}}));
  EXPECT_EQ(kept.lines, someLines);
  EXPECT_EQ(StudyFile().Read(morning).note, "");
  EXPECT_TRUE(desktop_.boxes.messages.empty());
}

TEST_F(StudyFileTest, ADamagedFileIsPutAsideAndToldOnce) {
  file_.KeepNote(evening, std::string(5000, 'x'));
  const std::string whole = ReadFile(NotesPath());
  for (const std::string& damaged :
       {std::string("no database at all"), whole.substr(0, whole.size() / 2),
        whole.substr(0, 100) + std::string(whole.size() - 100, '\7')}) {
    WriteFile(NotesPath(), damaged);
    desktop_.boxes.messages.clear();
    StudyFile file;
    EXPECT_EQ(file.Read(evening).note, "");
    EXPECT_TRUE(file.KeepNote(evening, "new"));
    EXPECT_EQ(file.Read(evening).note, "new");
    ASSERT_EQ(desktop_.boxes.messages.size(), 1u);
    std::filesystem::remove(NotesPath());
  }
  EXPECT_EQ(ReadFile(folder_ / "Notes.damaged-20260309-080500.sqlite"), "no database at all");
}

TEST_F(StudyFileTest, ALaterVersionsFileAndALockedOneAreNotTouched) {
  file_.KeepNote(evening, "before");
  struct Case {
    const char* meanwhile;
    const char* told;
  };
  for (const auto& [meanwhile, told] : {Case{"BEGIN EXCLUSIVE", "Another program"},
                                        Case{"PRAGMA user_version = 2", "later version"}}) {
    desktop_.boxes.messages.clear();
    sqlite3* other = nullptr;
    Meanwhile(meanwhile, other);
    const std::string content = ReadFile(NotesPath());
    StudyFile file;
    EXPECT_EQ(file.Read(evening).note, "");
    EXPECT_FALSE(file.KeepNote(evening, "after"));
    sqlite3_close(other);
    EXPECT_EQ(ReadFile(NotesPath()), content);
    ASSERT_EQ(desktop_.boxes.messages.size(), 1u);
    EXPECT_NE(desktop_.boxes.messages[0].text.find(told), std::string::npos);
  }
}

TEST_F(StudyFileTest, TheNotesOfAnotherFolderComeAlongAndOnesOwnAreKept) {
  std::filesystem::create_directory(folder_ / "other");
  EXPECT_EQ(UseNotesOf(folder_ / "other/"), "");
  file_.KeepNote(evening, "theirs");
  std::filesystem::rename(NotesPath(), folder_ / "other/Notes.sqlite");
  file_.KeepNote(evening, "mine");
  EXPECT_EQ(UseNotesOf(folder_ / "other/"), "");
  EXPECT_EQ(file_.Read(evening).note, "theirs");
  EXPECT_TRUE(std::filesystem::exists(folder_ / "Notes.replaced-20260309-080500.sqlite"));
  WriteFile(folder_ / "other/Notes.sqlite", "no database");
  EXPECT_NE(UseNotesOf(folder_ / "other/"), "");
  EXPECT_EQ(file_.Read(evening).note, "theirs");
}

}  // namespace
}  // namespace study
