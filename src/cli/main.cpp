// SPDX-License-Identifier: GPL-3.0-or-later
// The console companion: the program without a window, for scripts, cron and terminals.
//
// Output is JSON on standard output, one object a line; standard error has one plain sentence where
// something went wrong. Exit 0 done, 1 refused or failed, 2 wrong usage.
#include <QGuiApplication>

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <iostream>
#include <memory>
#include <optional>
#include <string_view>

#include "cli/verbs.h"
#include "desktop/folders.h"
#include "platform/harmless_text.h"
#include "platform/process_state.h"
#include "platform/registry.h"
#include "platform/seams.h"
#include "platform/setting_variables.h"
#include "post/accounts/passwords.h"
#include "wiring/real_seams.h"

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

/// Takes the verb from the front of the arguments; some verbs have two words.
const cli::VerbRow& TakeVerb(std::vector<std::string>& arguments) {
  std::string name = arguments.front();
  for (std::size_t words = 1; words <= std::min<std::size_t>(2, arguments.size()); ++words) {
    if (words == 2) name += ' ' + arguments[1];
    for (const cli::VerbRow& verb : cli::Verbs()) {
      if (name != verb.name) continue;
      arguments.erase(arguments.begin(), arguments.begin() + static_cast<std::ptrdiff_t>(words));
      return verb;
    }
  }
  throw cli::UsageError("There is no verb \"" + arguments.front() + "\"; --help lists them all.");
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

/// Standard error has one sentence, and none of the toolkit's.
void DropToolkitMessages(QtMsgType, const QMessageLogContext&, const QString&) {}

/// The other verbs go on without settings.
bool NeedsSettings(const cli::VerbRow& verb, const cli::Arguments& arguments) {
  return verb.run == cli::Send || verb.run == cli::Retrieve || verb.run == cli::MailStatus ||
         verb.run == cli::MailDeliver || arguments.Has("--send") ||
         std::string_view(verb.name).starts_with("account");
}

/// What was mended is worth a sentence, and the verb goes on.
void LookAtSettings() {
  const std::string mended = platform::MendSettings();
  if (!mended.empty()) std::cerr << mended << '\n';
}

/// What prints needs fonts, but no display.
std::unique_ptr<QCoreApplication> NewApplication(const cli::VerbRow& verb, int& argc, char** argv) {
  if (!std::string_view(verb.name).starts_with("print")) {
    return std::make_unique<QCoreApplication>(argc, argv);
  }
  qputenv("QT_QPA_PLATFORM", "offscreen");
  return std::make_unique<QGuiApplication>(argc, argv);
}

int Run(int argc, char** argv) {
  std::vector<std::string> arguments{argv + 1, argv + argc};
  const std::string folder = TakeFolder(arguments);
  if (arguments.empty()) throw cli::UsageError("A verb is missing; --help lists them all.");
  if (arguments.front() == "--help") {
    PrintHelp();
    return Done;
  }
  if (arguments.front() == "--version") {
    std::cout << "tarvolenix-cli " << platform::GetVersionText() << '\n';
    return Done;
  }
  const cli::VerbRow& verb = TakeVerb(arguments);
  if (!arguments.empty() && arguments.front() == "--help") {
    std::cout << "tarvolenix-cli " << verb.usage << '\n' << verb.help << '\n';
    return Done;
  }
  const cli::Arguments parsed(arguments, verb.rules);

  qInstallMessageHandler(DropToolkitMessages);
  const auto application = NewApplication(verb, argc, argv);
  cli::CollectedMessages messages;
  const desktop::Folders folders = desktop::FoldersFor(folder);
  wiring::RealSeams desktop(folders.settingsFile);
  desktop::PrepareUserFolder(folders);
  platform::SetupGlobalVariables(folders.program, "-nosound", folders.user);
  platform::Settings().Verbose = true;
  platform::TheSeams().messageBoxes = &messages;
  if (NeedsSettings(verb, parsed)) LookAtSettings();
  const bool done = verb.run({parsed, messages, desktop.KeptPasswords(), desktop.Tokens()});
  if (!std::cout.flush()) throw cli::Refusal("The answer could not be written.");
  return done ? Done : Failed;
}

/// The sentence may quote what others have written.
void PrintProblem(const std::exception& error) {
  std::cerr << platform::Harmless(error.what(), platform::LineEnds::Blanks) << '\n';
}

}  // namespace

int main(int argc, char** argv) {
  post::ForbidCoreDumps();
  try {
    return Run(argc, argv);
  } catch (const cli::UsageError& error) {
    PrintProblem(error);
    return WrongUsage;
  } catch (const std::exception& error) {
    PrintProblem(error);
    return Failed;
  }
}
