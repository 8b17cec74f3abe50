// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/folders.h"

#include <pwd.h>
#include <unistd.h>

#include <cerrno>
#include <cstdlib>
#include <filesystem>
#include <functional>
#include <system_error>

namespace desktop {
namespace {

namespace fs = std::filesystem;

std::string WithSlash(std::string folder) {
  if (!folder.ends_with('/')) folder += '/';
  return folder;
}

std::string Home() {
  if (const char* home = std::getenv("HOME"); home && *home) return WithSlash(home);
  const passwd* user = ::getpwuid(::getuid());
  return WithSlash(user && user->pw_dir ? user->pw_dir : "/");
}

/// A relative path in such a variable doesn't count.
std::string FolderFrom(const char* variable, const char* belowHome) {
  const char* folder = std::getenv(variable);
  return folder && *folder == '/' ? WithSlash(folder) : Home() + belowHome;
}

bool IsFolder(const fs::path& path) {
  std::error_code ignored;
  return fs::is_directory(path, ignored);
}

constexpr const char* settingsName = "Tarvolenix.conf";

/// Whatever stands there, be it a link that leads nowhere, is meant to be the settings.
bool HasSettings(const std::string& folder) {
  std::error_code ignored;
  return fs::symlink_status(folder + settingsName, ignored).type() != fs::file_type::not_found;
}

std::string UsersFolder() { return DataHome() + "tarvolenix/"; }

std::string UsersSettings() { return ConfigHome() + "Norlewick/" + settingsName; }

/// A program folder's own, or the user's where that can't be written to.
std::string UserFolderAt(const std::string& own) {
  if (::access(own.c_str(), W_OK) == 0) return own;
  const bool isClosed =
      errno == EACCES || errno == EPERM || errno == EROFS || errno == ENOENT || errno == ENOTDIR;
  // Games that lie there are the player's, whatever a look at the folder says.
  std::error_code ignored;
  if (!isClosed || fs::exists(own + "Data/Tvgdb.dat", ignored)) return own;
  return UsersFolder();
}

void CopyMissing(const std::string& from, const std::string& to,
                 const std::function<bool(const std::string& name)>& wanted) {
  std::error_code failed;
  std::error_code ignored;
  for (fs::directory_iterator entry(from, failed), end; !failed && entry != end;
       entry.increment(failed)) {
    const std::string name = entry->path().filename().string();
    if (!wanted(name) || !entry->is_regular_file(ignored)) continue;
    fs::copy_file(entry->path(), to + name, fs::copy_options::skip_existing, ignored);
  }
}

/// The reason why there is no such folder, or why it can't be written to.
std::string MakeWritable(const std::string& folder) {
  std::error_code failed;
  fs::create_directories(folder, failed);
  if (!failed && ::access(folder.c_str(), W_OK | X_OK) != 0)
    failed.assign(errno, std::generic_category());
  return failed ? failed.message() : "";
}

}  // namespace

std::string ConfigHome() { return FolderFrom("XDG_CONFIG_HOME", ".config/"); }

std::string DataHome() { return FolderFrom("XDG_DATA_HOME", ".local/share/"); }

std::string ProgramFolder() {
  std::error_code error;
  const fs::path executable = fs::read_symlink("/proc/self/exe", error);
  return error ? "./" : WithSlash(executable.parent_path().string());
}

std::string SharedFolder(const std::string& executables) {
  const std::string own = WithSlash(executables);
  const fs::path installed = fs::path(own).parent_path().parent_path() / "share/tarvolenix/";
  return IsFolder(installed) && !HasSettings(own) ? installed.string() : own;
}

Folders FoldersFor(const std::string& home, const std::string& executables) {
  const std::string own = WithSlash(home);
  const std::string shared = SharedFolder(executables);
  const bool isInstalled = shared != WithSlash(executables);
  if (isInstalled && own == WithSlash(executables)) return {shared, UsersFolder(), UsersSettings()};
  const bool isWhole = !isInstalled || IsFolder(own + "UI Graphics");
  return {isWhole ? own : shared, UserFolderAt(own),
          HasSettings(own) ? own + settingsName : UsersSettings()};
}

std::string PrepareUserFolder(const Folders& folders) {
  std::string failure = MakeWritable(folders.user + "Data");
  std::error_code ignored;
  fs::create_directories(folders.user + "AI Files", ignored);
  if (folders.program == folders.user) return failure;
  CopyMissing(folders.program + "Data/", folders.user + "Data/",
              [](const std::string& name) { return name.ends_with(".tvs"); });
  CopyMissing(folders.program + "AI Files/", folders.user + "AI Files/",
              [](const std::string&) { return true; });
  return failure;
}

std::string PrepareSettingsFolder(const Folders& folders) {
  const std::string folder = fs::path(folders.settingsFile).parent_path().string();
  const std::string reason = MakeWritable(folder);
  return reason.empty() ? reason : '"' + folder + "\" (" + reason + ')';
}

std::string DefaultPostFolder() { return UsersFolder() + "post/"; }

}  // namespace desktop
