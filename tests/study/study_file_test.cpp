// SPDX-License-Identifier: GPL-3.0-or-later
#include "study/study_file.h"

#include <gtest/gtest.h>
#include <sqlite3.h>

#include <filesystem>
#include <sstream>

#include "desktop/posix_files.h"
#include "fakes/fake_desktop.h"
#include "fakes/temporary_folder.h"
#include "platform/process_state.h"
#include "store/saving.h"
#include "study/imported_notes.h"

namespace study {
namespace {

const GameIdentity evening{3, "090320260805"};
const GameIdentity morning{3, "100320260805"};
const std::vector<TriedLines> someLines{{1, "a position", "e7e5 (c7c5)"}, {4, "another", "d2d4"}};

StudyChanges Note(const std::string& note) { return {note, {}, {}}; }

class StudyFileTest : public testing::Test {
 protected:
  StudyFileTest() {
    platform::TheSeams().files = &files_;
    platform::Process().DataPath = folder_ / "";
  }

  /// What another program does to the file.
  static std::shared_ptr<sqlite3> Meanwhile(const char* sql) {
    sqlite3* other = nullptr;
    EXPECT_EQ(sqlite3_open(NotesPath().c_str(), &other), SQLITE_OK);
    EXPECT_EQ(sqlite3_exec(other, sql, nullptr, nullptr, nullptr), SQLITE_OK);
    return {other, sqlite3_close};
  }

  fakes::FakeDesktop desktop_;
  desktop::PosixFiles files_;
  TemporaryFolder folder_;
  StudyFile file_;
};

TEST_F(StudyFileTest, EachGameHasItsOwnAndTheFileComesWithTheFirstOfThem) {
  EXPECT_EQ(file_.Read(evening)->note, "");
  EXPECT_TRUE(file_.Keep(evening, {"", {{"p", ""}}, std::vector<TriedLines>{}}));
  EXPECT_FALSE(std::filesystem::exists(NotesPath()));
  const std::string words = "Läufer'); DROP TABLE game_note; --\n♞";
  EXPECT_TRUE(file_.Keep(evening, {words, {{"p", "hold e5"}, {"q", "?"}}, someLines}) &&
              file_.Keep(evening, {{}, {{"q", ""}}, {}}));
  EXPECT_EQ(std::filesystem::status(NotesPath()).permissions(), std::filesystem::perms(0600));
  const GameStudy kept = StudyFile().Read(evening).value();
  EXPECT_EQ(kept.note, words);
  EXPECT_EQ(kept.positionNotes, (std::map<std::string, std::string>{{"p", "hold e5"}}));
  EXPECT_EQ(kept.lines, someLines);
  EXPECT_EQ(StudyFile().Read(morning)->note, "");
  EXPECT_TRUE(desktop_.boxes.messages.empty());
}

TEST_F(StudyFileTest, WhatWasSaidInImportedGamesThatGoOnBecomesTheirNotes) {
  const pgn::ImportOptions options{"Anna", "", "b@example.org", {2026, 3, 9, 8, 5}};
  const std::string anna = "[White \"Anna\"]\n";
  std::istringstream text(anna + "1. e5 *\n\n" + anna + "1. c4 {known} *\n\n" + anna +
                          "1. e4 {over} 1-0\n\n" + anna +
                          "{why not} 1. e4 {sharp} e5 {[%clk 1]} 2. Nf3 Nc6 {solid} *");
  pgn::ImportedGames games = pgn::ReadGames(text, options);
  const std::string words = "why not\n1. e4: sharp\n2... Nc6: solid";
  EXPECT_TRUE(KeepNotesOf(games, {{.number = 2}}, 2, options));
  EXPECT_EQ(file_.Read(evening)->note, words);
  EXPECT_EQ(file_.Read({2, evening.stamp})->note, "");
  file_.Keep(evening, Note(""));
  // Read once more, when all are stored, as the notes couldn't be kept the first time.
  ASSERT_TRUE(store::AddGames(games.taken));
  const auto known = pgn::KnownGames::Stored(options)->LeaveOutOf(games);
  for (const char* before : {"", "own"}) {
    file_.Keep(evening, Note(before));
    EXPECT_TRUE(KeepNotesOf(games, known, {}, options));
    EXPECT_EQ(file_.Read(evening)->note, *before ? before : words);
  }
}

TEST_F(StudyFileTest, ADamagedFileIsPutAsideAndToldOnce) {
  file_.Keep(evening, Note(std::string(5000, 'x')));
  const std::string whole = ReadFile(NotesPath());
  Meanwhile("DROP TABLE tried_lines");
  const std::string lacksATable = ReadFile(NotesPath());
  for (const std::string& damaged :
       {std::string("no database at all"), lacksATable, whole.substr(0, whole.size() / 2),
        whole.substr(0, 100) + std::string(whole.size() - 100, '\7')}) {
    WriteFile(NotesPath(), damaged);
    desktop_.boxes.messages.clear();
    StudyFile file;
    EXPECT_EQ(file.Read(evening)->note, "");
    EXPECT_TRUE(file.Keep(evening, Note("new")));
    EXPECT_EQ(file.Read(evening)->note, "new");
    ASSERT_EQ(desktop_.boxes.messages.size(), 1u);
    std::filesystem::remove(NotesPath());
  }
  EXPECT_EQ(ReadFile(folder_ / "Notes.damaged-20260309-080500.sqlite"), "no database at all");
}

TEST_F(StudyFileTest, ALaterVersionsFileAndALockedOneAreNotTouched) {
  file_.Keep(evening, Note("before"));
  struct Case {
    const char* meanwhile;
    const char* told;
  };
  for (const auto& [meanwhile, told] : {Case{"BEGIN EXCLUSIVE", "Another program"},
                                        Case{"PRAGMA user_version = 2", "later version"}}) {
    desktop_.boxes.messages.clear();
    auto other = Meanwhile(meanwhile);
    const std::string content = ReadFile(NotesPath());
    StudyFile file;
    EXPECT_FALSE(file.Read(evening));
    EXPECT_FALSE(file.Keep(evening, Note("after")));
    EXPECT_NE(file.WhyNot().find(told), std::string::npos);
    other.reset();
    EXPECT_EQ(ReadFile(NotesPath()), content);
    ASSERT_EQ(desktop_.boxes.messages.size(), 1u);
    EXPECT_NE(desktop_.boxes.messages[0].text.find(told), std::string::npos);
  }
}

TEST_F(StudyFileTest, TheNotesOfAnotherFolderComeAlongAndOnesOwnAreKept) {
  std::filesystem::create_directory(folder_ / "other");
  EXPECT_EQ(UseNotesOf(folder_ / "other/"), "");
  file_.Keep(evening, Note("theirs"));
  std::filesystem::rename(NotesPath(), folder_ / "other/Notes.sqlite");
  file_.Keep(evening, Note("mine"));
  EXPECT_EQ(UseNotesOf(folder_ / "other/"), "");
  EXPECT_EQ(file_.Read(evening)->note, "theirs");
  EXPECT_EQ(std::filesystem::status(NotesPath()).permissions(), std::filesystem::perms(0600));
  EXPECT_TRUE(std::filesystem::exists(folder_ / "Notes.replaced-20260309-080500.sqlite"));
  WriteFile(folder_ / "other/Notes.sqlite", "no database");
  EXPECT_NE(UseNotesOf(folder_ / "other/"), "");
  EXPECT_EQ(file_.Read(evening)->note, "theirs");
}

TEST_F(StudyFileTest, WhatIsKeptOfAGameGoesWithItForGood) {
  store::GameRecord game;
  game.GAME_ID = evening.number;
  game.GAME_DATESTAMP = evening.stamp;
  ASSERT_TRUE(store::SaveGame(game, {}));
  file_.Keep(evening, {"note", {{"p", "hold e5"}}, someLines});
  file_.Keep(morning, Note("another's"));
  std::string removed;
  ASSERT_TRUE(store::RemoveGame(evening.number, &removed));
  for (const bool isBack : {true, false}) {
    if (isBack) {
      EXPECT_TRUE(store::PutBackGame(removed));
    }
    ForgetGames({removed});
    EXPECT_EQ(file_.Read(evening)->lines.size(), isBack ? 2u : 0u);
    store::RemoveGame(evening.number);
  }
  EXPECT_EQ(file_.Read(evening)->note, "");
  EXPECT_EQ(file_.Read(evening)->positionNotes.size(), 0u);
  EXPECT_EQ(file_.Read(morning)->note, "another's");
}

}  // namespace
}  // namespace study
