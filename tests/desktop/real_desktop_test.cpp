// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/real_desktop.h"

#include <gtest/gtest.h>

#include "desktop/folders.h"
#include "platform/desktop.h"
#include "platform/registry.h"
#include "platform/text_fields.h"
#include "temporary_folder.h"

namespace {

TEST(RealDesktopTest, TwoPlayersOnOneMachineReachEachOther) {
  TemporaryFolder folder;
  for (const std::string& player : {std::string("white"), std::string("black")}) {
    std::filesystem::create_directory(folder / player);
    std::string account = "[Mail]\nMyName=Jürgen, NAME\nMyAddress=NAME@localhost\nPostFolder=";
    account = platform::ReplaceAll(account, "NAME", player) + (folder / "post\n");
    WriteFile(folder / (player + "/Tarvolenix.conf"), account);
  }
  {
    const desktop::RealDesktop white(folder / "white");
    const platform::Desktop& seams = platform::TheDesktop();
    ASSERT_TRUE(platform::WriteRegistry(platform::productSection, "ChessSet", "Märmor"));
    EXPECT_NE(ReadFile(folder / "white/Tarvolenix.conf").find("Märmor"), std::string::npos);
    seams.files->Write(folder / "white/file", "x");
    EXPECT_GT(seams.clock->Now().year, 2000);
    seams.sounds->Play(folder / "white/file");
    seams.MSess->SignOn();
    seams.MMess->RecipAddress("black@localhost");
    seams.MMess->MsgIndex(-1);
    seams.MMess->MsgSubject("Tarvolenix : e4");
    seams.MMess->Send();
  }
  EXPECT_EQ(platform::TheDesktop().MSess, nullptr);
  const desktop::RealDesktop black(folder / "black");
  platform::MAPIMessages& messages = *platform::TheDesktop().MMess;
  platform::TheDesktop().MSess->SignOn();
  messages.FetchUnreadOnly(true);
  messages.Fetch();
  ASSERT_EQ(messages.MsgCount(), 1);
  messages.MsgIndex(0);
  EXPECT_EQ(messages.MsgSubject(), "Tarvolenix : e4");
  EXPECT_EQ(messages.MsgOrigDisplayName(), "Jürgen,white");
  EXPECT_EQ(messages.MsgOrigAddress(), "white@localhost");
}

TEST(RealDesktopTest, TheProgramFolderIsTheExecutables) {
  EXPECT_TRUE(std::filesystem::exists(desktop::ProgramFolder() + "desktop_test"));
}

}  // namespace
