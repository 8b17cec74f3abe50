// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/messages.h"

#include <algorithm>
#include <utility>

#include "platform/conversions.h"
#include "platform/polling.h"
#include "platform/process_state.h"
#include "platform/seams.h"
#include "platform/setting_variables.h"

namespace platform {
namespace {

bool Ask(Message message, std::optional<int> sound) {
  const PollingHold hold;
  std::replace(message.text.begin(), message.text.end(), '|', '\n');
  if (sound) PlayNumberedSound(*sound);
  return TheSeams().messageBoxes->Ask(message);
}

}  // namespace

std::string WithCause(const std::string& text, const std::string& cause) {
  return cause.empty() ? text : text + "||The cause: " + cause + (cause.ends_with('.') ? "" : ".");
}

bool ShowMessage(int icon, const std::string& title, const std::string& text,
                 const std::string& okCaption, const std::string& cancelCaption, bool useTimeout,
                 std::optional<int> sound) {
  Message message{icon, title, text, okCaption, cancelCaption};
  if (useTimeout) message.timeoutTicks = std::max(0, Settings().NotificationTimeout);
  return Ask(std::move(message), sound);
}

bool AskWithExtra(int icon, const std::string& title, const std::string& text,
                  const std::string& okCaption, const std::string& extraCaption,
                  std::optional<int> sound) {
  Message message{icon, title, text, okCaption, extraCaption};
  message.escapeIsOk = true;
  return Ask(std::move(message), sound);
}

void VerboseMessage(const std::string& text, const std::string& title, int sound) {
  if (Settings().Verbose) {
    ShowMessage(InformationIcon, title, text, "OK", {}, true, sound);
    return;
  }
  PlayNumberedSound(sound);
  if (const auto& tell = TheSeams().hooks.quietMessage) tell(text);
}

void ShowStatus(bool show, const std::string& text) {
  if (show) {
    TheSeams().messageBoxes->ShowStatus(text);
  } else {
    TheSeams().messageBoxes->HideStatus();
  }
}

void PlayWave(const std::string& path) {
  if (Process().SoundEnabled) TheSeams().sounds->Play(path);
}

void PlayNumberedSound(int number) { PlayWave(SoundPath(number)); }

std::string SoundPath(int number) {
  return Process().DataPath + "Cs" + ZeroFilled(number, 3) + ".tvs";
}

}  // namespace platform
