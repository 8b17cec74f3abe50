// SPDX-License-Identifier: GPL-3.0-or-later
#include "post/maildir.h"

#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <sys/time.h>
#include <unistd.h>

#include <algorithm>
#include <atomic>
#include <cerrno>
#include <charconv>
#include <cstdio>
#include <ctime>
#include <memory>
#include <system_error>
#include <tuple>
#include <utility>

#include "desktop/posix_files.h"
#include "letters/mail_text.h"
#include "platform/mail_client.h"
#include "platform/text_fields.h"

namespace post {
namespace {

using platform::MailError;

[[noreturn]] void Fail(const std::string& action, const std::string& path) {
  const int error = errno;
  throw MailError("can't " + action + " " + path + ": " + std::generic_category().message(error));
}

/// What a folder's own permissions leave for what is made in it. The bit by which only owners may
/// remove their files isn't handed down: the box's reader removes what others delivered.
mode_t InheritedMode(const std::string& folder) {
  struct stat status {};
  if (::stat(folder.c_str(), &status) != 0) Fail("look at", folder);
  return status.st_mode & 02777;
}

std::string FolderAbove(const std::string& folder) {
  return folder.substr(0, folder.rfind('/', folder.size() - 2) + 1);
}

void MakeFolder(const std::string& folder) {
  if (::mkdir(folder.c_str(), 0700) == 0) {
    if (::chmod(folder.c_str(), InheritedMode(FolderAbove(folder))) != 0) Fail("make", folder);
  } else if (errno != EEXIST) {
    Fail("make", folder);
  }
}

std::string HostName() {
  char name[256] = {};
  if (::gethostname(name, sizeof name - 1) != 0 || !*name) return "localhost";
  return platform::ReplaceAll(platform::ReplaceAll(name, "/", "\\057"), ":", "\\072");
}

/// Microseconds since 1970, never the same twice in this process.
long long ArrivalStamp() {
  static std::atomic<long long> last = 0;
  timeval now{};
  ::gettimeofday(&now, nullptr);
  const long long micros = static_cast<long long>(now.tv_sec) * 1000000 + now.tv_usec;
  long long before = last;
  long long stamp = 0;
  do {
    stamp = std::max(micros, before + 1);
  } while (!last.compare_exchange_weak(before, stamp));
  return stamp;
}

/// The seconds, "M" and the microseconds, "P" and the process, and the machine.
std::string UniqueName() {
  const long long stamp = ArrivalStamp();
  return std::to_string(stamp / 1000000) + ".M" + std::to_string(stamp % 1000000) + "P" +
         std::to_string(::getpid()) + "." + HostName();
}

long long NumberAt(std::string_view text) {
  long long number = 0;
  std::from_chars(text.data(), text.data() + text.size(), number);
  return number;
}

/// Sorts by the time that every delivering program puts into its names; the microseconds are there
/// where it is careful.
std::tuple<long long, long long, std::string_view> ArrivalOrder(std::string_view id) {
  const auto point = id.find('.');
  if (point == std::string_view::npos) return {NumberAt(id), 0, id};
  const std::string_view middle = id.substr(point + 1, id.find('.', point + 1) - point - 1);
  const auto micros = middle.find('M');
  return {NumberAt(id), micros == std::string_view::npos ? 0 : NumberAt(middle.substr(micros + 1)),
          id};
}

/// The first `limit` bytes of a regular file; nothing where it is none, is gone or can't be read.
std::optional<std::string> StartOf(const std::string& path, std::size_t limit) {
  const int descriptor = ::open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK | O_NOFOLLOW);
  if (descriptor < 0) return std::nullopt;
  const std::unique_ptr<std::FILE, int (*)(std::FILE*)> file(::fdopen(descriptor, "rb"),
                                                             std::fclose);
  struct stat status {};
  if (!file || ::fstat(descriptor, &status) != 0 || !S_ISREG(status.st_mode)) return std::nullopt;
  std::string bytes(std::min(limit, static_cast<std::size_t>(status.st_size)), '\0');
  bytes.resize(std::fread(bytes.data(), 1, bytes.size(), file.get()));
  if (std::ferror(file.get())) return std::nullopt;
  return bytes;
}

struct CloseFolder {
  void operator()(DIR* folder) const { ::closedir(folder); }
};

/// A folder in another one; null where it is none, a link, or can't be read.
std::unique_ptr<DIR, CloseFolder> OpenFolder(int parent, const std::string& name) {
  const int descriptor =
      ::openat(parent, name.c_str(), O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC);
  DIR* const folder = descriptor < 0 ? nullptr : ::fdopendir(descriptor);
  if (descriptor >= 0 && !folder) ::close(descriptor);
  return std::unique_ptr<DIR, CloseFolder>(folder);
}

/// Changes with a file's content: its size and the time of its last change.
std::string StateOf(const std::string& path) {
  struct stat status {};
  if (::lstat(path.c_str(), &status) != 0) return {};
  return std::to_string(status.st_size) + '/' + std::to_string(status.st_mtim.tv_sec) + '.' +
         std::to_string(status.st_mtim.tv_nsec);
}

/// The bytes up to the blank line; nothing where the header doesn't end within its limit.
std::optional<std::string_view> HeaderOf(std::string_view bytes) {
  for (std::size_t end = bytes.find('\n'); end != std::string_view::npos;
       end = bytes.find('\n', end + 1)) {
    const std::string_view behind = bytes.substr(end + 1);
    if (behind.starts_with('\n') || behind.starts_with("\r\n")) return bytes.substr(0, end + 1);
  }
  return bytes.size() < letters::greatestHeader ? std::optional(bytes) : std::nullopt;
}

}  // namespace

void Maildir::Create() const {
  MakeFolder(folder_);
  for (const char* part : {"tmp/", "new/", "cur/"}) MakeFolder(folder_ + part);
}

/// Follows no link: whoever made the box in a shared folder may have laid one to other files.
void Maildir::RemoveAbandoned() const {
  constexpr std::time_t abandoned = 36L * 60 * 60;
  const auto box = OpenFolder(AT_FDCWD, folder_.substr(0, folder_.size() - 1));
  const auto temporary = box ? OpenFolder(::dirfd(box.get()), "tmp") : nullptr;
  if (!temporary) return;
  const int descriptor = ::dirfd(temporary.get());
  while (const dirent* const entry = ::readdir(temporary.get())) {
    struct stat status {};
    const bool known = ::fstatat(descriptor, entry->d_name, &status, AT_SYMLINK_NOFOLLOW) == 0;
    if (known && S_ISREG(status.st_mode) && std::time(nullptr) - status.st_mtime > abandoned) {
      ::unlinkat(descriptor, entry->d_name, 0);
    }
  }
}

void Maildir::Deliver(std::string_view bytes) const {
  const std::string name = UniqueName();
  const std::string temporary = folder_ + "tmp/" + name;
  desktop::PosixFiles files;
  try {
    files.Write(temporary, bytes);
    if (::chmod(temporary.c_str(), InheritedMode(folder_) & 0666) != 0) Fail("write", temporary);
    files.Rename(temporary, folder_ + "new/" + name);
  } catch (const std::exception&) {
    ::unlink(temporary.c_str());
    throw;
  }
}

std::vector<Maildir::Entry> Maildir::Entries() const {
  std::vector<Entry> entries;
  for (const char* part : {"new/", "cur/"}) {
    for (const std::string& name : desktop::PosixFiles().List(folder_ + part)) {
      if (name.starts_with('.')) continue;
      const auto info = name.find(':');
      Entry entry{folder_ + part + name, name.substr(0, info), {}, part[0] == 'n'};
      if (info != std::string::npos && name.compare(info, 3, ":2,") == 0) {
        entry.flags = name.substr(info + 3);
      }
      entries.push_back(std::move(entry));
    }
  }
  return entries;
}

std::optional<Maildir::Entry> Maildir::Find(const std::string& id) const {
  for (Entry& entry : Entries()) {
    if (entry.id == id) return std::move(entry);
  }
  return std::nullopt;
}

/// What is gone by now, or is no file, isn't missed.
void Maildir::NoteUnread(const std::string& path) {
  const int error = errno;
  struct stat status {};
  const bool isGone = ::lstat(path.c_str(), &status) != 0 && errno == ENOENT;
  if (isGone || (status.st_mode != 0 && !S_ISREG(status.st_mode))) return;
  problem_ = "The mail " + path + " can't be read: " + std::generic_category().message(error) + ".";
}

std::optional<letters::FetchedMail> Maildir::Read(const Entry& entry) {
  std::string state = StateOf(entry.path);
  const auto known = foreign_.find(entry.id);
  if (known != foreign_.end() && known->second == state) return std::nullopt;
  const auto start = StartOf(entry.path, letters::greatestHeader);
  if (!start) {  // perhaps readable next time
    NoteUnread(entry.path);
    return std::nullopt;
  }
  try {
    const auto header = HeaderOf(*start);
    if (header && letters::CanBeOurs(*header)) {
      const auto bytes = StartOf(entry.path, letters::greatestMail + 1);
      if (!bytes) {
        NoteUnread(entry.path);
        return std::nullopt;
      }
      if (bytes->size() <= letters::greatestMail) {
        letters::FetchedMail mail = letters::ParseMail(*bytes);
        mail.id = entry.id;
        mail.read = entry.IsRead();
        return mail;
      }
    }
  } catch (const MailError&) {
    // what can't be read as a mail isn't one
  } catch (const std::exception&) {
    return std::nullopt;  // no fault of the mail's, perhaps
  }
  foreign_[entry.id] = std::move(state);
  return std::nullopt;
}

/// In the order of arrival, behind those that the last looks have brought.
std::vector<Maildir::Entry> Maildir::EntriesToBring(bool unreadOnly) const {
  std::vector<Entry> entries = Entries();
  std::erase_if(entries, [this, unreadOnly](const Entry& entry) {
    return entry.IsTrashed() || (unreadOnly && entry.IsRead()) ||
           (!brought_.empty() && ArrivalOrder(entry.id) <= ArrivalOrder(brought_));
  });
  std::sort(entries.begin(), entries.end(),
            [](const Entry& a, const Entry& b) { return ArrivalOrder(a.id) < ArrivalOrder(b.id); });
  return entries;
}

std::vector<letters::FetchedMail> Maildir::List(bool unreadOnly) {
  problem_.clear();
  std::vector<letters::FetchedMail> mails;
  std::size_t size = 0;
  for (const Entry& entry : EntriesToBring(unreadOnly)) {
    if (!mails.empty() && mails.back().id == entry.id) continue;  // seen on its way to "cur"
    if (size >= lookSize_) {
      brought_ = mails.back().id;
      return mails;
    }
    if (auto mail = Read(entry)) {
      size += mail->Size();
      mails.push_back(std::move(*mail));
    }
  }
  brought_.clear();
  return mails;
}

void Maildir::MarkRead(const std::string& id) const {
  // Other programs may move the file between the look and the rename: then look again.
  for (int attempt = 0; attempt < 10; ++attempt) {
    const auto entry = Find(id);
    if (!entry || entry->IsRead()) return;
    std::string flags = entry->flags;
    if (flags.find('S') == std::string::npos) flags += 'S';
    std::sort(flags.begin(), flags.end());
    const std::string marked = (folder_ + "cur/").append(id).append(":2,").append(flags);
    if (std::rename(entry->path.c_str(), marked.c_str()) == 0) return;
    if (errno != ENOENT) Fail("mark", entry->path);
  }
}

void Maildir::Remove(const std::string& id) const {
  // Other programs may move the file between the look and the removal: then look again.
  while (const auto entry = Find(id)) {
    if (::unlink(entry->path.c_str()) == 0) return;
    if (errno != ENOENT) Fail("remove", entry->path);
  }
}

}  // namespace post
