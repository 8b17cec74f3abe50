// SPDX-License-Identifier: GPL-3.0-or-later
// Words for tests of the game store: lines of the game file, and files that fail or die on the way.
#pragma once

#include <gtest/gtest.h>

#include <functional>
#include <string>

#include "fakes/fake_desktop.h"
#include "platform/process_state.h"
#include "store/queries.h"
#include "store/repair.h"
#include "store/saving.h"

namespace store {

inline std::string Line(const GameRecord& g) {
  return std::to_string(g.GAME_ID) + "|" + g.GAME_DATESTAMP + "|" +
         std::to_string(g.GAME_OPPONENTS_ID) + "|" + g.GAME_NAME + "|" + g.GAME_DATE + "|" +
         g.GAME_OPPONENTS_EMAIL + "|" + g.GAME_WHITE_NAME + "|" + g.GAME_BLACK_NAME + "|" +
         (g.GAME_HOST ? "-1" : "0") + "|" + g.GAME_OPPONENTS_NAME + "|" +
         std::to_string(g.GAME_STATUS) + "|" + (g.GAME_VS_COMPUTER ? "-1" : "0") + "|" +
         g.GAME_START_BOARD;
}

inline GameRecord Game(std::int32_t id, std::int16_t status = WaitingForOpponent) {
  return {id, "090320260805", 7,    "Caf\xE9 match", "09/03/2026", "eva@example.org",
          "", "Eva L.",       true, "Eva",           status,       false,
          ""};
}

/// Moves first to last, told apart by the letter in their text: `Moves('s', 1, 2)` are s1 and s2.
inline MoveRecords Moves(char letter, int first, int last) {
  MoveRecords moves;
  for (int n = first; n <= last; ++n) {
    moves.push_back({n, "5254", letter + std::to_string(n), n % 2 == 0 ? "well!" : ""});
  }
  return moves;
}

inline std::string Text(const MoveRecords& moves) {
  std::string text;
  for (const MoveRecord& move : moves) {
    text.append("|").append(std::to_string(move.MoveNumber));
    text.append("|").append(move.MoveCoordinates).append("|").append(move.MoveText);
    text.append("|").append(move.MoveComment);
  }
  return text;
}

inline std::string DataFile(const std::string& name) { return platform::Process().DataPath + name; }

struct StoreTest : ::testing::Test {
  fakes::FakeDesktop desktop;

  void SetGameFile(const std::string& text) { desktop.files.content[DataFile("Tvgdb.dat")] = text; }

  std::string FileText(const std::string& name) {
    const auto found = desktop.files.content.find(DataFile(name));
    return found == desktop.files.content.end() ? "no file" : found->second;
  }
};

enum class Moment { Before, Midway, After };
constexpr Moment moments[] = {Moment::Before, Moment::Midway, Moment::After};

/// Passes operations on, and at one of them has an accident: before it, after it, or with half of a
/// file written. Questions whether a file exists don't count.
class AccidentFiles : public platform::Files {
 public:
  AccidentFiles(platform::Files& files, int operation, Moment moment,
                std::function<void()> accident)
      : files_(files), operation_(operation), moment_(moment), accident_(std::move(accident)) {}

  bool Exists(const std::string& path) override { return files_.Exists(path); }
  std::string Read(const std::string& path) override {
    std::string content;
    Run([&] { content = files_.Read(path); });
    return content;
  }
  std::string Stamp(const std::string& path) override { return files_.Stamp(path); }
  void Write(const std::string& path, std::string_view content) override {
    Run([&] { files_.Write(path, content); },
        [&] { files_.Write(path, content.substr(0, content.size() / 2)); });
  }
  void Rename(const std::string& from, const std::string& to) override {
    Run([&] { files_.Rename(from, to); });
  }
  void Remove(const std::string& path) override {
    Run([&] { files_.Remove(path); });
  }
  std::vector<std::string> List(const std::string& folder) override { return files_.List(folder); }
  std::unique_ptr<platform::HeldLock> Lock(const std::string& path) override {
    return files_.Lock(path);
  }
  std::unique_ptr<platform::HeldLock> TryLock(const std::string& path) override {
    return files_.TryLock(path);
  }
  void MakeFolder(const std::string& path) override { files_.MakeFolder(path); }

  bool happened = false;

 private:
  void Run(const std::function<void()>& all, const std::function<void()>& half = {}) {
    const bool due = ++operations_ == operation_;
    if (due && moment_ == Moment::Midway && half) half();
    if (due && moment_ != Moment::After) Accident();
    all();
    if (due) Accident();
  }
  void Accident() {
    happened = true;
    accident_();
  }

  platform::Files& files_;
  int operation_;
  Moment moment_;
  std::function<void()> accident_;
  int operations_ = 0;
};

/// A change of the game file with its content before and after.
struct Change {
  const char* name;
  std::string before;  ///< "no file" where there is none
  std::string after;
  std::function<bool()> make;
};

inline std::vector<Change> AllChanges() {
  const std::string one = Line(Game(1)) + Text(Moves('s', 1, 3)) + "\r\n";
  const std::string two = Line(Game(2)) + "\r\n";
  const std::string longer = Line(Game(1)) + Text(Moves('s', 1, 3)) + Text(Moves('p', 4, 4));
  const auto save = [](int move) {
    return [move] {
      GameRecord game = Game(1);
      return SaveGame(game, Moves('p', move, move));
    };
  };
  return {{"a move is saved", one + two, two + longer + "\r\n", save(4)},
          {"the first game ever is saved", "no file",
           Line(Game(1)) + Text(Moves('p', 1, 1)) + "\r\n", save(1)},
          {"the last game is removed", one, "", [] { return RemoveGame(1); }},
          {"a damaged file is repaired", one + "rubbish\r\n" + two, one + two,
           [] { return Repair(false).failure.empty(); }}};
}

}  // namespace store
