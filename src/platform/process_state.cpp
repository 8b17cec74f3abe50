// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/process_state.h"

#include <algorithm>
#include <utility>

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
  state.ProgramFolder = std::move(programFolder);
  // In the letters A to Z alone: in some locales the small letter of I isn't i.
  std::transform(commandLine.begin(), commandLine.end(), commandLine.begin(), [](char c) {
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
  });
  for (const Option& option : options) {
    if (commandLine.find(option.text) != std::string::npos) state.*option.flag = option.value;
  }
  Process() = std::move(state);
}

std::string GetVersionText() { return TARVOLENIX_VERSION; }

}  // namespace platform
