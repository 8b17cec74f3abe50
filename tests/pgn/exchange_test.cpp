// SPDX-License-Identifier: GPL-3.0-or-later
// Whole games: out as PGN, through another program, and in again.
#include <cstdlib>

#include "ai/random_positions.h"
#include "fakes/fake_desktop.h"
#include "fakes/temporary_folder.h"
#include "pgn/entries.h"
#include "pgn/export.h"
#include "pgn/known_games.h"
#include "pgn/pgn_fixture.h"
#include "platform/text_fields.h"

namespace pgn {
namespace {

store::GameRecord Game(const std::string& name) {
  store::GameRecord game;
  game.GAME_NAME = name;
  game.GAME_DATE = "09/03/2026";
  game.GAME_OPPONENTS_EMAIL = "bob@example.org";
  game.GAME_BLACK_NAME =
      "B\xC3\xB6"
      "b \"the rook\"";
  game.GAME_HOST = true;
  return game;
}

TEST(ExportTest, AGameHasItsTagsItsMovesAndWhatWasSaid) {
  store::MoveRecords moves = Entries("e2e4 e7e5 Draw_offer Decline g1f3 Draw_offer 1/2-1/2");
  moves[0].MoveComment = "{100 %sure} |";
  moves[3].MoveComment = "Not yet, as " + std::string(75, 'x') + " says";
  EXPECT_EQ(PgnOfGame(Game("A \\ game"), moves, {true, "Anna", "anna@example.org"}),
            "[Event \"A \\\\ game\"]\n[Site \"?\"]\n[Date \"2026.03.09\"]\n[Round \"-\"]\n"
            "[White \"Anna\"]\n[Black \"B\xC3\xB6"
            "b \\\"the rook\\\"\"]\n[Result \"1/2-1/2\"]\n[BlackNA \"bob@example.org\"]\n"
            "[Termination \"normal\"]\n[WhiteNA \"anna@example.org\"]\n\n"
            "1. e4 {(100 %sure) |} 1... e5 {White offers a draw} {Black declines the draw:\n"
            "Not yet, as\n" +
                std::string(68, 'x') + "[% ]xxxxxxx\n" +
                "says} 2. Nf3 {Black offers a draw} {White accepts the draw} 1/2-1/2\n\n");
}

struct EndCase {
  const char* name;
  const char* entries;
  const char* end;  ///< of the text
};

const EndCase endCases[] = {
    {"a running game", "e2e4", "1. e4 *\n\n"},
    {"Black gives up", "e2e4 1-0", "1. e4 {Black surrenders} 1-0\n\n"},
    {"White gives up, as older versions wrote", "e2e4 e7e5 Surrender",
     "1. e4 e5 {White surrenders} 0-1\n\n"},
    {"a move that breaks the rules", "e2e4 e7e4 g1f3",
     "1. e4 {What follows is against the rules of chess: e7e4 g1f3} *\n\n"},
    {"a move out of turn", "e2e4 Draw_offer g1f3",
     "1. e4 {Black offers a draw} {What follows is against the rules of chess: g1f3}\n*\n\n"},
};

TEST(ExportTest, AGameEndsAsItsEntriesSay) {
  for (const EndCase& row : endCases) {
    const std::string text = PgnOfGame(Game("T"), Entries(row.entries));
    EXPECT_TRUE(text.ends_with(std::string("\n\n") + row.end)) << row.name << ": " << text;
  }
}

struct ImportCase {
  const char* name;
  const char* text;
  const char* outcome;    ///< the squares of the moves, or "game/ply move: why"
  const char* last = "";  ///< the text of the last entry
};

const ImportCase importCases[] = {
    {"carriage returns, signs, comments, escapes",
     "\xEF\xBB\xBF% none\r\n[Event \"T\"]\r\n\r\n1.e4 $14 {a} e5 ;b\r\n% c\r\n2. Nf3!? *\r\n",
     "e2e4 e7e5 g1f3 ", "Nf3"},
    {"variations", "1. e4 (1. d4 {)} (1. c4 ;)\n) 1. -- x) e5 *", "e2e4 e7e5 ", "e5"},
    {"in passing, castling, in this program's signs",
     "1. e4 d5 2. e5 f5 3. exf6ep e5 4. Nf3 Be7 5. Bd3 Nh6 6. 0-0 *",
     "e2e4 d7d5 e4e5 f7f5 e5f6 e7e5 g1f3 f8e7 f1d3 g8h6 e1g1 ", "0-0"},
    {"mate", "1. f3 e5 2. g4 Qh4# 0-1", "f2f3 e7e5 g2g4 d8h4 ", "Qh4++"},
    {"who gives up on his turn", "1. e4 {Black surrenders} 1-0", "e2e4 e8e8 ", "1-0"},
    {"who gives up after his move leaves a place free", "1. e4 {White surrenders: oh} 0-1",
     "e2e4 `0`0 e1e1 ", "0-1"},
    {"the winner gives nothing up", "1. e4 {Black surrenders} 0-1", "e2e4 `0`0 `0`0 ", "0-1"},
    {"nobody tells how it was drawn", "1. e4 e5 1/2-1/2", "e2e4 e7e5 `0`0 ", "1/2-1/2"},
    {"a result in the tags alone, of which many may be on a line; at the end the text may be cut",
     "[Event \"T\"][X \"\\\\a\\\"]\"] [Result \"1-0\"] 1. e4\n[Event \"T\"]\n[Result \"1-0\"]\n1. "
     "e4",
     "2/0 : It breaks off without a result."},
    {"an offer that nobody heeds", "1. e4 {Black offers a draw} e5 *", "e2e4 e7e5 ", "e5"},
    {"two addresses", "[BlackNA \"a@x.org, b@x.org\"]\n1. e4 *",
     "1/0 : Its BlackNA is not one mail address."},
    {"stalemate", "[FEN \"7k/5K2/8/6Q1/8/8/8/8 w - - 0 1\"]\n1. Qg6 *", "g5g6 ", "Qg6 1/2-1/2"},
    {"no more pieces to win with", "[FEN \"8/8/8/8/8/k1p5/8/K7 w - - 0 1\"]\n1. Kb1 c2+ 2. Kxc2 *",
     "a1b1 c3c2 b1c2 ", "Kxc2 1/2-1/2"},
    {"an illegal move, and a good game behind it", "1. e4 e5 2. Ke3 1-0 1. d4 *",
     "1/3 Ke3: The king can't go to e3."},
    {"a null move", "1. e4 -- 1-0", "1/2 --: It is a null move, and nobody may leave a move out."},
    {"a move behind mate", "1. f3 e5 2. g4 Qh4# 3. a3 0-1",
     "1/5 a3: The game was over: it was mate."},
    {"a result that isn't so", "1. f3 e5 2. g4 Qh4# 1-0",
     "1/0 : Its result is 1-0, and on the board it ended 0-1."},
    {"a game that breaks off", "1. e4 e5 2. N", "1/3 N: That is no move."},
    {"a game without its end", "1. e4 e5", "1/0 : It breaks off without a result."},
    {"castling with a rook that stands at home, after another left its column",
     "1. h4 h6 2. Rh3 g6 3. Ra3 f6 4. Rg3 e6 5. Nc3 d6 6. d4 c6 7. Bf4 b6 8. Qd2 a6 9. O-O-O *",
     "1/17 O-O-O: Castling isn't possible here. Tarvolenix's own rule is that it ends on a side as "
     "soon as any rook has moved away from the a column."},
    {"an open comment ends with its game", "1. e4 {x\n[Event \"next\"]\n1. d4 *",
     "1/2 : A comment isn't closed."},
    {"an open variation", "1. e4 (1. d4 e5 1-0", "1/2 : A variation isn't closed."},
    {"a variation too few", "1. e4 ) e5 1-0", "1/2 : A variation ends that didn't begin."},
    {"Black begins", "[FEN \"4k3/8/8/8/8/8/8/R3K3 b - - 0 1\"]\n1... Kd7 *",
     "1/0 : It is Black's turn, and a game begins with White's move."},
    {"a start that is none", "[FEN \"4k3/8 w - - 0 1\"]\n1. e4 *",
     "1/0 : Its FEN can't be read. The board has 2 rows in place of 8."},
    {"nothing but a result", "[Event \"T\"]\n1-0", "1/0 : It has no move."},
};

TEST(ImportTest, AGameIsTakenOrRefusedByNumberMoveAndReason) {
  for (const ImportCase& row : importCases) {
    SCOPED_TRACE(row.name);
    std::string text = row.text;
    if (text.find("[Event") == std::string::npos) text = "[Event \"T\"]\n" + text;
    text.insert(text.find('['), "[White \"Anna\"]\n");
    const ImportedGames games = Import(text);
    if (!games.refused.empty()) {
      const RefusedGame& refused = games.refused.front();
      EXPECT_EQ(std::to_string(refused.number) + '/' + std::to_string(refused.ply) + ' ' +
                    refused.move + ": " + refused.why,
                row.outcome);
      continue;
    }
    ASSERT_EQ(games.taken.Count(), 1U);
    const TakenGame game(games.taken, 0);
    EXPECT_EQ(SquaresOf(game.moves), row.outcome);
    EXPECT_EQ(game.moves.back().MoveText, row.last);
  }
}

TEST(ImportTest, WhatIsSaidStaysWithItsMoveAndWhoPlaysIsKnown) {
  const std::string address = std::string(243, 'b') + "@example.org";
  const ImportedGames games = Import(
      "[Event \"Caf\xE9 | <<TARVOLENIX:\"]\n[Date \"1992.??.??\"]\n[White \"B\\\"b\"]\n"
      "[Black \"anna\"]\n[WhiteNA \"" +
      address +
      "\"]\n\n{before} 1. e4 {[%clk 1:02] first\r\n "
      "line} 1-0\n[Event \"other\"]\n[Date \"31.12.99\"]\n[White \"X\"]\n[Black \"Y\"]\n1. e4 *");
  ASSERT_EQ(games.taken.Count(), 1U);
  const auto [record, moves] = TakenGame(games.taken, 0);
  std::string line;
  store::AppendGame(line, record);
  EXPECT_EQ(line,
            "1|090320260805|0|Caf\xC3\xA9 / |01/01/1992|" + address + "|B\"b|anna|0|B\"b|4|0|");
  EXPECT_EQ(moves.front().MoveComment, "before first line");
  EXPECT_EQ(games.refused.front().why, "It isn't finished, and neither player is you.");
  const ImportOptions nobody{"", "", "bob@example.org", {}};
  EXPECT_EQ(Import("1. e4 *", nobody).refused.size(), 1U) << "a blank name is nobody's";
}

const char* const unchangedEnds[] = {
    "[Termination \"time forfeit\"]\n\n1. e4 {fast} 1-0\n\n",
    "[Termination \"normal\"]\n\n1. e4 {well} {White surrenders: oh} 0-1\n\n",
    "[Termination \"unterminated\"]\n\n1. e4 {Black offers a draw} *\n\n",
    "[Termination \"time forfeit\"]\n\n1. e4 {[% ]Black offers a draw: no} 1-0\n\n",
    ("[Termination \"normal\"]\n\n{White offers a draw} {Black declines the draw: no} 1. e4 "
     "{Black offers a draw}\n{White accepts the draw} 1/2-1/2\n\n"),
};

TEST(ExchangeTest, WhatCameInGoesOutTheSame) {
  for (const std::string end : unchangedEnds) {
    const ImportedGames games = Import("[White \"Anna\"]\n" + end);
    ASSERT_EQ(games.taken.Count(), 1U) << end << games.refused.front().why;
    const auto [record, moves] = TakenGame(games.taken, 0);
    const std::string text = PgnOfGame(record, moves);
    EXPECT_TRUE(text.ends_with(end)) << end << text;
    const ImportedGames again = Import(platform::ReplaceAll(text, "{[% ]", "{\n[%\n]"));
    EXPECT_EQ(again.taken.Line(0), games.taken.Line(0)) << "as another program lays it out";
  }
}

// Wherever its lines end.
TEST(ExchangeTest, ACommentComesBackAsItWas) {
  store::MoveRecords moves = Entries("e2e4 1-0");
  for (std::size_t length = 1; length < 80; ++length) {
    moves[0].MoveComment = std::string(length, 'a') + " %20b [Event \"T\"] [%clk] " +
                           std::string(66, 'w') + "[%5]" + std::string(20, 'w');
    const std::string text = PgnOfGame(Game("T"), moves, {false, "Anna", ""});
    std::istringstream lines(text.substr(text.find("\n\n") + 2));
    for (std::string line; std::getline(lines, line);) {
      EXPECT_TRUE(line.size() < 80 && !line.starts_with('%') && !line.starts_with('[')) << line;
    }
    const ImportedGames games = Import(text);
    ASSERT_EQ(games.taken.Count(), 1U) << text;
    EXPECT_EQ(TakenGame(games.taken, 0).moves[0].MoveComment, moves[0].MoveComment) << text;
  }
}

struct KnownCase {
  const char* name;
  const char* text;   ///< behind the first White's name
  const char* known;  ///< and what is refused, by numbers
};

constexpr KnownCase knownCases[] = {
    {"as it was stored", "[Black \"Bob\"]\n[Date \"2026.03.08\"]\n1. e4 e5 *", "1 "},
    {"with other words", "[Black \"Bob\"]\n[Date \"2026.03.08\"]\n1. e4 {oh} e5 *", "1 "},
    {"of another day", "[Black \"Bob\"]\n[Date \"2026.03.07\"]\n1. e4 e5 *", ""},
    {"of no day", "[Black \"Bob\"]\n1. e4 e5 *", "1 "},
    {"against another", "[Black \"Rob\"]\n[Date \"2026.03.08\"]\n1. e4 e5 *", ""},
    {"with a move more", "[Black \"Bob\"]\n[Date \"2026.03.08\"]\n1. e4 e5 2. d4 *", ""},
    {"over by now", "[Black \"Bob\"]\n[Date \"2026.03.08\"]\n1. e4 e5 1-0", ""},
    {"a refused one ahead", "1. e5 *\n[Event \"T\"]\n[White \"Anna\"]\n[Black \"Bob\"]\n1. e4 e5 *",
     "r1 2 "},
    {"twice in the file", "1. d4 1-0\n[Event \"T\"]\n[White \"Anna\"]\n1. d4 1-0", "2 "},
};

TEST(ImportTest, AGameThatIsStoredIsLeftOutAlsoWhereItLacksAnAddress) {
  const fakes::FakeDesktop desktop;
  store::GameRecord stored = Game("T");
  stored.GAME_ID = 1;
  stored.GAME_DATE = "08/03/2026";
  stored.GAME_BLACK_NAME = "Bob";
  ASSERT_TRUE(store::SaveGame(stored, Entries("e2e4 e7e5")));
  ImportOptions options = annaImports;
  const std::string anna = "[Event \"T\"]\n[White \"Anna\"]\n";
  for (const std::string opponent : {"bob@example.org", ""}) {
    options.opponent = opponent;
    for (const KnownCase& row : knownCases) {
      SCOPED_TRACE(row.name + opponent);
      ImportedGames games = Import(anna + row.text, options);
      const std::vector<KnownGame> known = KnownGames::Stored(options)->LeaveOutOf(games);
      std::string outcome;
      for (const RefusedGame& refused : games.refused) {
        if (!refused.Lacks()) outcome += 'r' + std::to_string(refused.number) + ' ';
      }
      for (const KnownGame& game : known) outcome += std::to_string(game.number) + ' ';
      EXPECT_EQ(outcome, row.known);
      EXPECT_EQ(games.taken.Count() + games.refused.size() + known.size(),
                static_cast<std::size_t>(games.count));
    }
  }
}

TEST(ImportTest, TheUserSaysWhoHeIsWhereAGameDoesNot) {
  const std::string text = "[White \"X\"]\n[Black \"Y\"]\n[BlackNA \"y@example.org\"]\n1. e4 *";
  ImportOptions options = annaImports;
  const PossibleOpponents both = Import(text, options).refused.front().opponents;
  ASSERT_EQ(both, (PossibleOpponents{{"X", ""}, {"Y", "y@example.org"}}));
  for (const rules::Side side : {rules::White, rules::Black}) {
    options.answers[both] = {"bob@example.org", side};
    const TakenGame game(Import(text, options).taken, 0);
    EXPECT_EQ(game.record.GAME_HOST, side == rules::White);
    EXPECT_EQ(game.record.GAME_OPPONENTS_EMAIL, "bob@example.org");
  }
}

TEST(ImportTest, NestingIsAsDeepAsItLikes) {
  const std::string open(200000, '(');
  const std::string close(200000, ')');
  EXPECT_EQ(Import("[White \"Anna\"]\n1. e4 " + open + "x" + close + " e5 *").taken.Count(), 1U);
  EXPECT_EQ(Import("[White \"Anna\"]\n1. e4 " + open + " e5 *").refused.size(), 1U);
}

/// A game of random moves.
store::MoveRecords RandomGame(std::mt19937& random) {
  BeginGame({});
  Turn turn;
  store::MoveRecords moves;
  while (moves.size() < 120 && EndingAt(turn) == Ending::None) {
    ai::CandidateList list;
    ai::GenerateAllMoves(turn.side, list, turn.lastMove, rules::ThePosition().SideInCheck);
    const ai::CandidateMove& move = list[random() % list.size()];
    const bool promotes = rules::IsPawn(rules::ThePosition().BoardState.At(move.from)) &&
                          move.to.y == rules::HomeRow(rules::OtherSide(turn.side));
    const auto number = static_cast<std::int32_t>(moves.size() + 1);
    moves.push_back({number,
                     std::to_string(NumberOf(move.from)) + std::to_string(NumberOf(move.to)),
                     promotes ? std::string("=") + "RNBQ"[random() % 4] : "x",
                     {}});
    Replay(turn, moves.back(), moves.size());
  }
  return moves;
}

// What another program reads and writes comes in as it went out, over several parts of the text.
TEST(ExchangeTest, GamesGoThroughAnotherProgramAndBack) {
  std::mt19937 random(26);
  const TemporaryFolder folder;
  std::string text;
  std::vector<std::string> expected;
  for (int n = 0; n < 2500; ++n) {
    store::MoveRecords moves = RandomGame(random);
    // Of games that go on, comments stay out.
    if (moves.size() < 120) moves.front().MoveComment = std::string(random() % 200, 'w');
    text += PgnOfGame(Game("game " + std::to_string(n)), moves, {true, "Anna", "a@example.org"});
    expected.push_back(SquaresOf(moves) + moves.front().MoveComment);
  }
  WriteFile(folder / "out.pgn", text);
  const std::string command = "/usr/games/pgn-extract -o " + (folder / "back.pgn") + ' ' +
                              (folder / "out.pgn") + " 2>" + (folder / "said");
  ASSERT_EQ(std::system(command.c_str()), 0);
  const std::string said = ReadFile(folder / "said");
  EXPECT_TRUE(said.ends_with("2500 games matched out of 2500.\n")) << said;
  std::istringstream lines(said);
  for (std::string line; std::getline(lines, line);) {
    EXPECT_TRUE(line.find("Anna - ") < 20 || line.starts_with("Processing ") ||
                line.ends_with("out of 2500."))
        << line;
  }
  for (const std::string& games : {text, ReadFile(folder / "back.pgn")}) {
    const ImportedGames back = Import(games);
    ASSERT_EQ(back.taken.Count(), expected.size()) << back.refused.front().why;
    for (std::size_t i = 0; i < expected.size(); ++i) {
      const store::MoveRecords moves = TakenGame(back.taken, i).moves;
      EXPECT_EQ(SquaresOf(moves) + moves.front().MoveComment, expected[i]) << i;
    }
  }
}

}  // namespace
}  // namespace pgn
