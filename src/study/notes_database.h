// SPDX-License-Identifier: GPL-3.0-or-later
// One SQLite file while it is open.
#pragma once

#include <chrono>
#include <cstdint>
#include <functional>
#include <initializer_list>
#include <memory>
#include <stdexcept>
#include <string>
#include <variant>

struct sqlite3;
struct sqlite3_stmt;

namespace study {

enum class Trouble { Damaged, Locked, Newer, Other };

struct DatabaseError : std::runtime_error {
  DatabaseError(Trouble kind, const std::string& why) : std::runtime_error(why), trouble(kind) {}
  Trouble trouble;
};

/// Every operation raises DatabaseError. A file whose tables aren't those that a statement names is
/// damaged.
class NotesDatabase {
 public:
  using Value = std::variant<std::int64_t, std::string>;

  /// Where there is no such file, `create` makes one that only the user can read; else it is an
  /// error.
  /// Another program's work is waited for as long as the patience says.
  NotesDatabase(const std::string& path, bool create,
                std::chrono::milliseconds patience = std::chrono::seconds(1));

  /// A row of an answer, while it is looked at.
  class Row {
   public:
    explicit Row(sqlite3_stmt& statement) : statement_(statement) {}
    std::int64_t Number(int column) const;
    std::string Text(int column) const;

   private:
    sqlite3_stmt& statement_;
  };

  /// Runs one statement with its values, and shows each row of its answer.
  void Run(const std::string& sql, std::initializer_list<Value> values = {},
           const std::function<void(const Row&)>& seen = {});

  /// All of the work, or nothing of it.
  void InOneStep(const std::function<void()>& work);

 private:
  void Check(int code) const;

  std::unique_ptr<sqlite3, int (*)(sqlite3*)> database_;
};

}  // namespace study
