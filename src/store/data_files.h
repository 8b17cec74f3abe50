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

/// Makes the game file what it was before a change that failed; nothing is no file. False where
/// that fails, too.
bool RestoreGameFile(const std::optional<std::string>& before);

/// Raises nothing.
void RemoveQuietly(const std::string& path);

}  // namespace store
