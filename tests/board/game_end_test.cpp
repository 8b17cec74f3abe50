// SPDX-License-Identifier: GPL-3.0-or-later
// How games end, as both players see it: the one who makes the last entry and the one who gets it.
#include "board/board_fixture.h"

namespace board {
namespace {

struct EndCase {
  const char* name;
  const char* game;      ///< as the mover opens it; he is asked to answer where an offer is last
  const char* act;       ///< a move, or the words of an entry; "#" and a parting comment
  const char* entry;     ///< what becomes of it in the list
  std::string noticed;   ///< by the mover at once,
  std::string later;     ///< when he opens the game again,
  std::string received;  ///< and by the opponent
  int sent;              ///< the status in the mover's store,
  int closed;            ///< and in the opponent's
};

const std::string mated =
    "CHECKMATE!: Congratulations!\n\nYou have won by getting your opponent "
    "in checkmate.";
const std::string lost = "CHECKMATE!: You lost!\n\nEva ";
const std::string surrendered =
    "SURRENDER!: Congratulations!\n\nYou have won because your "
    "opponent surrendered";
const std::string gaveUp = "SURRENDER!: You lost!\n\n";
const std::string offer =
    "Offer of a draw: Your opponent has offered a draw.  Please either "
    "accept or decline with the buttons to the top right.";
const std::string draw = "DRAW!: The game ended in a ";
const std::string force =
    "Forced draw: This move will force a draw because you cannot "
    "checkmate with only ";
const std::string mine = draw + "draw because you forced a draw.";
const std::string hers = draw + "draw because your opponent forced a draw.";

const EndCase endCases[] = {
    {"White mates", "Ke1 Ra1 kg8 pf7 pg7 ph7||", "a1a8", "1118 Ra8++", mated, mated,
     lost + "has won the game by getting you in checkmate.", 3, 4},
    {"Black mates and comments", "Kg1 Pf2 Pg2 Ph2 ra8 ke8|g1h1 Kh1|guest", "a8a1#Bye", "1811 Ra1++",
     mated, mated, lost + "got you in checkmate and had a parting comment: Bye", 3, 4},
    {"White surrenders", "|e2e4 e4, e7e5 e5|", "surrender", "5151 0-1", "",
     gaveUp + "Eva won the game because you surrendered.", surrendered + ".", 4, 3},
    {"Black surrenders and comments", "|e2e4 e4|guest", "surrender#Bye", "5858 1-0", "",
     gaveUp + "You surrendered to Eva and the last thing said was: Bye",
     surrendered + " and had a parting comment: Bye", 4, 3},
    {"Black offers and comments", "|e2e4 e4|guest", "offer#Well?", "5858 Draw offer", "", "", offer,
     5, 1},
    {"Black accepts", "|e1e1 Draw offer|guest", "accept", "5858 1/2-1/2", "",
     draw + "draw because you accepted your opponents offer of a draw.",
     draw + "draw because your opponent accepted your offer of a draw.", 6, 6},
    {"White declines", "|e2e4 e4, e8e8 Draw offer|", "decline#No", "5151 Decline", "", "", "", 5,
     1},
    {"stalemate", "Kf6 Qa2 kh8||", "a2f7", "1267 Qf7 1/2-1/2",
     "Stalemate!: This move will force a draw.",
     draw + "forced draw because you put your opponent in stalemate.",
     draw + "forced draw because your opponent put you in stalemate.", 6, 6},
    {"one knight", "Kd4 ke7 Pe6 nb8|d4e4 Ke4|guest", "e7e6", "5756 Kxe6 1/2-1/2",
     force + "a knight or a bishop.", mine, hers, 6, 6},
    {"bishops of one colour", "Ke1 kd5 pe2 Bc1 bf8||", "e1e2", "5152 Kxe2 1/2-1/2",
     force + "two bishops on the same colour.", mine, hers, 6, 6},
};

struct GameEndTest : BoardTest {
  void Act(const EndCase& row) {
    const std::string word(GetField(row.act, 1, '#'));
    game->PlayerComment = std::string(GetField(row.act, 2, '#'));
    if (word == "surrender") {
      ToolbarClick(*game, SurrenderButton);
    } else if (word == "offer") {
      OfferDraw(*game);
    } else if (word == "accept" || word == "decline") {
      DecideDraw(*game, word == "accept");
    } else {
      Play(word);
    }
  }

  /// The same game as the other player gets it, with the last entry on top.
  static std::string AtTheOpponents(const EndCase& row) {
    std::string entries(GetField(row.game, 2, '|'));
    if (!entries.empty()) entries += ", ";
    const std::string comment(GetField(row.act, 2, '#'));
    const bool byWhite = std::string_view(row.game).ends_with('|');
    return std::string(GetField(row.game, 1, '|')) + "|" + entries + row.entry + "#" + comment +
           "|" + (byWhite ? "guest" : "");
  }

  /// What the user notices once the window can be seen, and nothing before.
  std::string NoticedOnOpening() {
    Open();
    view->visible = false;
    Tick();
    EXPECT_EQ(Told(), "");
    game->SetupWarned = true;
    view->visible = true;
    Tick();
    return Told();
  }
};

TEST_F(GameEndTest, EachEndIsSeenFromBothSides) {
  for (const EndCase& row : endCases) {
    SCOPED_TRACE(row.name);
    StoreGame(row.game);
    const bool answers = std::string_view(row.game).find("Draw offer") != std::string_view::npos;
    EXPECT_EQ(NoticedOnOpening(), answers ? offer : "");
    const rules::Untouched before;
    const BoardControls offered = Controls(*game);
    Act(row);
    for (const int selected : {game->Moves.Count() - 1, game->Moves.Count()}) {
      if (game->Moves.Count() > 1) MoveList_RowColChange(*game, selected);
    }
    ToolbarClick(*game, UndoButton);
    EXPECT_EQ(rules::Untouched(), before);
    EXPECT_FALSE(GameIsOver(*game));
    EXPECT_TRUE(ThePosition().MoveAllowed);
    EXPECT_EQ(game->DrawOffered, answers);
    EXPECT_EQ(Controls(*game).answerDraw, offered.answerDraw);
    EXPECT_EQ(Controls(*game).surrender, offered.surrender);
    Tick(game->StalemateFlashes + 1);
    ExpectWindowIsUpToDate();

    Told();
    desktop.boxes.whileUp = [this] { ExpectPictureIsUpToDate(); };
    Act(row);
    desktop.boxes.whileUp = {};
    Tick();
    EXPECT_EQ(Told(), row.noticed) << "once";
    EXPECT_EQ(game->Moves.Last().MoveCoordinates + " " + game->Moves.Last().MoveText, row.entry);
    EXPECT_EQ(game->Moves.Last().MoveComment, GetField(row.act, 2, '#'));
    EXPECT_EQ(Offers(*game), "undo send comment Cancel");
    EXPECT_TRUE(SaveMove(*game));
    EXPECT_EQ(StoredStatus(), row.sent);
    EXPECT_EQ(NoticedOnOpening(), row.later);
    Form_Unload(*game);
    EXPECT_EQ(StoredStatus(), row.sent);

    StoreGame(AtTheOpponents(row));
    for (const bool browsing : {false, true}) {
      EXPECT_EQ(NoticedOnOpening(), row.received);
      EXPECT_EQ(StoredStatus(), store::MoveWaiting) << "until the window is closed";
      if (browsing && game->Moves.Count() > 1) MoveList_RowColChange(*game, 1);
      Form_Unload(*game);
      EXPECT_EQ(StoredStatus(), row.closed);
      StoreGame(AtTheOpponents(row));
    }
  }
}

}  // namespace
}  // namespace board
