// SPDX-License-Identifier: GPL-3.0-or-later
// The verbs that exchange games with other chess programs.
#include <algorithm>
#include <chrono>
#include <fstream>
#include <iostream>
#include <limits>

#include "cli/game_argument.h"
#include "cli/verbs.h"
#include "pgn/export.h"
#include "pgn/import.h"
#include "pgn/known_games.h"
#include "platform/mail_address.h"
#include "platform/seams.h"
#include "platform/settings_store.h"
#include "post/accounts/mail_account.h"
#include "store/queries.h"
#include "study/imported_notes.h"

namespace cli {
namespace {

/// Games go out and come in without an account, too.
post::MailAccount Account() {
  try {
    return post::LoadMailAccount();
  } catch (const platform::SettingsError&) {
    return {};
  }
}

std::vector<std::int32_t> GameNumbers(const Arguments& arguments) {
  std::vector<std::int32_t> numbers;
  for (std::size_t i = 0; i < arguments.Others().size(); ++i) {
    numbers.push_back(GameArgument(arguments, i).GAME_ID);
  }
  return numbers;
}

/// A file's name, and what was read of it.
struct ReadFile {
  std::string name;
  pgn::ImportedGames games;
  std::vector<pgn::KnownGame> known = {};  ///< those that were there before
  std::optional<std::int32_t> first = {};  ///< the number of the first one that was taken
  bool areNotesKept = false;
};

template <typename Read>
ReadFile ReadGamesOf(const std::string& name, const Read& read) {
  std::ifstream text(name, std::ios::binary);
  if (text) text.peek();  // of a folder only reading tells that it is none
  if (text.bad() || !text.is_open()) throw Refusal("The file " + name + " can't be read.");
  text.clear();
  ReadFile file{name, read(text)};
  if (text.bad()) throw Refusal("The file " + name + " can't be read to its end.");
  return file;
}

int GoodGames(const ReadFile& file) {
  return file.games.count - static_cast<int>(file.games.refused.size());
}

void PrintGames(const ReadFile& file) {
  auto refused = file.games.refused.begin();
  auto note = file.games.notes.begin();
  auto next = file.first;
  for (int number = 1; number <= file.games.count; ++number) {
    JsonObject answer;
    answer.Add("file", file.name).Add("number", number);
    if (refused != file.games.refused.end() && refused->number == number) {
      answer.Add("ok", false).Add("ply", refused->ply).Add("move", refused->move);
      answer.Add("why", refused->why);
      ++refused;
    } else if (std::ranges::binary_search(file.known, number, {}, &pgn::KnownGame::number)) {
      answer.Add("ok", true).Add("why", "already there");
    } else {
      answer.Add("ok", true).Add("game", next);
      if (next) ++*next;
      if (note != file.games.notes.end() && note->number == number) {
        answer.Add("why", file.areNotesKept ? "its comments are in your private note"
                                            : "taken without its comments");
      }
    }
    if (note != file.games.notes.end() && note->number == number) ++note;
    std::cout << answer.Text() << '\n';
  }
  std::cout.flush();
}

/// True where there were games, and all were taken.
bool PrintAll(const std::vector<ReadFile>& files) {
  int count = 0;
  int good = 0;
  bool allHoldGames = true;
  for (const ReadFile& file : files) {
    PrintGames(file);
    count += file.games.count;
    good += GoodGames(file);
    if (file.games.count > 0) continue;
    std::cerr << "There is no game in " << file.name << ".\n";
    allHoldGames = false;
  }
  if (good == count) return allHoldGames;
  std::cerr << count - good << " of " << count << " games were refused.\n";
  return false;
}

bool CheckGames(const std::vector<std::string>& names) {
  const auto begin = std::chrono::steady_clock::now();
  std::vector<ReadFile> files;
  files.reserve(names.size());
  for (const std::string& name : names) files.push_back(ReadGamesOf(name, pgn::CheckGames));
  const std::chrono::duration<double> seconds = std::chrono::steady_clock::now() - begin;
  const bool allGood = PrintAll(files);
  int count = 0;
  int good = 0;
  for (const ReadFile& file : files) {
    count += file.games.count;
    good += GoodGames(file);
  }
  JsonObject().Add("games", count).Add("good", good).Add("seconds", seconds.count()).Print();
  return allGood;
}

pgn::ImportOptions OptionsOf(const Arguments& arguments) {
  const post::MailAccount account = Account();
  const std::string opponent = arguments.Value("--opponent");
  const std::string why = arguments.Has("--opponent") ? pgn::WhyNoAddress(opponent) : std::string();
  if (!why.empty()) throw Refusal("The text of --opponent " + why + ".");
  return {account.MyName, account.MyAddress, opponent, platform::TheSeams().clock->Now()};
}

/// What is wrong with the game file says more than `why` saving failed.
Refusal SavingRefusal(const std::string& why) {
  const std::string sentence = "The games can't be saved.";
  const Refusal refusal = GameFileRefusal(sentence);
  return refusal.what() == sentence ? Refusal(sentence + " The cause: " + why + ".") : refusal;
}

void Store(const store::NewGames& taken, std::vector<ReadFile>& files) {
  std::string why;
  auto next = store::AddGames(taken, &why);
  if (!next) throw SavingRefusal(why);
  for (ReadFile& file : files) {
    file.first = next;
    *next += GoodGames(file) - static_cast<int>(file.known.size());
  }
}

}  // namespace

bool PgnExport(const Call& call) {
  const post::MailAccount account = Account();
  const std::vector<std::int32_t> numbers = GameNumbers(call.arguments);
  const pgn::ExportOptions options{call.arguments.Has("--addresses"), account.MyName,
                                   account.MyAddress};
  const auto text = pgn::PgnOfStoredGames(numbers, options);
  if (!text) throw GameFileRefusal("The games can't be read.");
  std::cout << *text;
  return true;
}

bool PgnImport(const Call& call) {
  const std::vector<std::string>& names = call.arguments.Others();
  if (call.arguments.Has("--check")) return CheckGames(names);
  const pgn::ImportOptions options = OptionsOf(call.arguments);
  auto known = pgn::KnownGames::Stored(options);
  if (!known) throw GameFileRefusal("The games can't be read.");
  std::vector<ReadFile> files;
  store::NewGames taken;
  for (const std::string& name : names) {
    files.push_back(ReadGamesOf(
        name, [&options](std::istream& text) { return pgn::ReadGames(text, options); }));
    files.back().known = known->LeaveOutOf(files.back().games);
    taken.Append(std::exchange(files.back().games.taken, {}));
  }
  if (taken.Count() > 0) Store(taken, files);
  for (ReadFile& file : files) {
    file.areNotesKept = study::KeepNotesOf(file.games, file.known, file.first, options);
  }
  const bool areAllTaken = PrintAll(files);
  if (!call.messages.Empty()) throw Refusal(call.messages.TakeSentence({}));
  return areAllTaken;
}

}  // namespace cli
