// SPDX-License-Identifier: GPL-3.0-or-later
// The file keeps SQLite's own journal beside it during a change and nothing at other times. The
// other way, a log that is written ahead, needs memory that processes share, which a home folder on
// the network doesn't have, and it would make of the one file three.
#include "study/notes_database.h"

#include <sqlite3.h>

#include <filesystem>

namespace study {

namespace {

Trouble KindOf(int code) {
  switch (code & 0xff) {
    case SQLITE_CORRUPT:
    case SQLITE_NOTADB:
      return Trouble::Damaged;
    case SQLITE_BUSY:
    case SQLITE_LOCKED:
      return Trouble::Locked;
    default:
      return Trouble::Other;
  }
}

using Statement = std::unique_ptr<sqlite3_stmt, int (*)(sqlite3_stmt*)>;

int Bind(sqlite3_stmt* statement, int place, const NotesDatabase::Value& value) {
  if (const auto* number = std::get_if<std::int64_t>(&value)) {
    return sqlite3_bind_int64(statement, place, *number);
  }
  const auto& text = std::get<std::string>(value);
  return sqlite3_bind_text(statement, place, text.data(), static_cast<int>(text.size()),
                           SQLITE_TRANSIENT);
}

void KeepPrivate(const std::string& path) {
  using std::filesystem::perms;
  std::error_code ignored;  // on file systems that know no permissions
  std::filesystem::permissions(path, perms::owner_read | perms::owner_write, ignored);
}

}  // namespace

NotesDatabase::NotesDatabase(const std::string& path, bool create,
                             std::chrono::milliseconds patience)
    : database_(nullptr, sqlite3_close) {
  const bool isNew = create && !std::filesystem::exists(path);
  sqlite3* opened = nullptr;
  const int code = sqlite3_open_v2(
      path.c_str(), &opened, SQLITE_OPEN_READWRITE | (create ? SQLITE_OPEN_CREATE : 0), nullptr);
  database_.reset(opened);
  Check(code);
  sqlite3_busy_timeout(opened, static_cast<int>(patience.count()));
  if (!isNew) return;
  Run("PRAGMA user_version");  // only now the file is there
  KeepPrivate(path);
}

void NotesDatabase::Check(int code) const {
  if (code == SQLITE_OK || code == SQLITE_ROW || code == SQLITE_DONE) return;
  throw DatabaseError(KindOf(code),
                      database_ ? sqlite3_errmsg(database_.get()) : sqlite3_errstr(code));
}

void NotesDatabase::Run(const std::string& sql, std::initializer_list<Value> values,
                        const std::function<void(const Row&)>& seen) {
  sqlite3_stmt* prepared = nullptr;
  const int made = sqlite3_prepare_v2(database_.get(), sql.c_str(), -1, &prepared, nullptr);
  Check(made == SQLITE_ERROR ? SQLITE_CORRUPT : made);
  const Statement statement(prepared, sqlite3_finalize);
  int place = 0;
  for (const Value& value : values) Check(Bind(prepared, ++place, value));
  int code = sqlite3_step(prepared);
  for (; code == SQLITE_ROW; code = sqlite3_step(prepared)) {
    if (seen) seen(Row(*prepared));
  }
  Check(code);
}

void NotesDatabase::InOneStep(const std::function<void()>& work) {
  Run("BEGIN IMMEDIATE");
  try {
    work();
    Run("COMMIT");
  } catch (...) {
    sqlite3_exec(database_.get(), "ROLLBACK", nullptr, nullptr, nullptr);
    throw;
  }
}

std::int64_t NotesDatabase::Row::Number(int column) const {
  return sqlite3_column_int64(&statement_, column);
}

std::string NotesDatabase::Row::Text(int column) const {
  const auto* text = reinterpret_cast<const char*>(sqlite3_column_text(&statement_, column));
  if (!text) return {};
  return {text, static_cast<std::size_t>(sqlite3_column_bytes(&statement_, column))};
}

}  // namespace study
