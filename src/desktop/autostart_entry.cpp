// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/autostart_entry.h"

#include <filesystem>
#include <string_view>
#include <system_error>

#include "desktop/folders.h"
#include "platform/whole_file.h"

namespace desktop {
namespace {

std::string Folder() { return ConfigHome() + "autostart/"; }
std::string Path() { return Folder() + "tarvolenix.desktop"; }

/// With `mark` ahead of each of these characters.
std::string Marked(const std::string& text, std::string_view characters, char mark) {
  std::string marked;
  for (const char character : text) {
    if (characters.find(character) != std::string_view::npos) marked += mark;
    marked += character;
  }
  return marked;
}

/// A value of an entry is unescaped before a command is.
std::string Value(const std::string& text) { return Marked(text, "\\", '\\'); }

std::string Command(const std::string& program) {
  return Value('"' + Marked(Marked(program, "\"`$\\", '\\'), "%", '%') + '"');
}

constexpr std::string_view switchedOff[] = {"\nHidden=true", "\nX-GNOME-Autostart-enabled=false"};

}  // namespace

AutostartEntry::AutostartEntry(platform::Files& files, const std::string& folder)
    : files_(files),
      text_(
          "[Desktop Entry]\nType=Application\nName=Tarvolenix\nIcon=tarvolenix\nTerminal=false\n"
          "TryExec=" +
          Value(folder + "tarvolenix") + "\nExec=" + Command(folder + "tarvolenix") + '\n') {}

bool AutostartEntry::IsOurs(std::string& text) const {
  if (!files_.Exists(Path())) return false;
  text = files_.Read(Path());
  return text.find(text_.substr(text_.find("\nExec="))) != std::string::npos;
}

bool AutostartEntry::StartsProgram() {
  try {
    std::string text;
    if (!IsOurs(text)) return false;
    for (const std::string_view line : switchedOff) {
      if (text.find(line) != std::string::npos) return false;
    }
    return true;
  } catch (const platform::FileError&) {
    return false;
  }
}

void AutostartEntry::StartProgram(bool wanted) {
  std::string text;
  if (wanted) {
    std::error_code toldByTheFile;
    std::filesystem::create_directories(Folder(), toldByTheFile);
    platform::ReplaceFile(Path(), text_);
  } else if (IsOurs(text)) {
    files_.Remove(Path());
  }
}

}  // namespace desktop
