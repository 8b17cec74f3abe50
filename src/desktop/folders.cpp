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

}  // namespace

std::string ConfigHome() { return FolderFrom("XDG_CONFIG_HOME", ".config/"); }

std::string DataHome() { return FolderFrom("XDG_DATA_HOME", ".local/share/"); }

std::string ProgramFolder() {
  std::error_code error;
  const fs::path executable = fs::read_symlink("/proc/self/exe", error);
  return error ? "./" : WithSlash(executable.parent_path().string());
}

std::string DataFolderFor(const std::string& programFolder) {
  std::string own = WithSlash(programFolder);
  if (::access(own.c_str(), W_OK) == 0) return own;
  const bool isClosed =
      errno == EACCES || errno == EPERM || errno == EROFS || errno == ENOENT || errno == ENOTDIR;
  // Games that lie there are the player's, whatever a look at the folder says.
  std::error_code ignored;
  if (!isClosed || fs::exists(own + "Data/Tvgdb.dat", ignored)) return own;
  return DataHome() + "tarvolenix/";
}

void PrepareDataFolder(const std::string& programFolder, const std::string& dataFolder) {
  const std::string from = WithSlash(programFolder);
  const std::string to = WithSlash(dataFolder);
  std::error_code ignored;
  fs::create_directories(to + "Data", ignored);
  fs::create_directories(to + "AI Files", ignored);
  if (from == to) return;
  CopyMissing(from + "Data/", to + "Data/",
              [](const std::string& name) { return name.ends_with(".tvs"); });
  CopyMissing(from + "AI Files/", to + "AI Files/", [](const std::string&) { return true; });
}

std::string SettingsFileFor(const std::string& programFolder) {
  std::string portable = WithSlash(programFolder) + "Tarvolenix.conf";
  // Whatever stands there, be it a link that leads nowhere, is meant to be the settings.
  std::error_code ignored;
  if (fs::symlink_status(portable, ignored).type() != fs::file_type::not_found) return portable;
  return ConfigHome() + "Norlewick/Tarvolenix.conf";
}

std::string DefaultPostFolder() { return DataHome() + "tarvolenix/post/"; }

}  // namespace desktop
