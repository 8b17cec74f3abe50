// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/posix_files.h"

#include <dirent.h>
#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <atomic>
#include <cerrno>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <memory>
#include <system_error>
#include <thread>

namespace desktop {
namespace {

[[noreturn]] void Fail(const std::string& action, const std::string& path) {
  const int error = errno;
  throw platform::FileError("can't " + action + " " + path + ": " +
                            std::generic_category().message(error));
}

/// An open file that is closed at the latest with its scope.
class OpenFile {
 public:
  OpenFile(const std::string& path, int flags, const std::string& action) : path_(path) {
    do {
      descriptor_ = ::open(path.c_str(), flags | O_CLOEXEC | O_NONBLOCK, 0666);
    } while (descriptor_ < 0 && errno == EINTR);
    if (descriptor_ < 0) Fail(action, path);
  }
  ~OpenFile() {
    if (descriptor_ >= 0) ::close(descriptor_);
  }
  OpenFile(const OpenFile&) = delete;
  OpenFile& operator=(const OpenFile&) = delete;

  std::string ReadAll() const {
    struct stat status {};
    if (::fstat(descriptor_, &status) != 0) Fail("read", path_);
    if (!S_ISREG(status.st_mode)) throw platform::FileError("no regular file: " + path_);
    std::string content(static_cast<std::size_t>(status.st_size), '\0');
    std::size_t filled = 0;
    // The file may grow or shrink meanwhile: only a read of nothing is its end.
    while (true) {
      if (filled == content.size()) content.resize(filled + 4096);
      const ssize_t got = ::read(descriptor_, content.data() + filled, content.size() - filled);
      if (got < 0 && errno == EINTR) continue;
      if (got < 0) Fail("read", path_);
      if (got == 0) break;
      filled += static_cast<std::size_t>(got);
    }
    content.resize(filled);
    return content;
  }

  void WriteAll(std::string_view content) const {
    while (!content.empty()) {
      const ssize_t put = ::write(descriptor_, content.data(), content.size());
      if (put < 0 && errno == EINTR) continue;
      if (put < 0) Fail("write", path_);
      content.remove_prefix(static_cast<std::size_t>(put));
    }
  }

  /// False with errno set.
  bool TrySync() const {
    while (::fsync(descriptor_) != 0) {
      if (errno != EINTR) return false;
    }
    return true;
  }

  void Sync() const {
    if (!TrySync()) Fail("write", path_);
  }

  /// False while somebody else holds it. Closing the file gives it back.
  bool TryLock() const {
    if (::flock(descriptor_, LOCK_EX | LOCK_NB) == 0) return true;
    if (errno == EWOULDBLOCK || errno == EINTR) return false;
    // This file system knows no locks.
    if (errno == ENOLCK || errno == EOPNOTSUPP || errno == EINVAL) return true;
    Fail("lock", path_);
  }

  void Close() {
    const int descriptor = descriptor_;
    descriptor_ = -1;
    // An interrupted close has closed all the same.
    if (::close(descriptor) != 0 && errno != EINTR) Fail("write", path_);
  }

 private:
  std::string path_;
  int descriptor_ = -1;
};

/// A new or renamed entry is only safe when its folder is on the disk too.
void SyncFolderOf(const std::string& path) {
  const auto slash = path.rfind('/');
  const std::string folder = slash == std::string::npos ? "." : path.substr(0, slash + 1);
  const OpenFile file(folder, O_RDONLY | O_DIRECTORY, "write");
  // Some network file systems can't do this for a folder, and have nothing to do either.
  if (!file.TrySync() && errno != EINVAL && errno != ENOTSUP) Fail("write", folder);
}

/// Behind a rename that has taken place: what was put there counts, and it was on the disk before.
/// A crash now leaves the old file or the new one, both whole. To raise would tell the caller that
/// the old one still stands.
void SyncFolderAsFarAsPossible(const std::string& path) {
  constexpr int attempts = 2;
  for (int attempt = 1; attempt <= attempts; ++attempt) {
    try {
      return SyncFolderOf(path);
    } catch (const platform::FileError&) {
      // Once more, and then the disk is left to its own pace.
    }
  }
}

class FileLock : public platform::HeldLock {
 public:
  explicit FileLock(const std::string& path) : file_(path, O_RDWR | O_CREAT, "lock") {}

  bool Try() const { return file_.TryLock(); }

 private:
  OpenFile file_;
};

constexpr std::chrono::seconds longestWait{10};

/// Where a link leads; a path that is none, or leads nowhere, stays as it is.
std::string BehindLinks(const std::string& path) {
  const std::unique_ptr<char, void (*)(void*)> place(::realpath(path.c_str(), nullptr), std::free);
  return place ? place.get() : path;
}

/// The coarsest clock of a file system, that of a memory stick, strikes every two seconds. A time
/// that lies ahead is another machine's, and tells nothing.
bool WasJustChanged(const struct stat& status) {
  return status.st_ctim.tv_sec + 3 > std::time(nullptr);
}

std::string NewNumber() {
  static std::atomic<long> last = 0;
  return std::to_string(++last).append(" new ");
}

bool IsFolder(const std::string& path, const dirent& entry) {
  if (entry.d_type == DT_DIR) return true;
  if (entry.d_type != DT_LNK && entry.d_type != DT_UNKNOWN) return false;
  struct stat status {};
  return ::stat(path.c_str(), &status) == 0 && S_ISDIR(status.st_mode);
}

}  // namespace

bool PosixFiles::Exists(const std::string& path) {
  struct stat status {};
  if (::stat(path.c_str(), &status) == 0) return true;
  if (errno != ENOENT && errno != ENOTDIR) Fail("look for", path);
  // A link to a drive that isn't there just now: its file may well exist.
  if (::lstat(path.c_str(), &status) == 0 && S_ISLNK(status.st_mode)) {
    throw platform::FileError("the link " + path + " leads nowhere");
  }
  return false;
}

std::string PosixFiles::Read(const std::string& path) {
  return OpenFile(path, O_RDONLY, "read").ReadAll();
}

std::string PosixFiles::Stamp(const std::string& path) {
  struct stat status {};
  if (::stat(path.c_str(), &status) != 0) {
    if (errno == ENOENT || errno == ENOTDIR) return {};
    Fail("look for", path);
  }
  // A replaced file has another number, a rewritten one another time. One more change within the
  // same stroke of the file system's clock would show in neither.
  std::string stamp = WasJustChanged(status) ? NewNumber() : "";
  for (const auto part :
       {static_cast<long long>(status.st_ino), static_cast<long long>(status.st_size),
        static_cast<long long>(status.st_mtim.tv_sec),
        static_cast<long long>(status.st_mtim.tv_nsec),
        static_cast<long long>(status.st_ctim.tv_sec),
        static_cast<long long>(status.st_ctim.tv_nsec)}) {
    stamp += std::to_string(part) + " ";
  }
  return stamp;
}

void PosixFiles::Write(const std::string& path, std::string_view content) {
  OpenFile file(path, O_WRONLY | O_CREAT | O_TRUNC, "write");
  file.WriteAll(content);
  file.Sync();
  file.Close();
  SyncFolderOf(path);
}

void PosixFiles::Rename(const std::string& from, const std::string& to) {
  const std::string place = BehindLinks(to);
  struct stat replaced {};
  if (::stat(place.c_str(), &replaced) == 0 && S_ISREG(replaced.st_mode)) {
    // What its owner has hidden from others stays hidden. Where a file system can't do that, a save
    // counts for more.
    static_cast<void>(::chmod(from.c_str(), replaced.st_mode & 0777));
  }
  const std::string beside = place + ".new";
  if (std::rename(from.c_str(), place.c_str()) == 0) {
    SyncFolderAsFarAsPossible(place);
  } else if (errno == EXDEV && from != beside) {  // a link led to another file system
    Write(beside, Read(from));
    Rename(beside, place);
    ::unlink(from.c_str());  // a temporary name: what stays behind is overwritten
  } else {
    Fail("rename", from);
  }
}

void PosixFiles::Remove(const std::string& path) {
  if (::unlink(path.c_str()) != 0) Fail("remove", path);
}

std::vector<std::string> PosixFiles::List(const std::string& folder) {
  const std::unique_ptr<DIR, int (*)(DIR*)> entries(::opendir(folder.c_str()), ::closedir);
  if (!entries) Fail("list", folder);
  const std::string prefix = folder.ends_with('/') ? folder : folder + '/';
  std::vector<std::string> names;
  while (true) {
    errno = 0;  // readdir tells its end and its failure by the same result
    const dirent* entry = ::readdir(entries.get());
    if (!entry) break;
    if (!IsFolder(prefix + entry->d_name, *entry)) names.emplace_back(entry->d_name);
  }
  if (errno != 0) Fail("list", folder);
  return names;
}

std::unique_ptr<platform::HeldLock> PosixFiles::Lock(const std::string& path) {
  auto lock = std::make_unique<FileLock>(path);
  const auto givingUp = std::chrono::steady_clock::now() + longestWait;
  while (!lock->Try()) {
    if (std::chrono::steady_clock::now() > givingUp) {
      throw platform::FileError("another program keeps " + path + " locked");
    }
    std::this_thread::sleep_for(std::chrono::milliseconds(5));
  }
  return lock;
}

std::unique_ptr<platform::HeldLock> PosixFiles::TryLock(const std::string& path) {
  auto lock = std::make_unique<FileLock>(path);
  return lock->Try() ? std::move(lock) : nullptr;
}

void PosixFiles::MakeFolder(const std::string& path) {
  if (::mkdir(path.c_str(), 0700) != 0 && errno != EEXIST) Fail("make", path);
}

}  // namespace desktop
