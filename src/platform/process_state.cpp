// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/process_state.h"

#include <utility>

#include "platform/ascii.h"

namespace platform {
namespace {

struct Option {
  const char* text;
  bool ProcessState::*flag;
  bool value;
};

constexpr Option options[] = {
    {"-testingmode", &ProcessState::StandAlone, true},
    {"-nonetwork", &ProcessState::NoNetwork, true},
    {"-nodpi", &ProcessState::CheckDPI, false},
    {"-nores", &ProcessState::CheckResolution, false},
    {"-nobpp", &ProcessState::CheckColourDepth, false},
    {"-nosound", &ProcessState::SoundEnabled, false},
};

}  // namespace

ProcessState& Process() {
  static ProcessState state;
  return state;
}

void SetupGlobalVariables(std::string programFolder, std::string commandLine,
                          std::string userFolder) {
  ProcessState state;
  if (!programFolder.ends_with('/')) programFolder += '/';
  if (userFolder.empty()) userFolder = programFolder;
  state.DataPath = userFolder + "Data/";
  state.AIFilesPath = userFolder + "AI Files/";
  state.UserFolder = std::move(userFolder);
  state.ProgramFolder = std::move(programFolder);
  commandLine = Lowered(commandLine);
  for (const Option& option : options) {
    if (commandLine.find(option.text) != std::string::npos) state.*option.flag = option.value;
  }
  Process() = std::move(state);
}

std::string GetVersionText() { return TARVOLENIX_VERSION; }

}  // namespace platform
