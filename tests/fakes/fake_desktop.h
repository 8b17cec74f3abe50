// SPDX-License-Identifier: GPL-3.0-or-later
// A desktop of recorders. A fixture that has a FakeDesktop member starts from a clean program in an
// imaginary folder: files, settings, mail and messages live in memory, the clock stands still.
#pragma once

#include <deque>
#include <functional>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "fakes/memory_files.h"
#include "fakes/memory_mail.h"
#include "fakes/memory_settings.h"
#include "fakes/recording_printers.h"
#include "fakes/recording_windows.h"
#include "platform/seams.h"

namespace fakes {

/// Of ProcessState::PendingGames.
using GameIDs = std::vector<std::int32_t>;

/// Records what the user was told and answers as scripted. A question with two buttons that no
/// answer was scripted for is a failure of the test.
class RecordingMessageBoxes : public platform::MessageBoxes {
 public:
  bool Ask(const platform::Message& message) override;
  void ShowStatus(const std::string& text) override { statusTexts.push_back(text); }
  void HideStatus() override { statusTexts.emplace_back(); }
  void PlainBox(platform::PlainIcon, const std::string& title, const std::string& text) override {
    plainBoxes.emplace_back(title, text);
  }

  std::vector<platform::Message> messages;
  std::vector<std::string> statusTexts;  ///< an empty text is the popup taken down
  std::vector<std::pair<std::string, std::string>> plainBoxes;
  std::deque<bool> answers;       ///< for the next questions, in order
  std::function<void()> whileUp;  ///< while the next message is up
  EventLog* log = nullptr;        ///< where titles are told, too
};

class RecordingSounds : public platform::Sounds {
 public:
  void Play(const std::string& path) override { played.push_back(path); }

  std::vector<std::string> played;
};

class StandingClock : public platform::Clock {
 public:
  platform::LocalTime Now() override { return now; }
  std::string LongDate(const platform::Date& day) override {
    return "day " + std::to_string(day.day) + " of month " + std::to_string(day.month);
  }
  std::int64_t Seconds() override { return seconds; }

  platform::LocalTime now{2026, 3, 9, 8, 5};
  std::int64_t seconds = 1773043500;  ///< the same moment in UTC
};

/// Runs posted work on the spot and waits without an event loop.
class ImmediateEvents : public platform::Events {
 public:
  void RunUntil(const std::function<bool()>& done) override;
  void LetUserActUntil(const std::function<bool()>& done) override { RunUntil(done); }
  void Wake() override {}
  void Post(std::function<void()> work) override { work(); }
};

class FakeDesktop {
 public:
  /// Resets the process's records and installs the recorders.
  explicit FakeDesktop(const std::string& commandLine = {});
  ~FakeDesktop();
  FakeDesktop(const FakeDesktop&) = delete;
  FakeDesktop& operator=(const FakeDesktop&) = delete;

  EventLog log;  ///< messages, windows, tray and mail session, in their order

  RecordingMessageBoxes boxes;
  RecordingSounds sounds;
  StandingClock clock;
  ImmediateEvents events;
  MemoryFiles files;
  MemorySettings settings;
  MemoryMail mail;
  RecordingWindows windows{log};
  RecordingTray tray{log};
  RecordingNotices notices;
  RecordingHelp help{log};
  RecordingPrinters printers;
  ScriptedScreen screen;

  std::vector<std::string> hooksCalled;

  /// Title and text of the last message; both empty where none was shown.
  std::pair<std::string, std::string> LastMessage() const;
};

}  // namespace fakes
