// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/ini_settings.h"

#include <algorithm>
#include <ctime>
#include <exception>
#include <filesystem>
#include <system_error>

namespace desktop {
namespace {

namespace fs = std::filesystem;

using platform::FileError;
using platform::SettingsError;

/// Where the file itself lies: a link stays a link, and what belongs to the file lies beside it.
std::string PlaceOf(const std::string& path) {
  std::error_code error;
  const fs::path place = fs::weakly_canonical(path, error);
  return error ? path : place.string();
}

/// The system's reason alone, where the error names the file before it.
std::string ReasonOf(const FileError& error, const std::string& path) {
  const std::string text = error.what();
  const std::size_t place = text.find(path + ": ");
  return place == std::string::npos ? text : text.substr(place + path.size() + 2);
}

/// Why what stands there is no file that could be read; empty where nothing speaks against it.
std::string ReasonAgainst(const std::string& path) {
  std::error_code ignored;
  if (fs::is_directory(path, ignored)) return "a folder stands in its place";
  const bool isLink = fs::is_symlink(path, ignored);
  return isLink && !fs::exists(path, ignored) ? "it is a link that leads nowhere" : "";
}

bool IsBlank(const std::string& text) {
  return text.find_first_not_of(" \t\r\n") == std::string::npos;
}

void RemoveQuietly(platform::Files& files, const std::string& path) {
  try {
    if (files.Exists(path)) files.Remove(path);
  } catch (const FileError&) {
    // It stays behind, and the next write begins it anew.
  }
}

std::string NowText() {
  const std::time_t now = std::time(nullptr);
  std::tm local{};
  char text[sizeof "2026-03-09-080500"] = "";
  std::strftime(text, sizeof text, "%Y-%m-%d-%H%M%S", ::localtime_r(&now, &local));
  return text;
}

}  // namespace

std::optional<std::string> IniSettings::Content() {
  const auto unreadable = [this](const std::string& reason) {
    return SettingsError("The settings file " + path_ + " can't be read: " + reason + ".");
  };
  const std::string reason = ReasonAgainst(path_);
  if (!reason.empty()) throw unreadable(reason);
  try {
    if (!files_.Exists(path_)) return std::nullopt;
    return files_.Read(path_);
  } catch (const FileError& error) {
    throw unreadable(ReasonOf(error, path_));
  }
}

/// The state before the latest change, where there is one to go back to.
std::optional<std::string> IniSettings::KeptContent() {
  try {
    std::string kept = files_.Read(PlaceOf(path_) + ".bak");
    if (!IsBlank(kept) && IniText::Read(kept)) return kept;
  } catch (const FileError&) {
    // There is none.
  }
  return std::nullopt;
}

std::optional<IniText> IniSettings::Understood(const std::string& content) {
  if (IsBlank(content) && KeptContent()) return std::nullopt;
  return IniText::Read(content);
}

/// Many settings are read one after the other, out of a file that hardly ever changes.
IniText IniSettings::Load() {
  const std::scoped_lock lock(lookingAtKept_);
  std::string stamp;
  try {
    stamp = files_.Stamp(path_);
  } catch (const FileError&) {
    // To read it tells what is wrong.
  }
  if (stamp.empty() || stamp != stamp_) {
    stamp_.clear();
    kept_ = LoadAnew();
    stamp_ = std::move(stamp);
  }
  return kept_;
}

IniText IniSettings::LoadAnew() {
  const auto content = Content();
  auto settings = content ? Understood(*content) : IniText{};
  if (!settings) throw SettingsError("The settings file " + path_ + " is damaged.");
  return *std::move(settings);
}

void IniSettings::Replace(const std::string& path, const std::string& content) {
  const std::string beside = PlaceOf(path_) + ".new";
  try {
    files_.Write(beside, content);
    std::error_code ignored;
    fs::permissions(beside, fs::perms::owner_read | fs::perms::owner_write, ignored);
    const bool isThere = files_.Read(beside) == content;
    if (!isThere) throw FileError("can't write " + path + ": it reads back otherwise");
    files_.Rename(beside, path);
  } catch (const FileError&) {
    RemoveQuietly(files_, beside);
    throw;
  }
}

std::optional<std::string> IniSettings::Read(const std::string& group, const std::string& name) {
  return Load().Value(group, name);
}

bool IniSettings::Write(const std::string& group, const Values& values) {
  const auto stands = [&](const IniText& settings) {
    return std::all_of(values.begin(), values.end(), [&](const auto& value) {
      return settings.Value(group, value.first) == value.second;
    });
  };
  try {
    if (stands(Load())) return true;
    const std::string place = PlaceOf(path_);
    std::error_code ignored;
    fs::create_directories(fs::path(place).parent_path(), ignored);
    const auto lock = files_.Lock(place + ".lock");
    // Again, with what others have written meanwhile.
    IniText settings = Load();
    if (stands(settings)) return true;
    const std::string before = settings.Text();
    for (const auto& [name, value] : values) settings.Set(group, name, value);
    if (!IsBlank(before)) Replace(place + ".bak", before);
    Replace(place, settings.Text());
    return true;
  } catch (const std::exception&) {
    return false;
  }
}

bool IniSettings::CreateGroup(const std::string&) {
  try {
    Load();
    return true;
  } catch (const SettingsError&) {
    return false;
  }
}

std::vector<std::string> IniSettings::Groups() { return Load().Groups(); }

std::string IniSettings::Mend() {
  const auto isGood = [this](const auto& content) { return !content || Understood(*content); };
  if (isGood(Content())) return {};
  try {
    const std::string place = PlaceOf(path_);
    const auto lock = files_.Lock(place + ".lock");
    const auto damaged = Content();
    if (isGood(damaged)) return {};  // another process was quicker
    const std::string aside = place + ".damaged-" + NowText();
    Replace(aside, *damaged);
    const auto kept = KeptContent();
    Replace(place, kept.value_or(""));
    return "The settings file " + path_ + " was damaged and is kept as " + aside + ".  " +
           (kept ? "The settings from before their last change have taken its place."
                 : "Tarvolenix starts with the usual settings; your mail account must be set up "
                   "anew.");
  } catch (const FileError& error) {
    throw SettingsError("The settings file " + path_ +
                        " is damaged, and nothing can take its place: " + error.what() + ".");
  }
}

}  // namespace desktop
