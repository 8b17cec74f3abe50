// SPDX-License-Identifier: GPL-3.0-or-later
#include "post/accounts/file_passwords.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <charconv>
#include <exception>
#include <filesystem>
#include <string_view>
#include <utility>

#include "desktop/posix_files.h"
#include "post/accounts/mail_account.h"

namespace post {
namespace {

namespace fs = std::filesystem;

constexpr mode_t ownersOnly = S_IRUSR | S_IWUSR;

bool IsPlain(char c) {
  return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9');
}

std::string Escaped(std::string_view text) {
  constexpr const char* digits = "0123456789ABCDEF";
  std::string escaped;
  for (const char c : text) {
    const auto byte = static_cast<unsigned char>(c);
    if (IsPlain(c)) {
      escaped += c;
    } else {
      escaped.append({'%', digits[byte / 16], digits[byte % 16]});
    }
  }
  return escaped;
}

/// Nothing where the text was never written here.
std::optional<std::string> Unescaped(std::string_view text) {
  std::string plain;
  while (!text.empty()) {
    std::size_t taken = 1;
    int byte = static_cast<unsigned char>(text.front());
    if (text.front() == '%') {
      if (text.size() < 3) return std::nullopt;
      const auto [end, error] = std::from_chars(text.data() + 1, text.data() + 3, byte, 16);
      if (error != std::errc{} || end != text.data() + 3) return std::nullopt;
      taken = 3;
    } else if (!IsPlain(text.front())) {
      return std::nullopt;
    }
    plain += static_cast<char>(byte);
    text.remove_prefix(taken);
  }
  return plain;
}

/// What a key's line begins with.
std::string LineStart(const std::string& key) { return Escaped(key) + ' '; }

/// Takes the first line, without its end, from the front of `text`.
std::string_view TakeLine(std::string_view& text) {
  const std::string_view line = text.substr(0, text.find('\n'));
  text.remove_prefix(std::min(text.size(), line.size() + 1));
  return line;
}

/// It stays open to others, whatever one does.
struct OpenToOthers : platform::FileError {
  using FileError::FileError;
};

void CloseToOthers(const std::string& path) {
  struct stat status {};
  static_cast<void>(::chmod(path.c_str(), ownersOnly));
  const bool isClosed =
      ::stat(path.c_str(), &status) == 0 && (status.st_mode & (S_IRWXG | S_IRWXO)) == 0;
  if (!isClosed) throw OpenToOthers("can't close " + path + " to others");
}

std::string Content(const std::string& path) {
  desktop::PosixFiles files;
  if (!files.Exists(path)) return {};
  CloseToOthers(path);  // a copied or restored one may have come out open
  return files.Read(path);
}

/// An empty file that nobody else could ever open.
void CreateForOwner(const std::string& path) {
  ::unlink(path.c_str());  // of a run that was cut off
  const int file = ::open(path.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, ownersOnly);
  if (file < 0) throw platform::FileError("can't create " + path);
  ::close(file);
  CloseToOthers(path);
}

void Replace(const std::string& path, const std::string& content) {
  desktop::PosixFiles files;
  const std::string beside = path + ".new";
  CreateForOwner(beside);
  files.Write(beside, content);
  files.Rename(beside, path);
}

/// Puts `line` in the place of those that begin with `start`; none where it is empty.
bool Change(const std::string& file, const std::string& start, const std::string& line) {
  try {
    if (const fs::path folder = fs::path(file).parent_path(); !folder.empty()) {
      fs::create_directories(folder);
    }
    const std::string path = fs::weakly_canonical(file).string();  // a link stays a link
    const auto lock = desktop::PosixFiles().Lock(path + ".lock");
    const std::string before = Content(path);
    std::string after;
    for (std::string_view rest = before; !rest.empty();) {
      const std::string_view other = TakeLine(rest);
      if (!other.starts_with(start)) after.append(other) += '\n';
    }
    after += line;
    if (after != before) Replace(path, after);
    return true;
  } catch (const std::exception&) {
    return false;
  }
}

}  // namespace

std::optional<std::string> FilePasswords::Read(const std::string& key) {
  try {
    const std::string start = LineStart(key);
    const std::string content = Content(path_);
    for (std::string_view rest = content; !rest.empty();) {
      const std::string_view line = TakeLine(rest);
      if (line.starts_with(start)) return Unescaped(line.substr(start.size()));
    }
  } catch (const OpenToOthers&) {
    if (!std::exchange(isTold_, true)) {
      ReportAccountTrouble("Others on this computer can read \"" + path_ +
                           "\", and Tarvolenix can't change that: it doesn't use the passwords "
                           "in it.");
    }
  } catch (const std::exception&) {
    // what can't be read isn't kept
  }
  return std::nullopt;
}

bool FilePasswords::Write(const std::string& key, const std::string& password) {
  return Change(path_, LineStart(key), LineStart(key) + Escaped(password) + '\n');
}

bool FilePasswords::Forget(const std::string& key) {
  return !Read(key) || Change(path_, LineStart(key), {});
}

}  // namespace post
