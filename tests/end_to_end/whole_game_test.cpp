// SPDX-License-Identifier: GPL-3.0-or-later
// A whole game between two players, each with a program folder and settings of his own, played
// through the real program: every turn starts it, moves with the mouse on the board that opens,
// sends with the button, and stops it.
#include <QApplication>
#include <QProcess>
#include <QPushButton>
#include <QTest>
#include <QTimer>
#include <gtest/gtest.h>
#include <stdlib.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <functional>
#include <memory>
#include <string>

#include "app/program.h"
#include "board/controls.h"
#include "rules/position.h"
#include "store/queries.h"
#include "ui/board/board_window.h"
#include "ui/games/game_interface.h"

namespace {

namespace fs = std::filesystem;

class Application : public testing::Environment {
 public:
  void SetUp() override {
    static char name[] = "end_to_end_test";
    static char* arguments[] = {name, nullptr};
    static int count = 1;
    application_ = std::make_unique<QApplication>(count, arguments);
  }
  void TearDown() override { application_.reset(); }

 private:
  std::unique_ptr<QApplication> application_;
};

[[maybe_unused]] const auto* const environment = testing::AddGlobalTestEnvironment(new Application);

/// What a player does in his turn beside the move itself.
enum class Extra { None, RefusedMove, Undo, Comment };

struct Turn {
  const char* text;  ///< as the move list must show it
  int from;
  int to;
  Extra extra = Extra::None;
};

constexpr const char* comment = "Schöne Grüße – <b>viel</b> Glück; & bis bald!";

// White's first move founds the game; the others are played in turn, Black first. En passant, a
// promotion, castling on both sides and a mate are among them.
constexpr Turn turns[] = {
    {"a6", 17, 16},
    {"e5", 54, 55},
    {"d5", 47, 45},
    {"exd6ep", 55, 46},
    {"e6", 57, 56, Extra::Comment},
    {"dxc7", 46, 37, Extra::RefusedMove},
    {"Nf6", 78, 66, Extra::Undo},
    {"cxb8=N", 37, 28},
    {"Rxb8", 18, 28},
    {"Nf3", 71, 63},
    {"Bd6", 68, 46},
    {"Bd3", 61, 43},
    {"0-0", 58, 78},
    {"0-0", 51, 71},
    {"b5", 27, 25},
    {"Ng5", 63, 75},
    {"b4", 25, 24},
    {"Bxh7+", 43, 87},
    {"Nxh7", 66, 87},
    {"Qh5", 41, 85},
    {"b3", 24, 23},
    {"Qxh7++", 85, 87},
};

/// Runs `work` on the dialog that is up next.
void OnNextDialog(std::function<void(QWidget& dialog)> work) {
  QTimer::singleShot(0, qApp, [work = std::move(work)] {
    QWidget* dialog = QApplication::activeModalWidget();
    ASSERT_NE(dialog, nullptr) << "no dialog came up";
    work(*dialog);
  });
}

void Drag(ui::BoardWindow& board, int from, int to) {
  auto* picture = const_cast<ui::BoardPicture*>(&board.Picture());
  const auto centre = [&](int square) {
    return picture->RectOf(rules::FromNumber(square)).center().toPoint();
  };
  QTest::mousePress(picture, Qt::LeftButton, {}, centre(from));
  QTest::mouseMove(picture, (centre(from) + centre(to)) / 2);
  QTest::mouseMove(picture, centre(to));
  QTest::mouseRelease(picture, Qt::LeftButton, {}, centre(to));
}

/// With the mouse; the button has to be there and enabled.
void Click(ui::BoardWindow& board, int button) {
  auto* widget = board.findChild<QPushButton*>(QStringLiteral("Toolbar1S_%1").arg(button));
  ASSERT_NE(widget, nullptr);
  ASSERT_TRUE(widget->isEnabled()) << "button " << button;
  QTest::mouseClick(widget, Qt::LeftButton);
  QApplication::processEvents();
}

/// What waits for a move comes first in the list, and is selected.
ui::BoardWindow* OpenSelected(app::Program& program) {
  program.Windows().GameList()->PlayCurrentGame();
  return program.Windows().OpenedBoard();
}

std::string LastText(const ui::BoardWindow& board) { return board.Logic().Moves.Last().MoveText; }

void TryRefusedMove(ui::BoardWindow& board) {
  OnNextDialog([](QWidget& dialog) { QTest::keyClick(&dialog, Qt::Key_Escape); });
  const int entries = board.Logic().Moves.Count();
  Drag(board, 51, 53);
  EXPECT_EQ(board.Logic().Moves.Count(), entries);
}

void MoveAndUndo(ui::BoardWindow& board) {
  const int entries = board.Logic().Moves.Count();
  Drag(board, 28, 36);
  EXPECT_EQ(LastText(board), "Nc6");
  Click(board, board::UndoButton);
  EXPECT_EQ(board.Logic().Moves.Count(), entries);
}

void TypeComment(ui::BoardWindow& board) {
  auto* box = board.findChild<QWidget*>(QStringLiteral("PlayerComment"));
  ASSERT_NE(box, nullptr);
  box->setFocus();
  for (const QChar c : QString::fromUtf8(comment))
    QTest::sendKeyEvent(QTest::Click, box, Qt::Key_unknown, QString(c), {});
}

/// One turn on the board, up to the move on its way.
void Play(const Turn& turn, ui::BoardWindow& board) {
  if (turn.extra == Extra::RefusedMove) TryRefusedMove(board);
  if (turn.extra == Extra::Undo) MoveAndUndo(board);
  if (turn.extra == Extra::Comment) TypeComment(board);
  if (std::string_view(turn.text).find('=') != std::string_view::npos) {
    OnNextDialog([](QWidget& dialog) {
      QTest::mouseClick(dialog.findChild<QWidget*>(QStringLiteral("PieceButton1")), Qt::LeftButton);
    });
  }
  Drag(board, turn.from, turn.to);
  ASSERT_EQ(LastText(board), turn.text);
  Click(board, board::SendButton);
}

class WholeGameTest : public testing::Test {
 protected:
  using Deliver = std::function<void(const std::string& from, const std::string& to)>;

  WholeGameTest() {
    std::string pattern = (fs::temp_directory_path() / "tarvolenix-game-XXXXXX").string();
    root_ = mkdtemp(pattern.data());
    for (const std::string player : {"anna", "bob"}) MakePlayer(player);
  }
  ~WholeGameTest() override { fs::remove_all(root_); }

  void MakePlayer(const std::string& player, const char* splash = "False") const {
    fs::create_directories(root_ / player / "Data");
    fs::create_directory_symlink(TARVOLENIX_GRAPHICS, root_ / player / "Graphics");
    fs::create_directory_symlink(TARVOLENIX_SKINS, root_ / player / "UI Graphics");
    std::ofstream(root_ / player / "Tarvolenix.conf")
        << "DisplaySplash=" << splash
        << "\nSimpleUI=True\nSystrayStartup=False\nRunBefore=True\n"
           "Verbose=True\nCheckInterval=20000\n[Mail]\nMyName="
        << player << "\nMailKind=Post\nMyAddress=" << player
        << "@example.org\nPostFolder=" << (root_ / "post").string() << "/\n";
  }

  /// Runs the console companion; answers its exit code.
  int Console(const std::string& player, const std::string& arguments) const {
    const std::string command = std::string(TARVOLENIX_CLI) + " --folder '" +
                                (root_ / player).string() + "' " + arguments + " > /dev/null";
    return std::system(command.c_str());
  }

  /// Anna's first move.
  void FoundGame(const std::string& more) const {
    ASSERT_EQ(Console("anna",
                      "new --name 'Autumn; \"$HOME\" ../<i>' --opponent bob --email "
                      "bob@example.org --move 5254 " +
                          more),
              0);
  }

  std::unique_ptr<app::Program> Start(const std::string& player, const std::string& commandLine) {
    auto program = std::make_unique<app::Program>(desktop::FoldersFor(root_ / player),
                                                  "-nosound " + commandLine);
    EXPECT_TRUE(program->Start());
    return program;
  }

  /// Plays all turns; `deliver` carries what a player has sent to the other one. Bob sees at the
  /// end who has won.
  void PlayGame(const std::string& commandLine, const Deliver& deliver, const std::string& winner) {
    std::string player = "bob";
    std::string other = "anna";
    deliver("anna", "bob");
    for (const Turn& turn : turns) {
      SCOPED_TRACE(player + " plays " + turn.text);
      const auto program = Start(player, commandLine);
      ui::BoardWindow* board = OpenSelected(*program);
      ASSERT_NE(board, nullptr) << "no game waits";
      Play(turn, *board);
      if (HasFatalFailure()) return;
      QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
      EXPECT_EQ(program->Windows().OpenedBoard(), nullptr);
      EXPECT_TRUE(program->Windows().GameList()->isVisible());
      program->Stop();
      deliver(player, other);
      std::swap(player, other);
    }
    const auto program = Start("bob", commandLine);
    const ui::BoardWindow* board = OpenSelected(*program);
    ASSERT_NE(board, nullptr);
    EXPECT_EQ(board->windowTitle().toStdString(), "Tarvolenix - CHECKMATE! - " + winner + " won.");
    program->Stop();
  }

  struct Stored {
    store::GameRecord record;
    store::MoveRecords moves;
  };
  Stored GameOf(const std::string& player) {
    const auto program = Start(player, "-nonetwork");
    store::GameRecords games;
    Stored stored;
    EXPECT_TRUE(store::SelectGames(games, ""));
    EXPECT_EQ(games.size(), 1U);
    if (!games.empty()) {
      stored.record = games.front();
      EXPECT_TRUE(store::SelectMoves(stored.moves, stored.record.GAME_ID));
    }
    return stored;
  }

  /// Both copies hold the same game, ended the same way.
  void ExpectTheSameEnd() {
    const Stored anna = GameOf("anna");
    const Stored bob = GameOf("bob");
    EXPECT_EQ(anna.record.GAME_STATUS, store::GameWon);
    EXPECT_EQ(bob.record.GAME_STATUS, store::GameLost);
    EXPECT_EQ(anna.record.GAME_DATESTAMP, bob.record.GAME_DATESTAMP);
    EXPECT_EQ(anna.record.GAME_START_BOARD, bob.record.GAME_START_BOARD);
    EXPECT_EQ(anna.record.GAME_NAME, bob.record.GAME_NAME);
    EXPECT_EQ(anna.record.GAME_OPPONENTS_ID, bob.record.GAME_ID);
    EXPECT_EQ(bob.record.GAME_OPPONENTS_ID, anna.record.GAME_ID);
    ASSERT_EQ(anna.moves.size(), std::size(turns) + 1);
    ASSERT_EQ(bob.moves.size(), anna.moves.size());
    for (std::size_t i = 0; i < anna.moves.size(); ++i) {
      EXPECT_EQ(anna.moves[i].MoveCoordinates, bob.moves[i].MoveCoordinates);
      EXPECT_EQ(anna.moves[i].MoveText, bob.moves[i].MoveText);
      EXPECT_EQ(anna.moves[i].MoveComment, bob.moves[i].MoveComment);
    }
    EXPECT_EQ(anna.moves[5].MoveComment, comment);
  }

  fs::path root_;
};

TEST_F(WholeGameTest, ByMail) {
  FoundGame("--send");
  PlayGame(
      "", [](const std::string&, const std::string&) {}, "anna");
  if (!HasFatalFailure()) ExpectTheSameEnd();
}

TEST_F(WholeGameTest, ByMoveFiles) {
  FoundGame("");
  ASSERT_EQ(Console("anna", "export 1"), 0);
  const auto carry = [this](const std::string& from, const std::string& to) {
    const fs::path file = root_ / from / "Data/Cmove1.txt";
    ASSERT_TRUE(fs::exists(file)) << "nothing was sent";
    fs::rename(file, root_ / to / "Data/Cmove1.txt");
  };
  PlayGame("-testingmode -nonetwork", carry, "Unknown");
  if (!HasFatalFailure()) ExpectTheSameEnd();
}

// The executable shows its picture, and holds the mark of the only instance, before most of the
// program is there.
TEST_F(WholeGameTest, TheProgramThatHasJustBegunTakesTheFileOfTheNextStart) {
  FoundGame("");
  ASSERT_EQ(Console("anna", "export 1"), 0);
  MakePlayer("carl", "True");
  const fs::path executable = root_ / "carl/tarvolenix";
  fs::copy_file(TARVOLENIX_PROGRAM, executable);
  QProcessEnvironment desktop = QProcessEnvironment::systemEnvironment();
  desktop.insert(QStringLiteral("XDG_RUNTIME_DIR"), QString::fromStdString(root_));
  desktop.insert(QStringLiteral("DBUS_SESSION_BUS_ADDRESS"), QStringLiteral("disabled:"));
  QProcess first, second;
  for (QProcess* process : {&first, &second}) process->setProcessEnvironment(desktop);
  first.start(QString::fromStdString(executable), {QStringLiteral("-nosound")});
  const auto isMarked = [this] {
    return std::any_of(fs::directory_iterator(root_), {}, [](const fs::directory_entry& entry) {
      return entry.path().extension() == ".lock";
    });
  };
  ASSERT_TRUE(QTest::qWaitFor(isMarked, 20'000));
  second.start(
      QString::fromStdString(executable),
      {QStringLiteral("-nosound"), QString::fromStdString(root_ / "anna/Data/Cmove1.txt")});
  EXPECT_TRUE(second.waitForFinished(20'000)) << "it asks its user";
  EXPECT_EQ(second.exitCode(), 0);
  EXPECT_EQ(first.state(), QProcess::Running);
  first.terminate();
  EXPECT_TRUE(first.waitForFinished(20'000));
  EXPECT_EQ(first.exitStatus(), QProcess::NormalExit);
  second.kill();
  second.waitForFinished();
}

// The opponent says that nothing came: the move goes out again, and whoever got both has it once.
TEST_F(WholeGameTest, AResentMoveArrivesOnce) {
  FoundGame("--send");
  {
    const auto program = Start("anna", "");
    Click(*OpenSelected(*program), board::ResendButton);
    program->Stop();
  }
  EXPECT_EQ(std::distance(fs::directory_iterator(root_ / "post/bob@example.org/new"), {}), 2);
  {
    const auto program = Start("bob", "");
    const ui::BoardWindow* board = OpenSelected(*program);
    ASSERT_NE(board, nullptr);
    EXPECT_EQ(board->Logic().Moves.Count(), 1);
    program->Stop();
  }
  EXPECT_TRUE(fs::is_empty(root_ / "post/bob@example.org/new"));
  EXPECT_TRUE(fs::is_empty(root_ / "post/bob@example.org/cur"));
}

}  // namespace
