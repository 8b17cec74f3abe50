// SPDX-License-Identifier: GPL-3.0-or-later
// The console companion: the program without a window, for scripts, cron and terminals.
//
// Output is JSON on standard output, one object a line; standard error has one plain sentence where
// something went wrong. Exit 0 done, 1 refused or failed, 2 wrong usage.
#include <cstdlib>
#include <filesystem>
#include <iostream>
#include <optional>

#include "cli/verbs.h"
#include "desktop/folders.h"
#include "desktop/real_desktop.h"
#include "platform/desktop.h"
#include "platform/process_state.h"
#include "platform/setting_variables.h"

namespace {

enum ExitCode { Done = 0, Failed = 1, WrongUsage = 2 };

void PrintHelp() {
  std::cout
      << "tarvolenix-cli [--folder DIR] VERB [ARGUMENT...]\n"
         "\n"
         "Correspondence chess by e-mail, for scripts and terminals. DIR is the program folder\n"
         "with Data in it. The answer is JSON, one object a line.\n"
         "\n";
  for (const cli::VerbRow& verb : cli::Verbs()) {
    std::cout << "  " << verb.usage << "\n      " << verb.help << '\n';
  }
  std::cout
      << "\n"
         "A move is four digits, from column, from row, to column, to row, and =R, =N, =B or =Q\n"
         "for a promotion. POSITIONS is lines of standard input: board=TEXT moves=M1 M2 ...\n"
         "(board= may be left out). VERB --help explains one verb, --version tells the version.\n";
}

const cli::VerbRow& FindVerb(const std::string& name) {
  for (const cli::VerbRow& verb : cli::Verbs()) {
    if (name == verb.name) return verb;
  }
  throw cli::UsageError("There is no verb \"" + name + "\"; --help lists them all.");
}

/// Takes "--folder DIR" from the front of the arguments. Ends in "/".
std::string TakeFolder(std::vector<std::string>& arguments) {
  if (arguments.empty() || arguments.front() != "--folder") return desktop::ProgramFolder();
  if (arguments.size() < 2) throw cli::UsageError("The option --folder wants a folder.");
  const std::string folder = arguments[1];
  arguments.erase(arguments.begin(), arguments.begin() + 2);
  if (!std::filesystem::is_directory(folder)) {
    throw cli::Refusal("There is no folder " + folder + ".");
  }
  return std::filesystem::absolute(folder).string() + "/";
}

int Run(std::vector<std::string> arguments) {
  const std::string folder = TakeFolder(arguments);
  if (arguments.empty()) throw cli::UsageError("A verb is missing; --help lists them all.");
  const std::string name = arguments.front();
  arguments.erase(arguments.begin());
  if (name == "--help") {
    PrintHelp();
    return Done;
  }
  if (name == "--version") {
    std::cout << "tarvolenix-cli " << platform::GetVersionText() << '\n';
    return Done;
  }
  const cli::VerbRow& verb = FindVerb(name);
  if (!arguments.empty() && arguments.front() == "--help") {
    std::cout << "tarvolenix-cli " << verb.usage << '\n' << verb.help << '\n';
    return Done;
  }
  const cli::Arguments parsed(arguments, verb.rules);

  cli::CollectedMessages messages;
  const desktop::RealDesktop desktop(folder);
  const std::string dataFolder = desktop::DataFolderFor(folder);
  desktop::PrepareDataFolder(folder, dataFolder);
  platform::SetupGlobalVariables(folder, "-nosound");
  platform::Process().DataPath = dataFolder + "Data/";
  platform::Settings().Verbose = true;
  platform::TheDesktop().messageBoxes = &messages;
  const bool done = verb.run({parsed, messages});
  if (!std::cout.flush()) throw cli::Refusal("The answer could not be written.");
  return done ? Done : Failed;
}

}  // namespace

int main(int argc, char** argv) {
  try {
    return Run({argv + 1, argv + argc});
  } catch (const cli::UsageError& error) {
    std::cerr << error.what() << '\n';
    return WrongUsage;
  } catch (const std::exception& error) {
    std::cerr << error.what() << '\n';
    return Failed;
  }
}
