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
    desktop.windows.picked = path;
  }
};

TEST_F(MoveFiles, ExportTakesTheFirstFreeNumber) {
  Store(AnnasGame(), 1);
  File("Cmove1.txt") = File("Cmove3.txt") = "taken";
  std::string name;
  EXPECT_TRUE(ExportMoveFile(7, &name));
  EXPECT_EQ(name, "Cmove2.txt");
  EXPECT_EQ(File(name), FromAnna(1) + "\r\n");
}

TEST_F(MoveFiles, TickTakesTheWaitingFiles) {
  File("Cmove1.txt") = FromAnna(1) + "\r\n";
  File("Cmove2.txt") = "damaged";
  File("Cmove3.txt") = FromAnna(2) + "\r\n";
  File("Cmove4.txt") = FromAnna(1) + "\r\n";
  File("cmove1.txt") = File("Cmove1.txt.bak") = "another's file";
  ImportMoveFiles(false, false);
  // The first mails of a game don't know White's name.
  EXPECT_EQ(GameFile(),
            Line("1|090320260805|7|Sunday game|09/03/2026|unknown@tarvolenix.invalid|Unknown|Bernd|"
                 "0|Unknown|1|0|;;;;;;;",
                 2));
  EXPECT_EQ(Process().PendingGames, (fakes::GameIDs{1, 1}));
  EXPECT_EQ(ListMoveFiles(), std::vector<std::string>{folder + "Cmove2.txt"});
  EXPECT_TRUE(IsThere("cmove1.txt") && IsThere("Cmove1.txt.bak"));
  EXPECT_EQ(desktop.boxes.messages.size(), 1U);
}

TEST_F(MoveFiles, UserImportsASavedMail) {
  Store(AnnasGame(), 1);
  std::string mail = "From: somebody\n\n" + FromBernd(2) + "\n-- \nfooter";
  mail.insert(mail.find("<<TARVOLENIX:") + 5, "\n");
  mail.insert(mail.find(":TARVOLENIX>>") + 3, "\n");
  UserPicks("/home/anna/mail.eml", mail);
  EXPECT_TRUE(ImportMoveFiles(true, true).at(0).changed);
  EXPECT_EQ(Process().PendingGames, fakes::GameIDs{7});
  EXPECT_TRUE(desktop.files.content.contains("/home/anna/mail.eml"));
  EXPECT_EQ(GameFile(), Line("7|090320260805|12|Sunday game|09/03/2026|"
                             "bernd@example.org|Anna|Bernd|-1|Bernd|1|0|",
                             2));
}

TEST_F(MoveFiles, UserHearsOfAFailedImport) {
  Store(AnnasGame(), 1);
  for (const bool isPickedFile : {true, false}) {
    UserPicks("/f", FromAnna(1));
    desktop.files.FailOperation(isPickedFile ? 1 : 2);  // or the game file
    EXPECT_FALSE(ImportMoveFiles(true, true).at(0).ok);
    EXPECT_EQ(desktop.LastMessage().first, "File read error");
    EXPECT_EQ(Told().ends_with("move file.\n\nThe cause: can't read /f."), isPickedFile) << Told();
  }
}

TEST_F(MoveFiles, FailureAtATickIsToldForTheFirstFileAndCostsNone) {
  const std::pair<const char*, bool> rows[] = {
      {"read /program/Data/Cmove1.txt", true},
      {"remove /program/Data/Cmove1.txt", false},
      {"write /program/Data/tvgdb.new", true},
  };
  const auto tick = [&](int failing) {
    ForgetRecords();
    desktop.files.content.clear();
    File("Cmove1.txt") = FromAnna(1);
    File("Cmove2.txt") = FromAnna(2);
    desktop.files.FailOperation(failing);
    ImportMoveFiles(false, false);
  };
  for (const auto& [operation, told] : rows) {
    SCOPED_TRACE(operation);
    tick(0);
    const auto& done = desktop.files.operations;
    const auto place = std::find(done.begin(), done.end(), operation);
    ASSERT_NE(place, done.end());
    tick(static_cast<int>(place - done.begin()) + 1);
    EXPECT_EQ(desktop.boxes.messages.size(), told ? 1U : 0U);
    EXPECT_TRUE(IsThere("Cmove1.txt") && IsThere("Cmove2.txt"));
  }
}

}  // namespace
}  // namespace mail
