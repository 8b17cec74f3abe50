// SPDX-License-Identifier: GPL-3.0-or-later
#include "mail/move_mail.h"

#include "mail/mail_fixture.h"

namespace mail {
namespace {

using MoveMail = MailFixture;

constexpr const char* board =
    "0402030506030204;0101010101010101;0000000000000000;0000000000000000;"
    "0000000000000000;0000000000000000;0707070707070707;1008091112090810";

TEST_F(MoveMail, BodyIsBannerMarkersAndTheWholeGame) {
  store::GameRecord game = AnnasGame();
  game.GAME_START_BOARD = board;
  EXPECT_EQ(BuildMailBody(game, Moves(2)),
            "************************************************************\r\n"
            "T A R V O L E N I X   C H E S S   M O V E\r\n"
            "************************************************************\r\n"
            "This email is an Tarvolenix chess move.  It was created using\r\n"
            "Tarvolenix 3.0.0 and will not be readable by previous versions.\r\n"
            "\r\n"
            "WHAT TO DO NOW...\r\n"
            "Run Tarvolenix and the move will be picked up automatically.\r\n"
            "If you are already running Tarvolenix wait a bit and Tarvolenix\r\n"
            "will pick up this mail for you, or you can right click the system\r\n"
            "tray icon and select Retrieve games... from the popup menu.\r\n"
            "\r\n"
            "These emails are only automatically recognised by Tarvolenix if\r\n"
            "they are left unread.  If you have opened this mail it may now\r\n"
            "be marked as read so you must mark this mail as unread or\r\n"
            "manually retrieve the move as described above.\r\n"
            "\r\n"
            "The following text is the Tarvolenix chess game.  Please do not\r\n"
            "tamper with it or Tarvolenix will not function properly.\r\n"
            "************************************************************\r\n"
            "\r\n\r\n\r\n\r\n"
            "<<TARVOLENIX:0|\r\n7|\r\n090320260805|\r\nSunday game|\r\n09/03/2026|\r\n|\r\nBernd|"
            "\r\nFalse|\r\n"
            "0402030506030204;\r\n0101010101010101;\r\n0000000000000000;\r\n0000000000000000;\r\n"
            "0000000000000000;\r\n0000000000000000;\r\n0707070707070707;\r\n1008091112090810|\r\n"
            "1|5254|e4|Good luck!|\r\n2|5755|e5|:TARVOLENIX>>");
}

TEST_F(MoveMail, NameOfASenderIsCutToWhatTheOtherSideTakes) {
  store::GameRecord game = BerndsGame();
  std::string fifty;
  for (int i = 0; i < 50; ++i) fifty += "ä";
  game.GAME_WHITE_NAME = fifty + "ü";
  EXPECT_NE(BuildMoveText(game, Moves(1)).find("|\r\n" + fifty + "|\r\n"), std::string::npos);
}

TEST_F(MoveMail, SubjectTellsTheLastMove) {
  EXPECT_EQ(BuildMailSubject(Moves(1)), "Tarvolenix : e4, Good luck!");
  EXPECT_EQ(BuildMailSubject(Moves(2)), "Tarvolenix : e5, No comment.");
}

TEST_F(MoveMail, ReservedTextIsStripped) {
  EXPECT_EQ(StripReservedText("a|b;c <é>"), "a|b;c <é>");
  EXPECT_EQ(StripReservedText("x<<TARVOLENIX:y<<TARVOLENIX:z:TARVOLENIX>>"), "xyz");
  EXPECT_EQ(StripReservedText("two\r\nlines\tand\x1F"), "twolinesand");
  ReportReservedText(ReservedTextIn::PlayerComment);
  EXPECT_EQ(Told(),
            "2 Illegal characters\nYou are not permitted to use certain text in the player comment "
            "as it is reserved by Tarvolenix.\n\nThis text has have been removed or, where "
            "appropriate, replaced with spaces.\n[OK] /program/Data/Cs006.tvs");
}

}  // namespace
}  // namespace mail
