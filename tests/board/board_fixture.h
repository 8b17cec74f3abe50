// SPDX-License-Identifier: GPL-3.0-or-later
// Words for tests of the Board window, and a view that remembers what it was told to show. The
// opponent is always Eva.
//
// A game is told as "Ke1 ke8|e1f1 Kf1#well!, e8e7|guest offline": what stands on the board at the
// start (nothing: the normal start), the entries with their text and comment, the circumstances.
#pragma once

#include <gtest/gtest.h>

#include <array>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "board/controls.h"
#include "board/ends.h"
#include "board/history.h"
#include "board/moving.h"
#include "board/opening.h"
#include "board/saving.h"
#include "board/setup.h"
#include "board/squares.h"
#include "board/timer.h"
#include "fakes/fake_desktop.h"
#include "platform/process_state.h"
#include "platform/setting_variables.h"
#include "rules/rules_fixture.h"
#include "store/queries.h"
#include "store/saving.h"

namespace board {

using platform::GetField;
using platform::Process;
using rules::Square;
using rules::ThePosition;

/// A row of a table: what it is about, the game, and what comes of it.
struct Case {
  const char* name;
  const char* game;
  const char* expected;
};

/// The board text of a position in the words of the rules' tests.
inline std::string BoardText(const std::string& words) {
  const rules::Position kept = ThePosition();
  rules::Place(words);
  return rules::WriteBoardText(std::exchange(ThePosition(), kept).BoardState);
}

inline std::string BoardText() { return rules::WriteBoardText(ThePosition().BoardState); }

/// Carries a piece on the board ("e1g1"), puts one there ("Qd8") or takes one off (".d5").
inline void Change(std::string_view word) {
  if (word.size() == 4) {
    rules::Carry(rules::Sq(word), rules::Sq(word.substr(2)));
  } else if (word.size() == 3) {
    ThePosition().BoardState.Put(rules::Sq(word.substr(1)), rules::CodeOf(word[0]));
  }
}

inline store::MoveRecords Entries(std::string_view list) {
  store::MoveRecords entries;
  for (int n = 1; n <= platform::CountFields(list, ','); ++n) {
    std::string_view entry = GetField(list, n, ',');
    if (entry.starts_with(' ')) entry.remove_prefix(1);
    const std::string_view move = GetField(entry, 1, '#');
    std::string coordinates(move.substr(0, 4));
    for (char& c : coordinates) {
      if (c >= 'a' && c <= 'h') c = static_cast<char>(c - 'a' + '1');
    }
    entries.push_back({n, coordinates, std::string(move.size() > 5 ? move.substr(5) : ""),
                       std::string(GetField(entry, 2, '#'))});
  }
  return entries;
}

/// What the window offers now, as words.
inline std::string Offers(const Game& game) {
  const BoardControls controls = Controls(game);
  std::string offers = ThePosition().MoveAllowed ? "move " : "";
  if (controls.undo) offers += "undo ";
  if (controls.send) offers += "send ";
  if (controls.resend) offers += "resend ";
  if (controls.answerDraw) offers += "answer ";
  if (controls.surrender) offers += "surrender ";
  if (controls.playerComment) offers += "comment ";
  return offers + (controls.closeReadsClose ? "Close" : "Cancel");
}

struct RecordingView : BoardView {
  void ConstructBoard() override {}
  void PaintSquare(Square square, int cell) override { cells.at(IndexOf(square)) = cell; }
  void Refresh() override { offers = Offers(*game); }
  rules::PieceCode ExchangePawn(rules::Side side) override {
    ++asked;
    return rules::OfSide(promotion, side);
  }
  bool AcceptSetupWarnings(const std::string&) override { return acceptsWarnings; }
  bool Visible() const override { return visible; }
  void SetTimerInterval(int) override {}
  void Hide() override {}
  void Close() override { ++closed; }

  const Game* game = nullptr;
  std::array<int, 64> cells{};
  std::string offers;  ///< at the last refresh
  bool acceptsWarnings = true;
  bool visible = true;
  rules::PieceCode promotion = rules::WhiteQueen;
  int asked = 0, closed = 0;
};

struct BoardTest : ::testing::Test {
  fakes::FakeDesktop desktop;
  std::optional<RecordingView> view;
  std::optional<Game> game;

  BoardTest() { platform::Settings().Verbose = true; }

  /// Makes this the only game of the store, and its circumstances the present ones.
  void StoreGame(const std::string& told, std::int16_t status = store::MoveWaiting) {
    const std::string start(GetField(told, 1, '|'));
    const auto isSo = [&](const char* word) {
      return GetField(told, 3, '|').find(word) != std::string::npos;
    };
    Process().Offline = isSo("offline");
    Process().StandAlone = isSo("files");
    const bool host = !isSo("guest");
    store::GameRecord record{1,
                             "010220261530",
                             0,
                             "Friendly",
                             "01/02/2026",
                             "eva@example.org",
                             host ? "" : "Eva",
                             host ? "Eva" : "Max",
                             host,
                             "Eva",
                             status,
                             isSo("computer"),
                             start.empty() ? "" : BoardText(start)};
    desktop.files.content.clear();
    ASSERT_TRUE(store::SaveGame(record, Entries(GetField(told, 2, '|'))));
  }

  void Open(std::int32_t gameID = 1) {
    Process().CurrentGameID = gameID;
    game.reset();
    view.emplace();
    game.emplace(*view);
    view->game = &*game;
    Form_Load(*game);
  }

  /// Begins a new game from a position that was set up.
  void OpenSetup(const std::string& words) {
    Process().SetupGame = true;
    Open(-1);
    rules::Place(words);
    ThePosition().SideToMove = rules::White;
    BeginGame(*game);
  }

  void OpenGame(const std::string& told) {
    StoreGame(told);
    Open();
  }

  /// Drags a piece, told as "e2e4".
  void Play(const std::string& move) {
    const rules::LastMove squares = rules::Move(move);
    ASSERT_TRUE(CBoard_MouseDown(*game, squares.from)) << move;
    CBoard_DragDrop(*game, squares.to, squares.from);
  }

  /// The castle flags, White's first.
  static std::string Flags() {
    std::string text;
    for (const int element : {0, 2, 4, 1, 3, 5})
      text += ThePosition().CastleState[element] ? '1' : '0';
    return text;
  }

  /// The messages since the last call, each as "title: text".
  std::string Told() {
    std::string told;
    for (const platform::Message& message : std::exchange(desktop.boxes.messages, {})) {
      told += message.title + ": " + message.text;
    }
    return told;
  }

  void Tick(int times = 3) {
    for (int n = 0; n < times; ++n) CheckTimer(*game);
  }

  std::string GameFile() { return desktop.files.content["/program/Data/Tvgdb.dat"]; }

  static int StoredStatus() {
    store::GameRecords games;
    return store::SelectGames(games, "Game_ID;1") ? games.at(0).GAME_STATUS : -1;
  }

  void ExpectWindowIsUpToDate() {
    EXPECT_EQ(view->offers, Offers(*game));
    ExpectPictureIsUpToDate();
  }

  void ExpectPictureIsUpToDate() {
    for (int i = 0; i < 64; ++i) {
      const Square square = rules::SquareAt(i);
      EXPECT_EQ(view->cells[i], SquareCell(*game, square)) << rules::NameOf(square);
    }
  }
};

}  // namespace board
