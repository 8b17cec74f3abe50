// SPDX-License-Identifier: GPL-3.0-or-later
#include "fakes/fake_desktop.h"

#include <gtest/gtest.h>

#include <thread>

#include "platform/process_state.h"
#include "platform/setting_variables.h"

namespace fakes {

bool RecordingMessageBoxes::Ask(const platform::Message& message) {
  messages.push_back(message);
  if (log) log->push_back("message " + message.title);
  if (whileUp) std::exchange(whileUp, nullptr)();
  if (message.cancelCaption.empty()) return true;
  if (answers.empty() && message.escapeIsOk) return true;
  if (answers.empty()) {
    ADD_FAILURE() << "unexpected question: " << message.title << ": " << message.text;
    return false;
  }
  const bool answer = answers.front();
  answers.pop_front();
  return answer;
}

void ImmediateEvents::RunUntil(const std::function<bool()>& done) {
  while (!done()) std::this_thread::yield();
}

FakeDesktop::FakeDesktop(const std::string& commandLine) {
  platform::SetupGlobalVariables("/program", commandLine);
  platform::Settings() = {};
  platform::Seams& desktop = platform::TheSeams();
  desktop = {};
  desktop.MSess = &mail;
  desktop.MMess = &mail;
  desktop.settings = &settings;
  desktop.messageBoxes = &boxes;
  desktop.sounds = &sounds;
  desktop.clock = &clock;
  desktop.events = &events;
  desktop.files = &files;
  desktop.windows = &windows;
  desktop.tray = &tray;
  desktop.notices = &notices;
  desktop.help = &help;
  desktop.printers = &printers;
  desktop.screen = &screen;
  mail.log = &log;
  boxes.log = &log;
  const auto record = [this](const char* name) {
    return [this, name] {
      hooksCalled.emplace_back(name);
      log.emplace_back(name);
    };
  };
  desktop.hooks.updateTrayStatus = record("updateTrayStatus");
  desktop.hooks.notifyNewMoves = record("notifyNewMoves");
  desktop.hooks.removeTrayIcon = record("removeTrayIcon");
  desktop.hooks.endProcess = record("endProcess");
}

FakeDesktop::~FakeDesktop() { platform::TheSeams() = {}; }

std::pair<std::string, std::string> FakeDesktop::LastMessage() const {
  if (boxes.messages.empty()) return {};
  return {boxes.messages.back().title, boxes.messages.back().text};
}

}  // namespace fakes
