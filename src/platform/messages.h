// SPDX-License-Identifier: GPL-3.0-or-later
// The one way in which the program speaks to its user. Polling stops while a message is up and goes
// on as it was before, so nested messages and messages of a held phase leave the hold as they found
// it.
#pragma once

#include <optional>
#include <string>

namespace platform {

/// Icons of the message dialog.
enum MessageIcon { InformationIcon = 1, ErrorIcon, SetupIcon, MailIcon, DatabaseIcon };

/// Numbered sounds; no sound is an empty optional.
enum SoundNumber {
  WonSound = 1,
  CheckSound = 2,
  LiftSound = 3,
  DropSound = 4,
  FailureSound = 5,
  AttentionSound = 6,
  LostSound = 7
};

/// Shows the message dialog; "|" in `text` ends a line. True for OK, false for Cancel or a
/// time-out.
bool ShowMessage(int icon, const std::string& title, const std::string& text,
                 const std::string& okCaption, const std::string& cancelCaption = {},
                 bool useTimeout = false, std::optional<int> sound = {});

/// The same with a second button for something beyond OK, which Escape doesn't choose. True for OK.
bool AskWithExtra(int icon, const std::string& title, const std::string& text,
                  const std::string& okCaption, const std::string& extraCaption,
                  std::optional<int> sound = {});

/// A text for ShowMessage with the cause behind it, where that is known: no sentence, or several.
std::string WithCause(const std::string& text, const std::string& cause);

/// A message that only an interested user wants: shown with the setting `Verbose`, else heard and
/// left to the quietMessage hook.
void VerboseMessage(const std::string& text, const std::string& title, int sound);

/// Puts up the small popup for long work, or takes it down where `show` is false.
void ShowStatus(bool show, const std::string& text = {});

/// Plays a wave file without waiting, cutting off the one before. Never reports.
void PlayWave(const std::string& path);

/// Plays the numbered sound of the data folder.
void PlayNumberedSound(int number);

/// The file of a numbered sound: in the data folder, "Cs", three digits, ".tvs".
std::string SoundPath(int number);

}  // namespace platform
