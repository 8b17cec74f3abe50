// SPDX-License-Identifier: GPL-3.0-or-later
// A short name for what bytes say, the same on every machine and in every version.
#pragma once

#include <string>
#include <string_view>

namespace platform {

/// 16 hexadecimal digits. Two contents that somebody hasn't made for it never have the same.
std::string Fingerprint(std::string_view bytes);

}  // namespace platform
