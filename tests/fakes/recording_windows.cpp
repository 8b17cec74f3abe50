// SPDX-License-Identifier: GPL-3.0-or-later
#include "fakes/recording_windows.h"

#include <gtest/gtest.h>

#include <utility>

#include "platform/process_state.h"

namespace fakes {

using platform::Process;

bool RecordingWindows::Did(const std::string& entry) {
  log_.push_back(entry);
  if (lacking.contains(entry)) throw platform::WindowError("no platform");
  if (failing.contains(entry)) throw std::runtime_error(entry + " fails");
  return !refusing.contains(entry);
}

void RecordingWindows::ShowGameList() {
  if (Did("game list")) Process().GameListOpen = true;
}

void RecordingWindows::CloseGameList() {
  Did("close game list");
  Process().GameListOpen = false;
  if (gameListClosed) gameListClosed();
}

void RecordingWindows::OpenBoard(bool toFront) {
  const std::string game = std::to_string(Process().CurrentGameID);
  if (Did("board " + game + (toFront ? " in front" : ""))) {
    Process().BoardOpen = true;
  }
}

platform::HeldMailChoice RecordingWindows::AskAboutHeldMail(
    const platform::HeldMailQuestion& question) {
  heldQuestions.push_back(question);
  if (heldChoices.empty()) return platform::HeldMailChoice::Later;
  const platform::HeldMailChoice choice = heldChoices.front();
  heldChoices.pop_front();
  return choice;
}

platform::NotifyChoice RecordingWindows::AskAboutNewMove(const platform::NewMove& move) {
  Did("notify " + move.OpName + "/" + move.GameName + "/" + move.MoveComment +
      (move.isLast ? "/last" : ""));
  isAsking = true;
  if (duringQuestion) duringQuestion();
  isAsking = false;
  if (choices.empty()) {
    ADD_FAILURE() << "unexpected question about " << move.GameName;
    return platform::NotifyChoice::Later;
  }
  const platform::NotifyChoice choice = choices.front();
  choices.pop_front();
  return choice;
}

void RecordingTray::Notify(platform::TrayOperation operation, int picture, const std::string& tip) {
  constexpr const char* names[] = {"tray add ", "tray modify ", "tray delete"};
  log_.push_back(names[static_cast<int>(operation)] + (operation == platform::TrayOperation::Delete
                                                           ? std::string{}
                                                           : std::to_string(picture) + " " + tip));
}

}  // namespace fakes
