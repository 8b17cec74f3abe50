// SPDX-License-Identifier: GPL-3.0-or-later
// The program's windows, tray, help and screen as entries of one log, so that a test can tell in
// which order they came and went.
#pragma once

#include <deque>
#include <functional>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include "platform/help.h"
#include "platform/notices.h"
#include "platform/screen.h"
#include "platform/tray.h"
#include "platform/windows.h"

namespace fakes {

using EventLog = std::vector<std::string>;

class RecordingWindows : public platform::Windows {
 public:
  explicit RecordingWindows(EventLog& log) : log_(log) {}

  bool ApplySkinToSystemTray() override { return Did("skin"); }
  bool LoadChessGraphics() override { return Did("graphics"); }
  void ShowSplash() override { Did("splash"); }
  void ShowGameList() override;
  void CloseGameList() override;
  void HideGameList() override { Did("hide game list"); }
  void BringBackGameList() override { Did("bring back game list"); }
  void OpenBoard(bool toFront) override;
  std::optional<platform::NewGameFields> AskNewGame() override {
    return Did("ask new game") ? std::optional(platform::Process().NewGame) : std::nullopt;
  }
  void HideNewGame() override { Did("hide new game"); }
  std::optional<std::string> PickMoveFile() override { return picked; }
  platform::NotifyChoice AskAboutNewMove(const platform::NewMove& move) override;
  bool AnswerAboutNewMove(platform::NotifyChoice choice) override {
    if (isAsking) choices = {choice};
    return isAsking;
  }
  bool AreInUse() override { return inUse; }
  void RaiseFrontWindow() override { Did("raise"); }
  platform::HeldMailChoice AskAboutHeldMail(const platform::HeldMailQuestion& question) override;
  std::optional<std::string> AskAddress(const std::string&, const std::string&) override {
    return newAddress;
  }
  void CloseAll() override { Did("close all"); }

  std::set<std::string> refusing;  ///< entries of the log that answer false, or do nothing
  std::set<std::string> lacking;   ///< entries that raise WindowError
  std::set<std::string> failing;   ///< entries that raise another error
  std::deque<platform::NotifyChoice> choices;             ///< for the next new moves, in order
  std::deque<platform::HeldMailChoice> heldChoices;       ///< likewise for mails set aside
  std::vector<platform::HeldMailQuestion> heldQuestions;  ///< that were asked
  std::optional<std::string> picked;                      ///< file to import
  std::optional<std::string> newAddress;                  ///< of an opponent
  std::function<void()> duringQuestion;  ///< while the user is asked about a new move
  bool inUse = true;                     ///< one of them is before the user
  bool isAsking = false;                 ///< just then
  std::function<void()> gameListClosed;  ///< the close handler

 private:
  bool Did(const std::string& entry);

  EventLog& log_;
};

/// As a desktop with a daemon that shows them.
class RecordingNotices : public platform::Notices {
 public:
  void Show(const platform::Notice& notice, const Answered& onAnswer) override {
    text = notice.text;
    answered_ = onAnswer;
  }
  void Withdraw() override { text.clear(); }

  /// The user does so there.
  void Answer(platform::NotifyChoice choice) {
    text.clear();
    std::exchange(answered_, nullptr)(choice);
  }

  std::string text;  ///< of the one that is shown

 private:
  Answered answered_;
};

class RecordingTray : public platform::Tray {
 public:
  explicit RecordingTray(EventLog& log) : log_(log) {}
  void Notify(platform::TrayOperation operation, int picture, const std::string& tip) override;
  void Say(const std::string& text) override { log_.push_back("said " + text); }

 private:
  EventLog& log_;
};

class RecordingHelp : public platform::Help {
 public:
  explicit RecordingHelp(EventLog& log) : log_(log) {}
  void ShowHelp(int context) override { log_.push_back("help " + std::to_string(context)); }
  void CloseHelp() override { log_.emplace_back("close help"); }

 private:
  EventLog& log_;
};

/// An ordinary screen until the test says otherwise.
class ScriptedScreen : public platform::Screen {
 public:
  platform::DisplaySettings Settings() override { return settings; }
  bool IsAnotherInstanceRunning() override { return anotherInstance; }

  platform::DisplaySettings settings{"96", "96", "1920,1200", 32};
  bool anotherInstance = false;
};

}  // namespace fakes
