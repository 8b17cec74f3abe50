// SPDX-License-Identifier: GPL-3.0-or-later
// Replacing a file whole, in one step that neither a crash nor a full disk divides.
#pragma once

#include <string>
#include <string_view>

namespace platform {

/// Writes the content beside the file, as `unfinished` (its own name and ".new" where that is
/// blank), and puts it in its place. Raises FileError; the file is then as it was, and nothing of
/// the new one remains.
void ReplaceFile(const std::string& path, std::string_view content, std::string unfinished = {});

}  // namespace platform
