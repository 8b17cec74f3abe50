// SPDX-License-Identifier: GPL-3.0-or-later
// What the page beside a move says and shows, of games that are told as for the tests of the board.
#include <QImage>

#include "board/board_fixture.h"
#include "fakes/temporary_folder.h"
#include "letters/html_text.h"
#include "letters/message_ids.h"
#include "pages/board_picture.h"
#include "pages/mail_pages.h"

namespace pages {
namespace {

class PagesTest : public board::BoardTest {
 protected:
  PagesTest() { platform::Process().ProgramFolder = folder_ / ""; }

  platform::MovePage PageOf(const std::string& told) {
    StoreGame(told);
    return pages_.PageOf(1);
  }

  /// A set whose cells are plain: light or dark, and brighter for each kind of piece.
  void DrawSet() {
    std::filesystem::create_directories(folder_ / "Graphics/Flat");
    QImage sheet(640, 320, QImage::Format_RGB32);
    for (int cell = 0; cell < 32; ++cell) {
      for (int i = 0; i < 80 * 80; ++i) {
        sheet.setPixel(cell % 8 * 80 + i % 80, cell / 8 * 80 + i / 80, qRgb(0, 0, cell * 8));
      }
    }
    sheet.save(QString::fromStdString(folder_ / "Graphics/Flat/Sand.jpg"), "png");
  }

  TemporaryFolder folder_;
  MailPages pages_;
};

TEST_F(PagesTest, TellsInWordsWhatHasHappened) {
  const board::Case rows[] = {
      {"the first move", "|e2e4 e4#Hi & <b>you</b>|",
       "Your opponent invites you to a game of chess\r\nFriendly\r\nPawn from e2 to e4 (e4)\r\n"
       "Hi & <b>you</b>\r\nIt is your turn. You play Black.\r\n"},
      {"an answer, by name", "|e2e4 e4, g8f6 Nf6|guest",
       "Max has moved\r\nFriendly\r\nKnight from g8 to f6 (Nf6)\r\nIt is your turn. You play "
       "White"},
      {"takes and promotes", "Pb7 ra8 ke8|b7a8 bxa8=Q+",
       "Pawn from b7 takes the rook on a8 and becomes a queen (bxa8=Q+)\r\nYour king is in check"},
      {"en passant", "Pe5 pd7 Ph2|h2h3 h3, d7d5 d5, e5d6 exd6ep",
       "Pawn from e5 takes the pawn on d5 in passing, and stands on d6 (exd6ep)"},
      {"castling", "Ke1 ra8 ke8|e1e2 Ke2, e8c8 0-0-0|guest",
       "Castling: king from e8 to c8, rook from a8 to d8 (0-0-0)"},
      {"mate", "Qd1 ke8|d1d8 Qd8++", "opponent has won\r\n"},
      {"a forced draw", "Ke1 ke8|e1e2 Ke2 1/2-1/2", "has moved, and the game is a draw"},
      {"an offer", "|e2e4 e4, 5858 Draw offer#Enough?|guest",
       "Max offers you a draw\r\nFriendly\r\nEnough?\r\nIt is for you to accept or to decline"},
      {"accepted", "|e2e4 e4, 5858 Draw offer, 5151 1/2-1/2", "opponent accepts the draw\r\n"},
      {"declined", "|e2e4 e4, 5858 Draw offer, 5151 Decline", "opponent declines the draw\r\n"},
      {"given up", "|e2e4 e4, 5858 1-0|guest", "Max gives up\r\nFriendly\r\nYou have won."},
      {"the moves", "|e2e4 e4, 5858 Draw offer, 5151 Decline, e7e5 e5, g1f3 Nf3",
       "1.e4e5\r\n2.Nf3\r\n"},
      {"damaged", "Ke1 ke8|e4e5 e5", "Friendly\r\nIt is your turn."},
      {"where to get it", "|e2e4 e4", "You get it from https://tarvolenix.example. Tell"},
      {"the game itself", "|e2e4 e4|guest", "<<TARVOLENIX:0|\r\n1|\r\n010220261530|\r\nFriendly|"},
  };
  for (const board::Case& row : rows) {
    const std::string text = letters::HtmlToText(PageOf(row.game).html);
    EXPECT_NE(text.find(row.expected), std::string::npos) << row.name << "\n" << text;
  }
  desktop.settings.groups["Mail"]["MyName"] = "Anna <3";
  EXPECT_NE(letters::HtmlToText(PageOf("|e2e4 e4").html).find("Anna <3 invites"),
            std::string::npos);
}

TEST_F(PagesTest, ShowsTheBoardFromTheReadersSide) {
  DrawSet();
  rules::Place("Ke4");
  const rules::Position onTheBoard = rules::ThePosition();
  const platform::MovePage page = PageOf("Ra1 ke8|a1a3 Ra3");
  EXPECT_TRUE(rules::ThePosition().BoardState == onTheBoard.BoardState) << "it is being played on";
  EXPECT_NE(page.html.find("\"cid:" + letters::ContentIDOf(page.picture) + "\""),
            std::string::npos);
  EXPECT_LT(page.picture.size(), 15000U);
  const QImage board = QImage::fromData(QByteArray::fromStdString(page.picture));
  ASSERT_EQ(board.size(), QSize(BoardPictures::edge, BoardPictures::edge));
  const auto cellAt = [&board](int column, int row) {
    return qRound(qBlue(board.pixel(column * 50 + 25, row * 50 + 25)) * 31 / 255.0);
  };
  EXPECT_EQ(cellAt(7, 2), 9) << "a rook on a3, which is dark and to the right of Black";
  EXPECT_EQ(cellAt(3, 7), 21) << "the king on e8, which is light";
  EXPECT_EQ(cellAt(7, 0), 24) << "a1 is empty";
  EXPECT_NE(board.pixel(7 * 50 + 1, 1), board.pixel(7 * 50 + 25, 25)) << "and marked";
}

TEST_F(PagesTest, GoesWithoutWhatIsMissing) {
  WriteFile(folder_ / "Graphics", "no folder");
  const platform::MovePage page = PageOf("|e2e4 e4");
  EXPECT_EQ(page.picture, "");
  EXPECT_EQ(page.html.find("<img"), std::string::npos);
  EXPECT_TRUE(desktop.boxes.messages.empty());
  std::string longGame = "|e2e4 e4";
  for (int i = 0; i < 60; ++i) longGame += ", e7e5 e5#" + std::string(100, 'x');
  EXPECT_EQ(PageOf(longGame).html.find("TARVOLENIX:"), std::string::npos);
  EXPECT_THROW(pages_.PageOf(2), std::exception);
}

}  // namespace
}  // namespace pages
