// SPDX-License-Identifier: GPL-3.0-or-later
// What the settings say of the program's first moments, before anything is loaded. No error reaches
// the caller: the start itself tells of it.
#pragma once

#include <optional>
#include <string>

namespace shell {

inline constexpr const char* displaySplash = "DisplaySplash";
inline constexpr const char* simpleUI = "SimpleUI";
inline constexpr const char* windowSize = "WindowSize";

inline constexpr const char* usualWindowSize = "100";
inline constexpr const char* newUsersWindowSize = "Auto";

/// How large the windows are to be; nothing in the plain look.
std::optional<std::string> WindowSizeAtStart();

/// Whether the splash window is likely to be the first that shows: not at a user's first start.
bool BeginsWithSplash();

}  // namespace shell
