// SPDX-License-Identifier: GPL-3.0-or-later
// Lines of a game file that others have written or a disk has damaged. What can be read is written
// so that it reads the same, and can be opened on the board, looked through and closed, which
// leaves its moves as they were.
#include "board/board_fixture.h"
#include "fuzz/fuzz.h"
#include "store/game_file.h"

namespace {

struct StoredGame {
  store::GameRecord record;
  store::MoveRecords moves;

  explicit StoredGame(std::string_view line) : moves(store::ReadMoves(line)) {
    store::ReadGameLine(line, record);
  }

  std::string Line() const {
    std::string line;
    store::AppendGame(line, record);
    for (const store::MoveRecord& move : moves) store::AppendMove(line, move);
    return line;
  }
};

void Open(const StoredGame& game) {
  fakes::FakeDesktop desktop;
  std::string& file = desktop.files.content[store::GameFilePath()];
  file = game.Line() + "\r\n";
  platform::Process().CurrentGameID = game.record.GAME_ID;
  board::RecordingView view;
  board::Game board(view);
  view.game = &board;
  board::Form_Load(board);
  Require(board.UnloadPending || board.Moves.Count() == static_cast<int>(game.moves.size()));
  for (const int row : {board.Moves.Count() / 2, 0, board.Moves.Count()}) {
    board::MoveList_RowColChange(board, row);
  }
  board::CheckTimer(board);
  board::Form_Unload(board);
  Require(store::MovesText(file) == store::MovesText(game.Line() + "\r\n"));
}

}  // namespace

void TryInput(std::string_view input) {
  const std::string_view line = store::LineWalk(input).Next().value_or("");
  try {
    const StoredGame game(line);
    Require(StoredGame(game.Line()).Line() == game.Line());
    Open(game);
  } catch (const std::invalid_argument&) {
    // damaged
  }
}
