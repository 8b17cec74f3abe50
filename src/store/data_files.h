// SPDX-License-Identifier: GPL-3.0-or-later
// The files of the data folder that hold games, as the store reads and replaces them. All raise
// platform::FileError.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace store {

inline constexpr std::string_view lineEnd = "\r\n";

std::string BackupPath();

/// The game file's content; nothing where there is no file.
std::optional<std::string> ReadGameFile();

/// Puts a file with this content in the place of another in one step, by way of "tvgdb.new". After
/// a failure the old file stands, or seldom the new one, and nothing else.
void ReplaceFile(const std::string& path, std::string_view content);

/// Replaces the game file and keeps what it was in `aside`, a file of the data folder. After a
/// failure, the game file is as it was and there is no `aside`, as far as that can be had.
void ReplaceGameFile(const std::string& before, const std::string& after, const std::string& aside);

/// Makes the game file what it was before a change that failed; nothing is no file. False where
/// that fails, too.
bool RestoreGameFile(const std::optional<std::string>& before);

/// A name that no file of the data folder has: this start, the moment, this ending.
std::string FreeName(const std::string& start, const std::string& ending);

/// Raises nothing.
void RemoveQuietly(const std::string& path);

}  // namespace store
