// SPDX-License-Identifier: GPL-3.0-or-later
#include "mail/move_files.h"

#include <algorithm>

#include "mail/mail_fixture.h"

namespace mail {
namespace {

using platform::Process;

class MoveFiles : public MailFixture {
 protected:
  void UserPicks(const std::string& path, const std::string& content) {
    if (!content.empty()) desktop.files.content[path] = content;
    platform::TheDesktop().hooks.pickMoveFile = [path] { return path; };
  }
};

constexpr const char* notImported =
    "4 File read error\nAn error occured trying to import the game information.\n\nPlease ensure "
    "you select a valid chess move file.\n[OK] /program/Data/Cs005.tvs";
constexpr const char* notRetrieved =
    "4 File read error\nAn error occured trying to retrieve the game information.\n\nPlease select "
    "Retrieve games... from the File menu.\n[OK] /program/Data/Cs005.tvs";

TEST_F(MoveFiles, ExportTakesTheFirstFreeNumber) {
  Store(AnnasGame(), 1);
  File("Cmove1.txt") = File("Cmove3.txt") = "taken";
  std::string name;
  EXPECT_TRUE(ExportMoveFile(7, &name));
  EXPECT_EQ(name, "Cmove2.txt");
  EXPECT_EQ(File(name), FromAnna(1) + "\r\n");
  EXPECT_EQ(File("tvgdb.bak"), GameFile());
  EXPECT_TRUE(ExportMoveFile(7));
  EXPECT_TRUE(IsThere("Cmove4.txt"));
}

TEST_F(MoveFiles, FailedExportIsToldAndLeavesNoFile) {
  Store(AnnasGame(), 1);
  const auto before = desktop.files.content;
  for (int failing = 1; failing <= 4; ++failing) {  // two queries, write, rename
    SCOPED_TRACE(failing);
    ForgetRecords();
    desktop.files.FailOperation(failing);
    EXPECT_FALSE(ExportMoveFile(7));
    EXPECT_TRUE(Told().starts_with("4 Transmission error.\n"));
    EXPECT_EQ(desktop.files.content, before);
  }
}

TEST_F(MoveFiles, ListsOnlyMoveFiles) {
  for (const char* name : {"Cmove1.txt", "Cmove12.txt", "Cmove;odd.txt", "Cmove.new", "cmove1.txt",
                           "xCmove1.txt", "Cmove1.txt.bak", "Tvgdb.dat"}) {
    File(name);
  }
  EXPECT_EQ(ListMoveFiles(),
            (std::vector<std::string>{folder + "Cmove1.txt", folder + "Cmove12.txt",
                                      folder + "Cmove;odd.txt"}));
}

TEST_F(MoveFiles, TickTakesTheWaitingFiles) {
  File("Cmove1.txt") = FromAnna(1) + "\r\n";
  File("Cmove2.txt") = "damaged";
  File("Cmove3.txt") = FromAnna(2) + "\r\n";
  File("Cmove4.txt") = FromAnna(1) + "\r\n";
  const auto arrivals = ImportMoveFiles(false, false);
  // The first mails of a game don't know White's name.
  EXPECT_EQ(GameFile(),
            Line("1|090320260805|7|Sunday game|09/03/2026|unknown@tarvolenix.invalid|Unknown|Bernd|"
                 "0|Unknown|1|0|;;;;;;;",
                 2));
  EXPECT_EQ(Process().PendingGames, "1;1;");
  EXPECT_FALSE(Process().NewMoveArrived);  // the last file brought nothing new
  EXPECT_EQ(ListMoveFiles(), std::vector<std::string>{folder + "Cmove2.txt"});
  EXPECT_EQ(desktop.boxes.messages.size(), 1U);
  EXPECT_TRUE(Told().starts_with("4 Message retrival error\nTarvolenix found what"));
  EXPECT_TRUE(desktop.boxes.statusTexts.empty());
  EXPECT_TRUE(RanThrough());
  ASSERT_EQ(arrivals.size(), 4U);
  EXPECT_EQ(arrivals[1].stage, 1);
  EXPECT_TRUE(arrivals[2].changed && arrivals[2].gameID == 1);
}

TEST_F(MoveFiles, TickWithoutFilesOnlyCleansUp) {
  Process().PendingGames = "3;";
  EXPECT_TRUE(ImportMoveFiles(true, false).empty());
  EXPECT_EQ(Process().PendingGames, "");
  EXPECT_TRUE(RanThrough());
  EXPECT_EQ(desktop.boxes.statusTexts, (std::vector<std::string>{"Retrieving games...", ""}));

  ForgetRecords();
  desktop.files.FailOperation(1);  // the folder can't be listed: not a word
  ImportMoveFiles(true, false);
  EXPECT_FALSE(RanThrough());
  EXPECT_TRUE(desktop.boxes.messages.empty());
}

TEST_F(MoveFiles, UserImportsASavedMail) {
  Store(AnnasGame(), 1);
  std::string mail = "From: somebody\n\n" + FromBernd(2) + "\n-- \nfooter";
  mail.insert(mail.find("<<TARVOLENIX:") + 5, "\n");
  mail.insert(mail.find(":TARVOLENIX>>") + 3, "\n");
  UserPicks("/home/anna/mail.eml", mail);
  for (const bool changed : {true, false}) {  // the second time it brings nothing new
    const auto arrivals = ImportMoveFiles(true, true);
    EXPECT_EQ(Told(),
              "4 Game import\nThe game has been successfully imported.\n[OK] "
              "/program/Data/Cs006.tvs");
    EXPECT_EQ(Process().PendingGames, changed ? "7;" : "");
    EXPECT_TRUE(desktop.files.content.contains("/home/anna/mail.eml"));
    ASSERT_EQ(arrivals.size(), 1U);
    EXPECT_TRUE(arrivals[0].ok && arrivals[0].changed == changed);
    EXPECT_EQ(GameFile(), Line("7|090320260805|12|Sunday game|09/03/2026|"
                               "unknown@tarvolenix.invalid|Anna|Bernd|-1|Unknown|1|0|;;;;;;;",
                               2));
  }
}

TEST_F(MoveFiles, WhatTheUserHearsOfAFailedImport) {
  const struct {
    const char* name;
    std::string path, content, stored, told;
    bool ranThrough;
  } rows[] = {
      {"cancelled", "", "", "", notImported, false},
      {"no such file", "/gone", "", "", notImported, false},
      {"damaged store", "/f", FromAnna(1), "no number|\r\n", notImported, false},
      {"no move in it", "/f", "a letter", "",
       "4 Message retrival error\nThe file you selected failed validation.\n\nIf it is a corrupt "
       "chess move email, get your "
       "opponent to re-send there last move.  Validation progress : 1.\n[OK] "
       "/program/Data/Cs006.tvs",
       true},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.name);
    ForgetRecords();
    if (row.stored.empty()) {
      desktop.files.content.clear();
    } else {
      GameFile() = row.stored;
    }
    UserPicks(row.path, row.content);
    Process().NewMoveArrived = row.ranThrough;
    EXPECT_FALSE(ImportMoveFiles(true, true).at(0).ok);
    EXPECT_EQ(desktop.boxes.messages.size(), 1U);
    EXPECT_EQ(Told(), row.told);
    EXPECT_EQ(RanThrough(), row.ranThrough);
    EXPECT_FALSE(Process().NewMoveArrived);
    EXPECT_EQ(desktop.boxes.statusTexts.back(), "");
  }
}

TEST_F(MoveFiles, FailureAtATickIsToldForTheFirstFileOnly) {
  const struct {
    const char* operation;
    const char* told;
    std::vector<std::string> left;
  } rows[] = {
      {"read /program/Data/Cmove1.txt", notRetrieved, {"Cmove1.txt", "Cmove2.txt"}},
      {"read /program/Data/Cmove2.txt", "", {"Cmove2.txt"}},
      {"remove /program/Data/Cmove1.txt", "", {"Cmove1.txt", "Cmove2.txt"}},
      {"write /program/Data/tvgdb.new", notRetrieved, {"Cmove1.txt", "Cmove2.txt"}},
  };
  const auto tick = [&](int failing) {
    ForgetRecords();
    desktop.files.content.clear();
    File("Cmove1.txt") = FromAnna(1);
    File("Cmove2.txt") = FromAnna(2);
    desktop.files.FailOperation(failing);
    ImportMoveFiles(false, false);
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.operation);
    tick(0);
    const auto& done = desktop.files.operations;
    const auto place = std::find(done.begin(), done.end(), row.operation);
    ASSERT_NE(place, done.end());
    tick(static_cast<int>(place - done.begin()) + 1);
    EXPECT_EQ(Told(), row.told);
    EXPECT_FALSE(RanThrough());
    for (const char* name : {"Cmove1.txt", "Cmove2.txt"}) {
      EXPECT_EQ(IsThere(name), std::count(row.left.begin(), row.left.end(), name) == 1) << name;
    }
  }
}

}  // namespace
}  // namespace mail
