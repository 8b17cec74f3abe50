// SPDX-License-Identifier: GPL-3.0-or-later
#include "mail/move_mail.h"

#include "mail/mail_fixture.h"

namespace mail {
namespace {

using MoveMail = MailFixture;

TEST_F(MoveMail, BodyHoldsTheWholeGameBetweenItsMarkers) {
  store::GameRecord game = AnnasGame();
  game.GAME_START_BOARD =
      "0402030506030204;0101010101010101;0000000000000000;0000000000000000;"
      "0000000000000000;0000000000000000;0707070707070707;1008091112090810";
  const std::string body = BuildMailBody(game, Moves(2));
  EXPECT_EQ(body.substr(body.find("<<")),
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
}

}  // namespace
}  // namespace mail
