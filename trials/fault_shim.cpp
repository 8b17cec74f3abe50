// SPDX-License-Identifier: GPL-3.0-or-later
// Preloaded into the program, it counts the file operations below one folder and lets one of them
// go wrong. The program is told what to do by its environment:
//
//   FAULT_BELOW=FOLDER  what is watched, without links in it
//   FAULT_TRACE=FILE    gets a line "THREAD.NUMBER KIND PATH" for each operation
//   FAULT_AT=T.N        the operation that goes wrong: the N-th one of thread T
//   FAULT_IS=FAULT      an errno as a number; "short": done for half of the bytes only; "full":
//   that,
//                       and from then on there is no space; "kill-before", "kill-after": the
//                       process ends there, as by a power cut for it alone
//
// Each thread counts for itself, the main one is thread 1: two threads at work don't take turns the
// same way twice. Of the trace, the line where the fault took place ends in " !".
#include <dirent.h>
#include <dlfcn.h>
#include <fcntl.h>
#include <limits.h>
#include <signal.h>
#include <sys/file.h>
#include <sys/sendfile.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <unistd.h>

#include <atomic>
#include <cerrno>
#include <cstdarg>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <string_view>

namespace {

// Not std::string: the first calls come before and the last ones after this library's own lifetime.
struct Orders {
  const char* below = std::getenv("FAULT_BELOW");
  const char* at = std::getenv("FAULT_AT");
  const char* is = std::getenv("FAULT_IS");
  int trace = OpenTrace();

  Orders() { unsetenv("LD_PRELOAD"); }  // the program's own children go unharmed

  /// High up, so that the program's own descriptors are what they always are.
  static int OpenTrace() {
    const char* file = std::getenv("FAULT_TRACE");
    if (!file) return -1;
    const long low =
        syscall(SYS_openat, AT_FDCWD, file, O_WRONLY | O_APPEND | O_CREAT | O_CLOEXEC, 0600);
    const long high = syscall(SYS_fcntl, low, F_DUPFD_CLOEXEC, 900);
    syscall(SYS_close, low);
    return static_cast<int>(high);
  }
};

const Orders& TheOrders() {
  static const Orders& orders = *new Orders;
  return orders;
}

std::atomic<int> threads = 1;
thread_local int threadNumber = 0;
thread_local int operationNumber = 0;
std::atomic<bool> diskIsFull = false;

std::string PathOf(int descriptor) {
  char path[PATH_MAX];
  const std::string link = "/proc/self/fd/" + std::to_string(descriptor);
  const long length = syscall(SYS_readlink, link.c_str(), path, sizeof path);
  return length > 0 ? std::string(path, static_cast<std::size_t>(length)) : std::string{};
}

std::string PathAt(int folder, const char* path) {
  if (!path) return {};
  if (*path == '/') return path;
  if (!*path) return PathOf(folder);
  char here[PATH_MAX] = {};
  if (folder == AT_FDCWD) syscall(SYS_getcwd, here, sizeof here);
  return (folder == AT_FDCWD ? here : PathOf(folder)) + '/' + path;
}

/// One call that the program makes, from before it to behind it. Leaves errno alone.
class Operation {
 public:
  Operation(const char* kind, const std::string& path) {
    const int error = errno;
    const Orders& orders = TheOrders();
    isWatched_ = orders.below && path.starts_with(orders.below);
    if (isWatched_) Count(orders, kind, path);
    errno = error;
  }

  /// True where the call is not to take place; errno then tells why.
  bool Fails() const {
    if (!is_) return false;
    const int error = std::atoi(is_);
    if (error > 0) errno = error;
    return error > 0;
  }

  /// Of a write, besides: what there is no space for. Pipes and the like want none.
  bool FailsForSpace() const {
    if (isWatched_ && diskIsFull) errno = ENOSPC;
    return (isWatched_ && diskIsFull) || Fails();
  }

  /// How many of `bytes` are to be done.
  std::size_t Share(std::size_t bytes) const {
    if (Is("full")) diskIsFull = true;
    return (Is("short") || Is("full")) && bytes > 1 ? bytes / 2 : bytes;
  }

  ~Operation() {
    if (Is("kill-after")) Kill();
  }

  Operation(const Operation&) = delete;
  Operation& operator=(const Operation&) = delete;

 private:
  bool Is(std::string_view fault) const { return is_ && is_ == fault; }

  static void Kill() { syscall(SYS_kill, getpid(), SIGKILL); }

  void Count(const Orders& orders, const char* kind, const std::string& path) {
    if (threadNumber == 0) threadNumber = gettid() == getpid() ? 1 : ++threads;
    const std::string at = std::to_string(threadNumber) + '.' + std::to_string(++operationNumber);
    if (orders.at && at == orders.at) is_ = orders.is;
    const std::string line = at + ' ' + kind + ' ' + path + (is_ ? " !\n" : "\n");
    if (orders.trace >= 0) syscall(SYS_write, orders.trace, line.data(), line.size());
    if (Is("kill-before")) Kill();
  }

  bool isWatched_ = false;
  const char* is_ = nullptr;
};

template <typename Function>
Function* Next(const char* name) {
  return reinterpret_cast<Function*>(dlsym(RTLD_NEXT, name));
}

bool Creates(int flags) { return flags & O_CREAT || (flags & O_TMPFILE) == O_TMPFILE; }

/// Creating is told apart from opening: it changes the folder.
const char* KindOfOpening(int flags) {
  if (Creates(flags)) return "create";
  return flags & (O_WRONLY | O_RDWR) ? "open-to-write" : "open";
}

const char* KindOfOpening(const char* mode) {
  return *mode == 'r' ? (mode[1] == '+' ? "open-to-write" : "open") : "create";
}

}  // namespace

// The function of the same name behind this library.
#define REAL(name) static auto* const real = Next<decltype(::name)>(#name)

// A call that names a path, or two, or a descriptor, and tells its failure by `failed`.
#define WATCH(type, name, failed, kind, path, parameters, arguments, specifier) \
  extern "C" type name parameters specifier {                                   \
    REAL(name);                                                                 \
    const Operation operation(kind, path);                                      \
    if (operation.Fails()) return failed;                                       \
    return real arguments;                                                      \
  }
#define PLAIN(name, kind, path, parameters, arguments) \
  WATCH(int, name, -1, kind, path, parameters, arguments, noexcept)
#define HERE(path) PathAt(AT_FDCWD, path)

// Opening. The mode of a new file stands behind the flags, or nothing does.
#define OPEN(name, folder, parameters, arguments)                          \
  extern "C" int name parameters {                                         \
    REAL(name);                                                            \
    va_list rest;                                                          \
    va_start(rest, flags);                                                 \
    const mode_t mode = Creates(flags) ? va_arg(rest, mode_t) : 0;         \
    va_end(rest);                                                          \
    const Operation operation(KindOfOpening(flags), PathAt(folder, path)); \
    if (operation.Fails()) return -1;                                      \
    return real arguments;                                                 \
  }
OPEN(open, AT_FDCWD, (const char* path, int flags, ...), (path, flags, mode))
OPEN(open64, AT_FDCWD, (const char* path, int flags, ...), (path, flags, mode))
OPEN(openat, folder, (int folder, const char* path, int flags, ...), (folder, path, flags, mode))
OPEN(openat64, folder, (int folder, const char* path, int flags, ...), (folder, path, flags, mode))
WATCH(FILE*, fopen, nullptr, KindOfOpening(mode), HERE(path), (const char* path, const char* mode),
      (path, mode), )
WATCH(FILE*, fopen64, nullptr, KindOfOpening(mode), HERE(path),
      (const char* path, const char* mode), (path, mode), )

// Reading and writing.
#define READ(name, parameters, arguments)                  \
  extern "C" ssize_t name parameters {                     \
    REAL(name);                                            \
    const Operation operation("read", PathOf(descriptor)); \
    if (operation.Fails()) return -1;                      \
    count = operation.Share(count);                        \
    return real arguments;                                 \
  }
READ(read, (int descriptor, void* bytes, size_t count), (descriptor, bytes, count))
READ(pread, (int descriptor, void* bytes, size_t count, off_t from),
     (descriptor, bytes, count, from))
READ(pread64, (int descriptor, void* bytes, size_t count, off64_t from),
     (descriptor, bytes, count, from))

#define WRITE(name, parameters, arguments, specifier)       \
  extern "C" ssize_t name parameters specifier {            \
    REAL(name);                                             \
    const Operation operation("write", PathOf(descriptor)); \
    if (operation.FailsForSpace()) return -1;               \
    count = operation.Share(count);                         \
    return real arguments;                                  \
  }
WRITE(write, (int descriptor, const void* bytes, size_t count), (descriptor, bytes, count), )
WRITE(pwrite, (int descriptor, const void* bytes, size_t count, off_t to),
      (descriptor, bytes, count, to), )
WRITE(pwrite64, (int descriptor, const void* bytes, size_t count, off64_t to),
      (descriptor, bytes, count, to), )
WRITE(sendfile, (int descriptor, int from, off_t* offset, size_t count),
      (descriptor, from, offset, count), noexcept)

extern "C" ssize_t writev(int descriptor, const iovec* parts, int count) {
  REAL(writev);
  const Operation operation("write", PathOf(descriptor));
  if (operation.FailsForSpace()) return -1;
  return real(descriptor, parts, static_cast<int>(operation.Share(static_cast<size_t>(count))));
}

/// The C library's own buffers call none of the above.
extern "C" size_t fread(void* bytes, size_t size, size_t count, FILE* file) {
  REAL(fread);
  const Operation operation("read", PathOf(fileno(file)));
  if (operation.Fails()) {
    file->_flags |= _IO_ERR_SEEN;
    return 0;
  }
  return real(bytes, size, count, file);
}

// What makes it last, and ends it. A failing close has closed all the same.
#define DESCRIPTOR(name, specifier) \
  WATCH(int, name, -1, #name, PathOf(descriptor), (int descriptor), (descriptor), specifier)
DESCRIPTOR(fsync, )
DESCRIPTOR(fdatasync, )

extern "C" int close(int descriptor) {
  REAL(close);
  const Operation operation("close", PathOf(descriptor));
  const int result = real(descriptor);
  return operation.Fails() ? -1 : result;
}

extern "C" int fclose(FILE* file) {
  REAL(fclose);
  const Operation operation("close", PathOf(fileno(file)));
  const int result = real(file);
  return operation.Fails() ? EOF : result;
}

PLAIN(flock, "flock", PathOf(descriptor), (int descriptor, int how), (descriptor, how))
PLAIN(ftruncate, "truncate", PathOf(descriptor), (int descriptor, off_t length),
      (descriptor, length))
PLAIN(ftruncate64, "truncate", PathOf(descriptor), (int descriptor, off64_t length),
      (descriptor, length))
PLAIN(fchmod, "chmod", PathOf(descriptor), (int descriptor, mode_t mode), (descriptor, mode))
PLAIN(chmod, "chmod", HERE(path), (const char* path, mode_t mode), (path, mode))
PLAIN(fchmodat, "chmod", PathAt(folder, path),
      (int folder, const char* path, mode_t mode, int flag), (folder, path, mode, flag))

// Names. Of two, the new one stands for the operation.
PLAIN(rename, "rename", HERE(to), (const char* from, const char* to), (from, to))
PLAIN(renameat, "rename", PathAt(folder, to),
      (int old, const char* from, int folder, const char* to), (old, from, folder, to))
PLAIN(renameat2, "rename", PathAt(folder, to),
      (int old, const char* from, int folder, const char* to, unsigned flags),
      (old, from, folder, to, flags))
PLAIN(link, "link", HERE(to), (const char* from, const char* to), (from, to))
PLAIN(linkat, "link", PathAt(folder, to),
      (int old, const char* from, int folder, const char* to, int flags),
      (old, from, folder, to, flags))
PLAIN(unlink, "unlink", HERE(path), (const char* path), (path))
PLAIN(unlinkat, "unlink", PathAt(folder, path), (int folder, const char* path, int flags),
      (folder, path, flags))
PLAIN(remove, "unlink", HERE(path), (const char* path), (path))
PLAIN(mkdir, "mkdir", HERE(path), (const char* path, mode_t mode), (path, mode))
PLAIN(mkdirat, "mkdir", PathAt(folder, path), (int folder, const char* path, mode_t mode),
      (folder, path, mode))

// Looking.
PLAIN(stat, "stat", HERE(path), (const char* path, struct stat* status), (path, status))
PLAIN(stat64, "stat", HERE(path), (const char* path, struct stat64* status), (path, status))
PLAIN(lstat, "stat", HERE(path), (const char* path, struct stat* status), (path, status))
PLAIN(lstat64, "stat", HERE(path), (const char* path, struct stat64* status), (path, status))
PLAIN(fstat, "stat", PathOf(descriptor), (int descriptor, struct stat* status),
      (descriptor, status))
PLAIN(fstat64, "stat", PathOf(descriptor), (int descriptor, struct stat64* status),
      (descriptor, status))
PLAIN(fstatat, "stat", PathAt(folder, path),
      (int folder, const char* path, struct stat* status, int flags), (folder, path, status, flags))
PLAIN(fstatat64, "stat", PathAt(folder, path),
      (int folder, const char* path, struct stat64* status, int flags),
      (folder, path, status, flags))
PLAIN(statx, "stat", PathAt(folder, path),
      (int folder, const char* path, int flags, unsigned mask, struct statx* status),
      (folder, path, flags, mask, status))
PLAIN(access, "stat", HERE(path), (const char* path, int how), (path, how))
PLAIN(faccessat, "stat", PathAt(folder, path), (int folder, const char* path, int how, int flags),
      (folder, path, how, flags))
WATCH(char*, realpath, nullptr, "stat", HERE(path), (const char* path, char* place), (path, place),
      noexcept)
WATCH(DIR*, opendir, nullptr, "opendir", HERE(path), (const char* path), (path), )
WATCH(dirent*, readdir, nullptr, "readdir", PathOf(dirfd(folder)), (DIR * folder), (folder), )
WATCH(dirent64*, readdir64, nullptr, "readdir", PathOf(dirfd(folder)), (DIR * folder), (folder), )
