// SPDX-License-Identifier: GPL-3.0-or-later
#include "mail/move_files.h"

#include "mail/mail_fixture.h"

namespace mail {
namespace {

using platform::Process;

class MoveFiles : public MailFixture {
 protected:
  void Waits(const std::string& name, const std::string& content) {
    desktop.files.content[folder + name] = content;
  }
  bool Waiting(const std::string& name) const {
    return desktop.files.content.contains(folder + name);
  }
  void UserPicks(const std::string& path, const std::string& content) {
    if (!path.empty()) desktop.files.content[path] = content;
    platform::TheDesktop().hooks.pickMoveFile = [path] { return path; };
  }
  bool WasFollowedUp() const { return !desktop.hooksCalled.empty(); }
};

constexpr const char* importFailed =
    "An error occured trying to import the game information.\n\nPlease ensure you select a valid "
    "chess move file.";
constexpr const char* retrievalFailed =
    "An error occured trying to retrieve the game information.\n\nPlease select Retrieve games... "
    "from the File menu.";

TEST_F(MoveFiles, ExportTakesTheFirstFreeNumber) {
  Store(Game(true, hostsID, 0), 1);
  Waits("Cmove1.txt", "taken");
  Waits("Cmove3.txt", "taken");
  std::string name;
  EXPECT_TRUE(ExportMoveFile(hostsID, &name));
  EXPECT_EQ(name, "Cmove2.txt");
  EXPECT_EQ(desktop.files.content[folder + name], FromHost(1) + "\r\n");
  EXPECT_EQ(desktop.files.content[folder + "tvgdb.bak"], desktop.files.content[databasePath]);
  EXPECT_TRUE(ExportMoveFile(hostsID));
  EXPECT_TRUE(Waiting("Cmove4.txt"));
}

TEST_F(MoveFiles, FailedExportIsToldAndLeavesNoFile) {
  Store(Game(true, hostsID, 0), 1);
  const auto before = desktop.files.content;
  for (int failing = 1; failing <= 4; ++failing) {  // two queries, write, rename
    SCOPED_TRACE(failing);
    desktop.boxes.messages.clear();
    desktop.files.FailOperation(failing);
    EXPECT_FALSE(ExportMoveFile(hostsID));
    EXPECT_EQ(TitleShown(), "Transmission error.");
    EXPECT_EQ(desktop.files.content, before);
  }
  EXPECT_FALSE(ExportMoveFile(99));
}

TEST_F(MoveFiles, ListsOnlyMoveFiles) {
  for (const char* name : {"Cmove1.txt", "Cmove12.txt", "Cmove;odd.txt", "Cmove.new", "cmove1.txt",
                           "xCmove1.txt", "Cmove1.txt.bak", "Tvgdb.dat"}) {
    Waits(name, "");
  }
  EXPECT_EQ(ListMoveFiles(),
            (std::vector<std::string>{folder + "Cmove1.txt", folder + "Cmove12.txt",
                                      folder + "Cmove;odd.txt"}));
}

TEST_F(MoveFiles, TickTakesTheWaitingFiles) {
  Waits("Cmove1.txt", FromHost(1) + "\r\n");
  Waits("Cmove2.txt", "damaged");
  Waits("Cmove3.txt", FromHost(2) + "\r\n");
  Waits("Cmove4.txt", FromHost(1) + "\r\n");
  const auto arrivals = ImportMoveFiles(false, false);

  ASSERT_EQ(Stored().size(), 1U);
  const store::GameRecord game = Stored().front();
  EXPECT_EQ(game.GAME_WHITE_NAME, "Unknown");  // the first mail doesn't know White's name yet
  EXPECT_EQ(game.GAME_BLACK_NAME, "Bernd");
  EXPECT_EQ(game.GAME_OPPONENTS_NAME, "Unknown");
  EXPECT_EQ(game.GAME_OPPONENTS_EMAIL, "unknown@tarvolenix.invalid");
  EXPECT_EQ(game.GAME_OPPONENTS_ID, hostsID);
  EXPECT_EQ(StoredMoves(game.GAME_ID), 2U);
  EXPECT_EQ(Process().PendingGames, "1;1;");
  EXPECT_FALSE(Process().NewMoveArrived);  // the last file brought nothing new
  EXPECT_EQ(ListMoveFiles(), std::vector<std::string>{folder + "Cmove2.txt"});
  EXPECT_EQ(desktop.boxes.messages.size(), 1U);
  EXPECT_EQ(TitleShown(), "Message retrival error");
  EXPECT_TRUE(desktop.boxes.statusTexts.empty());
  EXPECT_TRUE(WasFollowedUp());
  ASSERT_EQ(arrivals.size(), 4U);
  EXPECT_EQ(arrivals[1].stage, 1);
  EXPECT_EQ(arrivals[2].gameID, 1);
  EXPECT_TRUE(arrivals[2].changed);
}

TEST_F(MoveFiles, TickWithoutFilesOnlyCleansUp) {
  Process().PendingGames = "3;";
  EXPECT_TRUE(ImportMoveFiles(true, false).empty());
  EXPECT_EQ(Process().PendingGames, "");
  EXPECT_TRUE(WasFollowedUp());
  EXPECT_EQ(desktop.boxes.statusTexts, (std::vector<std::string>{"Retrieving games...", ""}));

  desktop.hooksCalled.clear();
  desktop.files.FailOperation(1);  // the folder can't be listed: not a word
  ImportMoveFiles(true, false);
  EXPECT_FALSE(WasFollowedUp());
  EXPECT_TRUE(desktop.boxes.messages.empty());
}

TEST_F(MoveFiles, UserImportsASavedMail) {
  Store(Game(true, hostsID, 0), 1);
  std::string body = "From: somebody\n\n" + FromGuest(2) + "\n-- \nfooter";
  body.insert(body.find("<<TARVOLENIX:") + 5, "\n");
  body.insert(body.find(":TARVOLENIX>>") + 3, "\n");
  for (const bool changed : {true, false}) {  // the second time it brings nothing new
    UserPicks("/home/anna/mail.eml", body);
    const auto arrivals = ImportMoveFiles(true, true);
    EXPECT_EQ(TitleShown(), "Game import");
    EXPECT_EQ(TextShown(), "The game has been successfully imported.");
    EXPECT_EQ(desktop.sounds.played.back(), "/program/Data/Cs006.tvs");
    EXPECT_EQ(Process().PendingGames, changed ? "7;" : "");
    EXPECT_TRUE(desktop.files.content.contains("/home/anna/mail.eml"));
    ASSERT_EQ(arrivals.size(), 1U);
    EXPECT_EQ(arrivals[0].changed, changed);
    EXPECT_TRUE(arrivals[0].ok);
  }
  EXPECT_EQ(Stored().front().GAME_WHITE_NAME, "Anna");
  EXPECT_EQ(Stored().front().GAME_OPPONENTS_EMAIL, "unknown@tarvolenix.invalid");
}

TEST_F(MoveFiles, WhatTheUserHearsOfAFailedImport) {
  const struct {
    const char* name;
    std::string path, content;
    bool damagedStore;
    std::string title, text;
    bool followedUp;
  } rows[] = {
      {"cancelled", "", "", false, "File read error", importFailed, false},
      {"damaged store", "/f", FromHost(1), true, "File read error", importFailed, false},
      {"no move in it", "/f", "a letter", false, "Message retrival error",
       "The file you selected failed validation.\n\nIf it is a corrupt chess move email, get your "
       "opponent to re-send there last move.  Validation progress : 1.",
       true},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.name);
    desktop.boxes.messages.clear();
    desktop.hooksCalled.clear();
    if (row.damagedStore) DamageStore();
    UserPicks(row.path, row.content);
    const auto arrivals = ImportMoveFiles(true, true);
    EXPECT_EQ(desktop.boxes.messages.size(), 1U);
    EXPECT_EQ(TitleShown(), row.title);
    EXPECT_EQ(TextShown(), row.text);
    EXPECT_EQ(WasFollowedUp(), row.followedUp);
    EXPECT_EQ(desktop.boxes.statusTexts.back(), "");
    EXPECT_FALSE(arrivals.at(0).ok);
    desktop.files.content.erase(databasePath);
  }
  UserPicks("/gone", "");
  MakeFileFail("/gone");
  EXPECT_FALSE(ImportPickedFile("/gone", false).ok);
  EXPECT_EQ(TextShown(), importFailed);
}

TEST_F(MoveFiles, FailureAtATickIsToldForTheFirstFileOnly) {
  const struct {
    const char* name;
    const char* operation;
    std::string told;
    std::vector<std::string> left;
  } rows[] = {
      {"first file can't be read",
       "read /program/Data/Cmove1.txt",
       retrievalFailed,
       {"Cmove1.txt", "Cmove2.txt"}},
      {"a later one can't be read", "read /program/Data/Cmove2.txt", "", {"Cmove2.txt"}},
      {"a taken one can't be deleted",
       "remove /program/Data/Cmove1.txt",
       "",
       {"Cmove1.txt", "Cmove2.txt"}},
      {"the game can't be saved",
       "write /program/Data/tvgdb.new",
       retrievalFailed,
       {"Cmove1.txt", "Cmove2.txt"}},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.name);
    const auto setUp = [&] {
      desktop.files.content.clear();
      desktop.files.operations.clear();
      desktop.boxes.messages.clear();
      desktop.hooksCalled.clear();
      Waits("Cmove1.txt", FromHost(1));
      Waits("Cmove2.txt", FromHost(2));
    };
    setUp();
    ImportMoveFiles(false, false);
    ASSERT_TRUE(desktop.boxes.messages.empty());
    const auto& done = desktop.files.operations;
    const auto place = std::find(done.begin(), done.end(), row.operation);
    ASSERT_NE(place, done.end());
    const int number = static_cast<int>(place - done.begin()) + 1;
    setUp();
    desktop.files.FailOperation(number);
    ImportMoveFiles(false, false);
    EXPECT_EQ(TextShown(), row.told);
    EXPECT_EQ(TitleShown(), row.told.empty() ? "" : "File read error");
    EXPECT_FALSE(WasFollowedUp());
    for (const char* name : {"Cmove1.txt", "Cmove2.txt"}) {
      EXPECT_EQ(Waiting(name), std::count(row.left.begin(), row.left.end(), name) == 1) << name;
    }
  }
}

}  // namespace
}  // namespace mail
