// SPDX-License-Identifier: GPL-3.0-or-later
// The console companion as a script sees it: a process with arguments, standard input, JSON lines
// and an exit code. Players live in temporary folders with a settings file and a post office of
// their own.
#pragma once

#include <gtest/gtest.h>
#include <sys/wait.h>

#include <cstdlib>
#include <filesystem>
#include <set>
#include <sstream>
#include <string>
#include <utility>
#include <vector>

#include "fakes/temporary_folder.h"

namespace cli {

namespace fs = std::filesystem;

struct Answer {
  int exitCode = -1;
  std::string out;
  std::string err;
};

inline std::string ShellQuoted(const std::string& text) {
  std::string quoted = "'";
  for (const char c : text) quoted += c == '\'' ? std::string("'\\''") : std::string(1, c);
  return quoted + "'";
}

/// The board text of a position such as "Ke1 Pa7 kg8": White's letters are capitals.
inline std::string BoardWith(const std::string& pieces) {
  std::vector<std::string> rows(8, std::string(16, '0'));
  std::istringstream words(pieces);
  for (std::string piece; words >> piece;) {
    const auto code = static_cast<int>(std::string(".RNBQKPrnbqkp").find(piece[0]));
    std::string& row = rows.at(static_cast<std::size_t>(piece[2] - '1'));
    const auto column = static_cast<std::size_t>(piece[1] - 'a') * 2;
    row[column] = static_cast<char>('0' + code / 10);
    row[column + 1] = static_cast<char>('0' + code % 10);
  }
  std::string text = rows[0];
  for (std::size_t y = 1; y < rows.size(); ++y) text += ';' + rows[y];
  return text;
}

/// What the text has between two others.
inline std::string Between(const std::string& text, const std::string& from,
                           const std::string& to) {
  const std::size_t begin = text.find(from);
  return begin == std::string::npos ? text : text.substr(begin, text.find(to, begin) - begin);
}

class CliTest : public testing::Test {
 protected:
  CliTest() {
    for (const std::string player : {"anna", "bob"}) {
      fs::create_directories(root_ / (player + "/Data"));
      WriteFile(root_ / (player + "/Tarvolenix.conf"),
                "[Mail]\nMailKind=Post\nMyName=" + player + "\nMyAddress=" + player +
                    "@example.org\nPostFolder=" + root_ / "post/\n");
    }
  }

  /// Runs the companion without a folder of its own.
  Answer Run(const std::vector<std::string>& arguments, const std::string& input = {}) {
    WriteFile(root_ / "in", input);
    std::string command = TARVOLENIX_CLI;
    for (const std::string& argument : arguments) command += ' ' + ShellQuoted(argument);
    const auto path = [&](const char* name) { return ShellQuoted(root_ / name); };
    command += " <" + path("in") + " >" + path("out") + " 2>" + path("err");
    const int status = std::system(command.c_str());
    return {WEXITSTATUS(status), ReadFile(root_ / "out"), ReadFile(root_ / "err")};
  }

  Answer As(const std::string& player, std::vector<std::string> arguments,
            const std::string& input = {}) {
    const std::vector<std::string> folder = {"--folder", root_ / player};
    arguments.insert(arguments.begin(), folder.begin(), folder.end());
    return Run(arguments, input);
  }

  Answer AnnaStartsGame() {
    return As("anna", {"new", "--name", "Autumn", "--opponent", "Bob", "--email", "bob@example.org",
                       "--move", "5254", "--comment", "Grüße", "--send"});
  }

  TemporaryFolder root_;
};

}  // namespace cli
