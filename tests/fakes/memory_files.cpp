// SPDX-License-Identifier: GPL-3.0-or-later
#include "fakes/memory_files.h"

namespace fakes {

void MemoryFiles::FailOperation(int number) { operationsUntilFailure_ = number; }

bool MemoryFiles::NextFails(const std::string& operation) {
  operations.push_back(operation);
  return operationsUntilFailure_ > 0 && --operationsUntilFailure_ == 0;
}

std::string MemoryFiles::Read(const std::string& path) {
  const std::lock_guard lock(mutex_);
  if (NextFails("read " + path)) throw platform::FileError("can't read " + path);
  const auto found = content.find(path);
  if (found == content.end()) throw platform::FileError("no file " + path);
  return found->second;
}

void MemoryFiles::Write(const std::string& path, std::string_view text) {
  const std::lock_guard lock(mutex_);
  if (NextFails("write " + path)) {
    content[path] = text.substr(0, text.size() / 2);
    throw platform::FileError("disk full at " + path);
  }
  content[path] = text;
}

void MemoryFiles::Rename(const std::string& from, const std::string& to) {
  const std::lock_guard lock(mutex_);
  if (NextFails("rename " + from + " " + to)) throw platform::FileError("can't rename " + from);
  const auto found = content.find(from);
  if (found == content.end()) throw platform::FileError("no file " + from);
  content[to] = found->second;
  content.erase(from);
}

void MemoryFiles::Remove(const std::string& path) {
  const std::lock_guard lock(mutex_);
  if (NextFails("remove " + path)) throw platform::FileError("can't remove " + path);
  if (content.erase(path) == 0) throw platform::FileError("no file " + path);
}

std::vector<std::string> MemoryFiles::List(const std::string& folder) {
  const std::lock_guard lock(mutex_);
  if (NextFails("list " + folder)) throw platform::FileError("can't list " + folder);
  std::vector<std::string> names;
  for (const auto& [path, text] : content) {
    if (path.starts_with(folder) && path.find('/', folder.size()) == std::string::npos) {
      names.push_back(path.substr(folder.size()));
    }
  }
  return names;
}

std::unique_ptr<platform::HeldLock> MemoryFiles::TryLock(const std::string& path) {
  struct Held : platform::HeldLock {
    Held(std::set<std::string>& all, const std::string& path)
        : locked(all), place(all.insert(path).first) {}
    ~Held() override { locked.erase(place); }
    Held(const Held&) = delete;
    Held& operator=(const Held&) = delete;
    std::set<std::string>& locked;
    std::set<std::string>::iterator place;
  };
  if (locked.contains(path)) return nullptr;
  return std::make_unique<Held>(locked, path);
}

std::unique_ptr<platform::HeldLock> MemoryFiles::Lock(const std::string& path) {
  auto lock = TryLock(path);
  if (!lock) throw platform::FileError("locked: " + path);
  return lock;
}

}  // namespace fakes
