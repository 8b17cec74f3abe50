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

void SetupGlobalVariables(std::string programFolder, std::string commandLine) {
  ProcessState state;
  if (!programFolder.ends_with('/')) programFolder += '/';
  state.DataPath = programFolder + "Data/";
  state.AIFilesPath = programFolder + "AI Files/";
  state.ProgramFolder = std::move(programFolder);
  commandLine = Lowered(commandLine);
  for (const Option& option : options) {
    if (commandLine.find(option.text) != std::string::npos) state.*option.flag = option.value;
  }
  Process() = std::move(state);
}

std::string GetVersionText() { return TARVOLENIX_VERSION; }

}  // namespace platform
