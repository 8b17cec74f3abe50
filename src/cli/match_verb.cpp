// SPDX-License-Identifier: GPL-3.0-or-later
// The verb that lets two styles of the computer opponent play against each other.
#include <unistd.h>

#include <algorithm>
#include <array>
#include <csignal>
#include <iostream>
#include <random>
#include <thread>

#include "ai/ai_files.h"
#include "ai/heuristic_rows.h"
#include "ai/match.h"
#include "ai/search.h"
#include "cli/verbs.h"
#include "platform/seams.h"

namespace cli {
namespace {

constexpr const char* players[] = {"A", "B"};

/// By ai::GameEnd.
constexpr const char* endNames[] = {"mate", "stalemate", "draw", "repetition", "limit"};

/// By ai::MoveFigure.
constexpr const char* figureNames[] = {"moves", "captures", "checks", "castled",
                                       "pawn",  "king",     "queen",  "advanced"};
static_assert(std::size(figureNames) == ai::moveFigureCount);

// A signal's handler may touch nothing else.
std::atomic<bool> stopped = false;
static_assert(std::atomic<bool>::is_always_lock_free);

std::optional<std::string> ContentOf(const std::string& style) {
  platform::Files& files = *platform::TheSeams().files;
  for (const std::string& path : {style, ai::AIFilePath(style) + ".AI"}) {
    if (files.Exists(path)) return files.Read(path);
  }
  return std::nullopt;
}

/// The table of "factory", of a file, or of a style among the program's AI files. What a file
/// doesn't name is the factory's.
ai::HeuristicTable TableOf(const std::string& style) {
  ai::HeuristicTable table = ai::DefaultHeuristics();
  if (style == "factory") return table;
  const auto text = ContentOf(style);
  if (!text) throw Refusal("There is no AI file \"" + style + "\".");
  const auto fault = ai::ReadAIText(
      *text, [&](int row, std::int16_t value) { table[ai::HeuristicOnRow(row)] = value; });
  if (fault) throw Refusal("The AI file \"" + style + "\" can't be read: " + fault->why);
  return table;
}

/// What the games of a match come to, for A.
class Totals {
 public:
  void Add(const ai::PlayedGame& game) {
    ++games_;
    ++results_[OutcomeForA(game)];
    ++ends_[static_cast<std::size_t>(game.end)];
    moves_ += game.moves;
    for (std::size_t table = 0; table < 2; ++table) {
      for (std::size_t n = 0; n < ai::moveFigureCount; ++n) {
        figures_[table][n] += game.figures[table][n];
      }
    }
  }

  int Games() const { return games_; }

  std::string ShortText() const {
    std::string text = "+";
    text.append(std::to_string(results_[Won])).append(" =").append(std::to_string(results_[Drawn]));
    return text.append(" -").append(std::to_string(results_[Lost]));
  }

  void Print(std::uint64_t seed) const {
    const auto difference = ai::RatingDifferenceOf(results_[Won], results_[Drawn], results_[Lost]);
    const auto points = [&](double ai::RatingDifference::*part) {
      return Json{difference ? JsonValue(*difference.*part) : "null"};
    };
    JsonObject()
        .Add("won", results_[Won])
        .Add("drawn", results_[Drawn])
        .Add("lost", results_[Lost])
        .Add("elo", points(&ai::RatingDifference::elo))
        .Add("error", points(&ai::RatingDifference::error))
        .Add("moves", PerGame(moves_))
        .Add("ends", Json{Ends().Text()})
        .Add(players[0], Json{Figures(0).Text()})
        .Add(players[1], Json{Figures(1).Text()})
        .Add("seed", Json{std::to_string(seed)})
        .Print();
  }

 private:
  enum Outcome { Won, Drawn, Lost };

  static Outcome OutcomeForA(const ai::PlayedGame& game) {
    if (game.winner == rules::NoSide) return Drawn;
    return (game.winner == rules::White) == (game.white == 0) ? Won : Lost;
  }

  double PerGame(int count) const { return count / static_cast<double>(std::max(1, games_)); }

  JsonObject Ends() const {
    JsonObject ends;
    for (std::size_t n = 0; n < ends_.size(); ++n) ends.Add(endNames[n], ends_[n]);
    return ends;
  }

  JsonObject Figures(std::size_t table) const {
    JsonObject figures;
    for (std::size_t n = 0; n < std::size(figureNames); ++n) {
      figures.Add(figureNames[n], PerGame(figures_[table][n]));
    }
    return figures;
  }

  int games_ = 0;
  int moves_ = 0;
  std::array<int, 3> results_{};
  std::array<int, ai::gameEndCount> ends_{};
  std::array<ai::MoveFigures, 2> figures_{};
};

void PrintGame(const ai::PlayedGame& game) {
  const char* result = game.winner == rules::NoSide  ? "1/2-1/2"
                       : game.winner == rules::White ? "1-0"
                                                     : "0-1";
  JsonObject()
      .Add("game", game.number)
      .Add("white", players[game.white])
      .Add("result", result)
      .Add("moves", game.moves)
      .Add("end", endNames[static_cast<std::size_t>(game.end)])
      .Print();
}

/// The line at the bottom of the terminal that tells how far the match has come.
class ProgressLine {
 public:
  explicit ProgressLine(int games) : games_(games) {}

  void Show(const Totals& totals) {
    if (!onTerminal_) return;
    line_ = std::to_string(totals.Games()) + " of " + std::to_string(games_) + " games, A " +
            totals.ShortText();
    std::cerr << line_ << std::flush;
  }

  /// Before anything else is printed, which may go to the same terminal.
  void Wipe() {
    if (onTerminal_) std::cerr << '\r' << std::string(line_.size(), ' ') << '\r' << std::flush;
  }

 private:
  const int games_;
  const bool onTerminal_ = ::isatty(STDERR_FILENO) != 0;
  std::string line_;
};

}  // namespace

bool Match(const Call& call) {
  constexpr std::uint64_t mostGames = 100000;
  const Arguments& arguments = call.arguments;
  ai::MatchOrder order;
  order.tables = {TableOf(arguments.Others().at(0)), TableOf(arguments.Others().at(1))};
  order.games = static_cast<int>(arguments.OptionNumber("--games", 1, mostGames));
  order.maxDepth = static_cast<int>(arguments.OptionNumber("--depth", 0, ai::deepestSearch));
  order.seed = arguments.Has("--seed") ? arguments.OptionNumber("--seed", 0, UINT64_MAX)
                                       : std::random_device{}();
  order.threads = static_cast<int>(std::max(1U, std::thread::hardware_concurrency()));

  std::signal(SIGINT, [](int) { stopped = true; });
  Totals totals;
  ProgressLine progress(order.games);
  progress.Show(totals);
  ai::PlayMatch(
      order,
      [&](const ai::PlayedGame& game) {
        totals.Add(game);
        progress.Wipe();
        PrintGame(game);
        progress.Show(totals);
      },
      stopped);
  progress.Wipe();
  totals.Print(order.seed);
  if (totals.Games() == order.games) return true;
  throw Refusal("The match was ended after " + std::to_string(totals.Games()) + " of " +
                std::to_string(order.games) + " games.");
}

}  // namespace cli
