// SPDX-License-Identifier: GPL-3.0-or-later
// The store over real files: the process is killed, the disk is full, the folder is read-only.
#include <sched.h>
#include <sys/mount.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <cstdlib>
#include <filesystem>

#include "desktop/posix_files.h"
#include "platform/seams.h"
#include "store/database_lock.h"
#include "store/store_fixture.h"

namespace store {
namespace {

struct RealFilesTest : StoreTest {
  RealFilesTest() {
    std::string pattern = ::testing::TempDir() + "store_XXXXXX";
    folder = mkdtemp(pattern.data());
    platform::Process().DataPath = folder + "/";
    platform::TheSeams().files = &files;
  }
  ~RealFilesTest() override {
    chmod(folder.c_str(), 0755);
    std::filesystem::remove_all(folder);
  }

  std::string Content() {
    const std::string path = DataFile("Tvgdb.dat");
    return files.Exists(path) ? files.Read(path) : "no file";
  }

  desktop::PosixFiles files;
  std::string folder;
};

constexpr int killed = -1;

/// Runs `work` in a process of its own; its result, below 256, or that it was killed.
int InChild(const std::function<int()>& work) {
  const pid_t child = fork();
  if (child == 0) _exit(work());
  int status = 0;
  EXPECT_EQ(waitpid(child, &status, 0), child);
  return WIFSIGNALED(status) ? killed : WEXITSTATUS(status);
}

TEST_F(RealFilesTest, AProcessKilledAnywhereLeavesTheOldFileOrTheNewOne) {
  for (const Change& change : AllChanges()) {
    int kills = 0;
    for (const Moment moment : moments) {
      for (int operation = 1;; ++operation) {
        SCOPED_TRACE(std::string(change.name) + ", operation " + std::to_string(operation));
        std::filesystem::remove(DataFile("Tvgdb.dat"));
        if (change.before != "no file") files.Write(DataFile("Tvgdb.dat"), change.before);
        const int result = InChild([&] {
          AccidentFiles accident(files, operation, moment, [] { raise(SIGKILL); });
          platform::TheSeams().files = &accident;
          return change.make() ? 0 : 1;
        });
        const std::string now = Content();
        if (now != change.after) {
          EXPECT_EQ(now, change.before);
        }
        if (result != killed) {
          EXPECT_TRUE(result == 0 && now == change.after);
          break;
        }
        ++kills;
        EXPECT_TRUE(change.make()) << "what a crash left behind is in nobody's way";
      }
    }
    EXPECT_GE(kills, 6);
  }
}

// The console beside the window: each founds games, and each looks at the file before it does.
TEST_F(RealFilesTest, ProcessesThatSaveAtTheSameTimeLoseNothing) {
  constexpr int processes = 4;
  constexpr int gamesEach = 15;
  const auto foundGames = [] {
    for (int i = 0; i < gamesEach; ++i) {
      const DatabaseLock lock;
      GameRecord game = Game(NextGameID().value());
      if (!SaveGame(game, Moves('p', 1, 1))) return 1;
    }
    return 0;
  };
  for (int i = 0; i < processes; ++i) {
    if (fork() == 0) _exit(foundGames());
  }
  for (int i = 0; i < processes; ++i) {
    int status = 0;
    EXPECT_GT(wait(&status), 0);
    EXPECT_EQ(status, 0);
  }
  GameRecords games;
  ASSERT_TRUE(SelectGames(games, {}, "Game_ID;A"));
  ASSERT_EQ(games.size(), std::size_t{processes * gamesEach});
  EXPECT_EQ(games.back().GAME_ID, processes * gamesEach);
}

/// A disk of 64 kB in place of the folder where this process may mount one, else files of 64 kB.
void MakeDiskSmall(const std::string& folder) {
  if (unshare(CLONE_NEWNS) == 0 &&
      mount(nullptr, "/", nullptr, MS_REC | MS_PRIVATE, nullptr) == 0 &&
      mount("tmpfs", folder.c_str(), "tmpfs", 0, "size=64k") == 0) {
    return;
  }
  signal(SIGXFSZ, SIG_IGN);
  const rlimit limit{65536, 65536};
  setrlimit(RLIMIT_FSIZE, &limit);
}

TEST_F(RealFilesTest, AFullDiskCostsTheChangeAndNothingElse) {
  enum { Kept, Lost, NeverFull };
  EXPECT_EQ(InChild([&]() -> int {
              MakeDiskSmall(folder);
              for (int id = 1; id < 100; ++id) {
                const std::string before = Content();
                GameRecord game = Game(id);
                if (SaveGame(game, Moves('p', 1, 200))) continue;
                const bool kept =
                    id > 3 && Content() == before && !files.Exists(DataFile("tvgdb.new"));
                return kept ? Kept : Lost;
              }
              return NeverFull;
            }),
            Kept);
}

TEST_F(RealFilesTest, ALinkToADriveThatIsGoneFailsEverythingAndFoundsNoFile) {
  std::filesystem::create_symlink("/no such drive/Tvgdb.dat", DataFile("Tvgdb.dat"));
  files.Write(DataFile("tvgdb.bak"), "an earlier state");
  GameRecord game = Game(1);
  GameRecords games;
  EXPECT_FALSE(SaveGame(game, Moves('p', 1, 1)) || RemoveGame(1) || BackupDatabase() ||
               SelectGames(games, "") || ExamineGameFile().unreadable.empty());
  EXPECT_TRUE(std::filesystem::is_symlink(DataFile("Tvgdb.dat")));
}

TEST_F(RealFilesTest, AFolderThatCantBeWrittenFailsEveryChangeAndNoQuery) {
  const std::string before = Line(Game(1)) + Text(Moves('s', 1, 3)) + "\r\n";
  files.Write(DataFile("Tvgdb.dat"), before);
  files.Write(DataFile("tvgdb.bak"), "an earlier state");
  chmod(folder.c_str(), 0555);
  const int result = InChild([] {
    if (geteuid() == 0 && setuid(65534) != 0) return 99;
    GameRecord game = Game(1);
    MoveRecords moves;
    if (SaveGame(game, Moves('p', 4, 4))) return 1;
    if (RemoveGame(1)) return 2;
    if (BackupDatabase()) return 3;
    RestoreDatabase();
    return SelectMoves(moves, 1) && moves.size() == 3 ? 0 : 4;
  });
  EXPECT_EQ(result, 0);
  EXPECT_EQ(Content(), before);
}

}  // namespace
}  // namespace store
